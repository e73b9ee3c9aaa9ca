#include "tests/desktop/ProgramTest.h"

#include <algorithm>

namespace {

class Pin : public EachDesktopTest {
protected:
    void SetUp() override
    {
        EachDesktopTest::SetUp();
        ASSERT_TRUE(m_program.startResident());
    }
    bool hasWindow(QRect place) const { return server().windowAt(place) != XCB_NONE; }
    static QRect placeOf(QRect region) { return region.adjusted(1, 0, 0, -1); }
    testing::AssertionResult pin(QRect region)
    {
        if (const auto opened = openOverlay(); !opened)
            return opened;
        input().drag(region);
        input().chord({Key::Control, Key::P});
        if (!waitUntil([&] { return hasWindow(placeOf(region)); }))
            return testing::AssertionFailure() << "no pin at " << region.x() << ',' << region.y();
        return waitForRest();
    }
    // How often the program's threads have left the processor of their own will.
    int wakeUps() const
    {
        int count = 0;
        const QDir tasks(QStringLiteral("/proc/%1/task").arg(m_program.resident().processId()));
        for (const QString& task : tasks.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
            count +=
                statusNumber(tasks.filePath(task + QStringLiteral("/status")), "voluntary_ctxt_switches");
        return count;
    }

    static constexpr QRect kRegion{101, 377, 301, 222};
};

}

LUMORA_ON_EACH_DESKTOP(Pin);

TEST_P(Pin, ShowsItsPixelsAndIsDraggedSavedCopiedAndOnTheNextPicture)
{
    ASSERT_TRUE(pin(kRegion));
    input().moveTo({1270, 790});
    EXPECT_TRUE(samePixels(m_desktop.settledScreen(), m_before));
    const QPoint by(433, -79);
    const QRect moved = placeOf(kRegion).translated(by);
    input().drag({200, 500}, QPoint(200, 500) + by);
    ASSERT_TRUE(waitUntil([&] { return hasWindow(moved); }));
    EXPECT_TRUE(saves(kRegion));
    input().chord({Key::Control, Key::C});
    EXPECT_TRUE(waitUntil([&] { return !clipboard("image/png").isEmpty(); }));
    EXPECT_TRUE(samePixels(QImage::fromData(clipboard("image/png")), m_before.copy(kRegion)));

    input().moveTo({1270, 790});
    const QImage screen = m_desktop.settledScreen();
    const QImage picture = pictureAfter({Key::Super, Key::Digit2});
    EXPECT_TRUE(samePixels(picture, screen));
    const QRect inside = placeOf(kRegion).adjusted(2, 2, -2, -2); // without the frame of an active one
    EXPECT_TRUE(samePixels(picture.copy(inside.translated(by)), m_before.copy(inside)));
    input().chord({Key::Escape});
    EXPECT_TRUE(waitUntil([&] { return !hasWindow(moved); }));
}

TEST_P(Pin, ZoomsWithTheWheelAndComesBack)
{
    ASSERT_TRUE(pin(kRegion));
    input().moveTo(kRegion.center());
    for (int i = 0; i < 3; ++i)
        input().click(Button::WheelUp);
    EXPECT_TRUE(waitUntil([&] { return !hasWindow(placeOf(kRegion)); }));
    for (int i = 0; i < 3; ++i)
        input().click(Button::WheelDown);
    const auto isBack = [&] {
        const auto windows = server().visibleWindows();
        return std::any_of(windows.begin(), windows.end(),
            [&](xcb_window_t window) { return server().outline(window).size() == placeOf(kRegion).size(); });
    };
    EXPECT_TRUE(waitUntil(isBack));
    input().click(Button::Middle);
    EXPECT_TRUE(waitUntil([&] { return !isBack(); }));
}

TEST_P(Pin, TwentyRestWithoutAWakeUpAndAreEachDragged)
{
    const QPoint by(610, 40);
    std::vector<QRect> regions;
    for (int i = 0; i < 20; ++i)
        regions.push_back({20 + i % 5 * 130, 100 + i / 5 * 100, 100 + i, 80});
    for (const QRect region : regions)
        ASSERT_TRUE(pin(region));
    input().moveTo({1270, 790});
    QThread::msleep(500);
    const int before = wakeUps();
    QThread::msleep(1000);
    EXPECT_EQ(wakeUps(), before);
    for (const QRect region : regions) {
        input().drag(region.center(), region.center() + by);
        EXPECT_TRUE(waitUntil([&] { return hasWindow(placeOf(region).translated(by)); }));
    }
    for (const QRect region : regions) {
        input().moveTo(region.center() + by);
        input().click(Button::Middle);
        EXPECT_TRUE(waitUntil([&] { return !hasWindow(placeOf(region).translated(by)); }));
    }
}
