#include "tests/capture/ManagerTest.h"

#include "capture/PointerTools.h"
#include "capture/ZRColorWindow.h"
#include "capture/ZRMagnifierView.h"
#include "capture/ZRScreenshotCursorView.h"

namespace {

constexpr auto kDistance = ScreenShotTool::Distance;
constexpr auto kColor = ScreenShotTool::Color;

// The tools, driven through the manager as the menu does.
class PointerToolsTest : public ManagerTest {
protected:
    void SetUp() override
    {
        ManagerTest::SetUp();
        manager->tools().onEnded = [this](const ToolOutcome& outcome) { outcomes.push_back(outcome); };
    }

    // True when the tool then runs with its window.
    bool start(ScreenShotTool tool)
    {
        if (tool == kDistance)
            manager->startScreenShotDistance();
        else
            manager->startScreenShotGetColor();
        PointerTools& tools = manager->tools();
        return QTest::qWaitFor([&] { return tools.distanceWindow() || !tools.isRunning(); }, 1000) &&
               tools.distanceWindow();
    }
    ZRScreenShotDistanceWindow& window()
    {
        return const_cast<ZRScreenShotDistanceWindow&>(*manager->tools().distanceWindow());
    }
    // A pixel of the window's display, counted from its top-left one, as events give it.
    ZRPoint at(int x, int y)
    {
        const DisplayRecord& display = window().currenScreen();
        return display.localPoint(display.pixels.topLeft() + QPoint(x, y));
    }
    void press(int x, int y) { window().mouseDown({at(x, y), Qt::LeftButton}); }
    void moveTo(int x, int y) { window().mouseMoved({at(x, y), Qt::NoButton}); }
    void dragTo(int x, int y) { window().mouseDragged({at(x, y), Qt::NoButton}); }
    void release(int x, int y) { window().mouseUp({at(x, y), Qt::LeftButton}); }
    void key(Qt::Key key) { window().keyDown(QKeyEvent(QEvent::KeyPress, key, {})); }
    std::string shown() { return window().magnifier().pixelColorValueText().toStdString(); }
    void plugInSecond(double scale)
    {
        displays().displays.push_back(FakeDisplays::display(2, QRect(800, 0, 900, 600), scale));
    }
    void setScale(double scale)
    {
        displays().displays[0] = FakeDisplays::display(1, QRect(0, 0, 800, 600), scale);
    }

    std::vector<ToolOutcome> outcomes;
};

}

TEST_F(PointerToolsTest, ShowsHowFarThePointerIsFromTheLastPressInPoints)
{
    for (const double scale : {1.0, 1.5, 2.0}) {
        SCOPED_TRACE(scale);
        setScale(scale);
        ASSERT_TRUE(start(kDistance));
        moveTo(300, 300);
        EXPECT_EQ(shown(), "0x0");
        EXPECT_FALSE(window().upCross().isCrossShown());
        press(100, 100);
        EXPECT_EQ(shown(), "0x0");
        EXPECT_TRUE(window().upCross().isCrossShown());
        const auto points = [scale](int pixels) { return std::to_string(int(pixels / scale)); };
        for (const QPoint p : {QPoint(160, 70), QPoint(101, 99), QPoint(40, 220), QPoint(799, 599)}) {
            dragTo(p.x(), p.y());
            EXPECT_EQ(shown(), points(std::abs(p.x() - 100)) + "x" + points(std::abs(p.y() - 100)));
        }
        release(799, 599);
        moveTo(190, 130);
        EXPECT_EQ(shown(), points(90) + "x" + points(30)); // on after the release
        press(190, 130);
        moveTo(190, 190);
        EXPECT_EQ(shown(), "0x" + points(60));
        EXPECT_EQ(window().upCross().crossLocation(), at(190, 130));
        key(Qt::Key_Escape);
    }
}

TEST_F(PointerToolsTest, APickNeedsPressAndReleaseOnTheDisplay)
{
    ASSERT_TRUE(start(kColor));
    release(10, 10); // pressed before the tool was there
    ASSERT_TRUE(manager->tools().isRunning());
    press(10, 10);
    release(-10, 10);
    ASSERT_TRUE(manager->tools().isRunning());
    press(10, 700);
    release(10, 10);
    ASSERT_TRUE(manager->tools().isRunning());
    press(10, 10);
    EXPECT_FALSE(window().upCross().isCrossShown());
    release(20, 30);
    ASSERT_EQ(outcomes.size(), 1U);
    EXPECT_EQ(outcomes[0].colour, FakeWindowServer::pixel(1, 20, 30)); // where the button came up
}

TEST_F(PointerToolsTest, FollowsThePointerToAnotherDisplay)
{
    plugInSecond(2);
    ASSERT_TRUE(start(kDistance));
    press(100, 100);
    displays().pointerPixel = QPoint(900, 300);
    dragTo(900, 300);
    EXPECT_EQ(window().currenScreen().id, 1); // a drag stays where its press was
    EXPECT_EQ(shown(), "800x200");
    release(900, 300);
    moveTo(900, 300);
    ASSERT_EQ(window().currenScreen().id, 2);
    EXPECT_EQ(AppSettings::getCurrentScreenInfo()->GetDisplayID(), 2);
    EXPECT_TRUE(grab().holds);
    EXPECT_EQ(grab().releases, 0); // not even between the displays
    EXPECT_FALSE(window().upCross().isCrossShown());
    EXPECT_EQ(shown(), "50x350"); // (50,150) from the old start's numbers (100,500)
    press(100, 300);
    moveTo(160, 320);
    EXPECT_EQ(shown(), "30x10");
    displays().pointerPixel = QPoint(4000, 4000);
    window().mouseMoved({{5000, -5000}, Qt::NoButton});
    EXPECT_EQ(window().currenScreen().id, 2); // on no display at all
    key(Qt::Key_Escape);

    ASSERT_TRUE(start(kColor)); // where the pointer was last seen
    displays().pointerPixel = QPoint(10, 10);
    window().mouseMoved({{-300, 10}, Qt::NoButton});
    ASSERT_EQ(window().currenScreen().id, 1);
    press(10, 10);
    release(10, 10);
    EXPECT_EQ(outcomes.back().colour, FakeWindowServer::pixel(1, 10, 10));
}

TEST_F(PointerToolsTest, EndsOnceAndGivesEverythingBack)
{
    struct Case {
        const char* what;
        std::function<void()> end;
        bool isKeyKept; // the keyboard stays until the key comes up
        bool isFailure;
    };
    const Case cases[] = {
        {"Escape", [&] { key(Qt::Key_Escape); }, true, false},
        {"right button",
            [&] {
                window().rightMouseDown({at(5, 5), Qt::RightButton});
            },
            false, false},
        {"cancel", [&] { manager->_cancelScreenshot(); }, false, false},
        {"a capture", [&] { manager->initialize(); }, false, false},
        {"keyboard refused late", [&] { grab().onRefused(QStringLiteral("held")); }, false, true},
        {"its display goes", [&] { displays().unplug(1); }, false, false},
    };
    for (const ScreenShotTool tool : {kDistance, kColor}) {
        for (const Case& c : cases) {
            SCOPED_TRACE(c.what);
            displays().displays = {FakeDisplays::display(1, QRect(0, 0, 800, 600), 1)};
            ASSERT_TRUE(start(tool));
            EXPECT_TRUE(grab().holds && grab().holdsThePointer);
            key(Qt::Key_A); // means nothing
            EXPECT_TRUE(outcomes.empty());
            c.end();
            ASSERT_EQ(outcomes.size(), 1U);
            EXPECT_FALSE(outcomes[0].colour);
            EXPECT_EQ(!outcomes[0].failure.isEmpty(), c.isFailure);
            EXPECT_FALSE(manager->tools().isRunning());
            EXPECT_EQ(manager->tools().distanceWindow(), nullptr);
            EXPECT_EQ(grab().isKept, c.isKeyKept);
            EXPECT_FALSE(grab().holdsThePointer);
            EXPECT_EQ(workspace().activated.size(), 1U);
            manager->_cancelScreenshot();
            EXPECT_EQ(outcomes.size(), 1U);
            outcomes.clear();
            workspace().activated.clear();
        }
    }
}

TEST_F(PointerToolsTest, AToolThatCannotStartSaysWhy)
{
    server().refusal = QStringLiteral("no screen");
    EXPECT_FALSE(start(kColor));
    server().refusal.clear();
    grab().refusal = QStringLiteral("held");
    EXPECT_FALSE(start(kDistance));
    grab().refusal.clear();
    displays().displays.clear();
    manager->setCurrentScreen({});
    EXPECT_FALSE(start(kColor));
    ASSERT_EQ(outcomes.size(), 3U);
    EXPECT_EQ(outcomes[0].failure, QStringLiteral("no screen"));
    EXPECT_EQ(outcomes[1].failure, QStringLiteral("held"));
    EXPECT_EQ(outcomes[2].failure, QStringLiteral("there is no display"));
}

TEST_F(PointerToolsTest, WhatComesNextWaitsUntilTheDesktopIsUncovered)
{
    ASSERT_TRUE(start(kDistance));
    manager->startScreenShotGetColor();
    EXPECT_EQ(outcomes.size(), 1U);
    EXPECT_EQ(server().freezes, 1);
    ASSERT_TRUE(QTest::qWaitFor([this] { return server().freezes == 2; }, 1000));
    manager->initialize();
    manager->startScreenShotIsFullScreen(false);
    EXPECT_EQ(outcomes.size(), 2U);
    EXPECT_EQ(server().freezes, 2);
    EXPECT_TRUE(manager->isCapturing());
    manager->startScreenShotDistance(); // not beside a capture
    EXPECT_FALSE(manager->tools().isRunning());
    ASSERT_TRUE(QTest::qWaitFor([this] { return manager->frame() != nullptr; }, 1000));
    manager->_cancelScreenshot();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !manager->isCapturing(); }, 2000));
    for (const bool isCancelled : {false, true}) {
        ASSERT_TRUE(start(kDistance));
        const int freezes = server().freezes;
        manager->startScreenShotDistance();
        manager->startScreenShotGetColor(); // the one before never gets as far as a window
        if (isCancelled)
            manager->_cancelScreenshot();
        ASSERT_TRUE(QTest::qWaitFor([&] { return isCancelled || manager->tools().distanceWindow(); }, 2000));
        QTest::qWait(80);
        EXPECT_EQ(manager->tools().distanceWindow() == nullptr, isCancelled);
        EXPECT_EQ(server().freezes, freezes + (isCancelled ? 0 : 1));
        manager->_cancelScreenshot();
    }
    EXPECT_EQ(outcomes.size(), 8U);
}
