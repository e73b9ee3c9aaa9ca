#include "capture/OverlayKeys.h"

#include <gtest/gtest.h>

TEST(OverlayKeys, CommandAndControlMeanTheSame)
{
    struct Case {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        OverlayAction action;
    };
    const Case cases[] = {
        {Qt::Key_Escape, Qt::NoModifier, OverlayAction::Cancel},
        {Qt::Key_Escape, Qt::ShiftModifier, OverlayAction::Cancel},
        {Qt::Key_S, Qt::ControlModifier, OverlayAction::Save},
        {Qt::Key_S, Qt::MetaModifier, OverlayAction::Save},
        {Qt::Key_S, Qt::NoModifier, OverlayAction::None},
        {Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier, OverlayAction::None},
        {Qt::Key_A, Qt::ControlModifier, OverlayAction::TakeWholeDisplay},
        {Qt::Key_R, Qt::ControlModifier, OverlayAction::Cancel},
        {Qt::Key_U, Qt::ControlModifier, OverlayAction::Upload},
        {Qt::Key_Return, Qt::NoModifier, OverlayAction::Save},
        {Qt::Key_Enter, Qt::KeypadModifier, OverlayAction::Save},
        {Qt::Key_Return, Qt::ShiftModifier, OverlayAction::None},
        {Qt::Key_Z, Qt::ControlModifier, OverlayAction::Undo},
        {Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier, OverlayAction::Redo},
        {Qt::Key_Y, Qt::ControlModifier, OverlayAction::Redo},
        {Qt::Key_Backspace, Qt::NoModifier, OverlayAction::Delete},
        {Qt::Key_Delete, Qt::NoModifier, OverlayAction::Delete},
        {Qt::Key_Delete, Qt::ControlModifier, OverlayAction::None},
        {Qt::Key_C, Qt::ControlModifier, OverlayAction::Copy},
        {Qt::Key_C, Qt::NoModifier, OverlayAction::CopyColour},
        {Qt::Key_C, Qt::KeypadModifier, OverlayAction::CopyColour},
        {Qt::Key_C, Qt::ShiftModifier, OverlayAction::None},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.key << " with " << c.modifiers.toInt());
        EXPECT_EQ(overlayAction(QKeyEvent(QEvent::KeyPress, c.key, c.modifiers)), c.action);
    }
}

TEST(OverlayKeys, DigitsChooseTools)
{
    struct Case {
        const char* what;
        int key;
        Qt::KeyboardModifiers modifiers;
        quint32 keycode; // of X
        std::optional<int> digit;
    };
    const Case cases[] = {
        {"1", Qt::Key_1, Qt::NoModifier, 10, 1},
        {"9", Qt::Key_9, Qt::NoModifier, 18, 9},
        {"9 of the keypad", Qt::Key_9, Qt::KeypadModifier, 81, 9},
        {"0", Qt::Key_0, Qt::NoModifier, 19, std::nullopt},
        {"6 of a layout with accents there", Qt::Key_Minus, Qt::NoModifier, 15, 6},
        {"5 by the positions before", Qt::Key_ParenLeft, Qt::NoModifier, 14, 5},
        {"with Control", Qt::Key_1, Qt::ControlModifier, 10, std::nullopt},
        {"a letter", Qt::Key_A, Qt::NoModifier, 38, std::nullopt},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(toolDigit(QKeyEvent(QEvent::KeyPress, c.key, c.modifiers, c.keycode, 0, 0)), c.digit);
    }
}

TEST(OverlayKeys, FollowThePositionWhereTheLayoutHasNoLatinLetters)
{
    constexpr quint32 kPositionOfS = 39, kPositionOfD = 40; // X keycodes
    const auto pressed = [](int key, quint32 keycode) {
        return overlayAction(QKeyEvent(QEvent::KeyPress, key, Qt::ControlModifier, keycode, 0, 0));
    };
    EXPECT_EQ(pressed(0x42b, kPositionOfS), OverlayAction::Save) << "a Cyrillic letter";
    EXPECT_EQ(pressed(0x444, kPositionOfD), OverlayAction::None);
    EXPECT_EQ(pressed(Qt::Key_O, kPositionOfS), OverlayAction::None) << "a Latin layout decides by letter";
}

TEST(OverlayKeys, StepTheRegionWithTheArrows)
{
    struct Case {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        QPoint by; // none for no step
        bool isResize;
    };
    const Case cases[] = {
        {Qt::Key_Left, Qt::NoModifier, {-1, 0}, false},
        {Qt::Key_Right, Qt::KeypadModifier, {1, 0}, false},
        {Qt::Key_Up, Qt::ShiftModifier, {0, -1}, true},
        {Qt::Key_Down, Qt::ShiftModifier, {0, 1}, true},
        {Qt::Key_Down, Qt::ControlModifier, {}, false},
        {Qt::Key_A, Qt::NoModifier, {}, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.key << " with " << c.modifiers.toInt());
        const auto step = arrowStep(QKeyEvent(QEvent::KeyPress, c.key, c.modifiers));
        EXPECT_EQ(step.has_value(), !c.by.isNull());
        EXPECT_EQ(step.value_or(ArrowStep{}).by, c.by);
        EXPECT_EQ(step.value_or(ArrowStep{}).isResize, c.isResize);
    }
}
