#include "platform/x11/NativeDisplays.h"

#include "tests/platform/x11/XServer.h"

#include <gtest/gtest.h>

namespace {

// Makes two monitors of parts of the server's screen for as long as it lives; the right one is the
// first.
class TwoMonitors {
public:
    TwoMonitors()
    {
        EXPECT_TRUE(runTool("xrandr", "--setmonitor LEFT 300/100x600/200+0+0 screen"));
        EXPECT_TRUE(runTool("xrandr", "--setmonitor *RIGHT 500/150x400/120+300+100 none"));
    }
    ~TwoMonitors()
    {
        EXPECT_TRUE(runTool("xrandr", "--delmonitor LEFT"));
        EXPECT_TRUE(runTool("xrandr", "--delmonitor RIGHT"));
    }
};

}

TEST(NativeDisplays, PutThePrimaryFirstAndCountFromIt)
{
    NativeDisplays displays(XConnection::ofApplication());
    EXPECT_EQ(displays.all().size(), 1u);
    int changes = 0;
    displays.onChange = [&changes] { ++changes; };
    {
        TwoMonitors monitors;
        ASSERT_TRUE(waitFor([&] { return displays.all().size() == 2 && changes > 0; }));
        const std::vector<DisplayRecord> all = displays.all();
        EXPECT_EQ(all[0].name, QStringLiteral("RIGHT"));
        EXPECT_EQ(all[0].pixels, QRect(0, 0, 500, 400));
        EXPECT_EQ(all[0].frame, (ZRRect{0, 0, 500, 400}));
        EXPECT_EQ(all[1].name, QStringLiteral("LEFT"));
        EXPECT_EQ(all[1].pixels, QRect(-300, -100, 300, 600));
        EXPECT_NE(all[0].id, all[1].id);
        EXPECT_EQ(displays.originOnRoot(), QPoint(300, 100));
    }
    EXPECT_TRUE(waitFor([&] { return displays.all().size() == 1; }));
}

TEST(NativeDisplays, AnnounceABurstOfChangesOnce)
{
    NativeDisplays displays(XConnection::ofApplication());
    int changes = 0;
    displays.onChange = [&changes] { ++changes; };
    {
        TwoMonitors monitors;
        letPass(400);
        EXPECT_EQ(changes, 1);
    }
    letPass(400);
    EXPECT_EQ(changes, 2);
}
