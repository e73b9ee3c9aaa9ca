#include "platform/x11/NativeWorkspace.h"

#include "tests/platform/x11/XServer.h"

#include <QUrl>

#include <gtest/gtest.h>

TEST(NativeWorkspace, LeavesTheFocusWhenTheApplicationIsGone)
{
    NativeWorkspace workspace(XConnection::ofApplication());
    const OtherProgram client(mainDisplay());
    const xcb_window_t gone = client.openWindow({0, 0, 50, 50}, 0);
    client.focus(gone);
    const ActiveApplication before = workspace.activeApplication();
    const xcb_window_t kept = client.openWindow({60, 0, 50, 50}, 0);
    client.focus(kept);
    xcb_destroy_window(client.connection(), gone);
    client.sync();
    testing::internal::CaptureStderr();
    workspace.activate(before);
    workspace.activate({});
    letPass(50);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(client.focusedWindow(), kept);
}

TEST(NativeWorkspace, OpensNothingThatIsNowhere)
{
    NativeWorkspace workspace(XConnection::ofApplication());
    EXPECT_FALSE(workspace.openLink(QUrl()));
    EXPECT_FALSE(workspace.revealFile(QStringLiteral("/no folder/a picture.png")));
}
