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
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.key << " with " << c.modifiers.toInt());
        EXPECT_EQ(overlayAction(QKeyEvent(QEvent::KeyPress, c.key, c.modifiers)), c.action);
    }
}
