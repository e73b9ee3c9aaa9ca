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
        {Qt::Key_A, Qt::ControlModifier, OverlayAction::None},
        {Qt::Key_Z, Qt::ControlModifier, OverlayAction::Undo},
        {Qt::Key_Z, Qt::MetaModifier, OverlayAction::Undo},
        {Qt::Key_Z, Qt::NoModifier, OverlayAction::None},
        {Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier, OverlayAction::Redo},
        {Qt::Key_Z, Qt::MetaModifier | Qt::ShiftModifier, OverlayAction::Redo},
        {Qt::Key_Y, Qt::ControlModifier, OverlayAction::Redo},
        {Qt::Key_Backspace, Qt::NoModifier, OverlayAction::Delete},
        {Qt::Key_Delete, Qt::NoModifier, OverlayAction::Delete},
        {Qt::Key_Delete, Qt::ControlModifier, OverlayAction::None},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.key << " with " << c.modifiers.toInt());
        EXPECT_EQ(overlayAction(QKeyEvent(QEvent::KeyPress, c.key, c.modifiers)), c.action);
    }
}

TEST(OverlayKeys, FollowThePositionWhereTheLayoutHasNoLatinLetters)
{
    constexpr quint32 kPositionOfS = 39, kPositionOfA = 38; // X keycodes
    const auto pressed = [](int key, quint32 keycode) {
        return overlayAction(QKeyEvent(QEvent::KeyPress, key, Qt::ControlModifier, keycode, 0, 0));
    };
    EXPECT_EQ(pressed(0x42b, kPositionOfS), OverlayAction::Save) << "a Cyrillic letter";
    EXPECT_EQ(pressed(0x444, kPositionOfA), OverlayAction::None);
    EXPECT_EQ(pressed(Qt::Key_O, kPositionOfS), OverlayAction::None) << "a Latin layout decides by letter";
}
