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
    // Whether a window of exactly this place is on the screen.
    bool hasWindow(QRect place) const
    {
        const auto windows = m_desktop.server().visibleWindows();
        return std::any_of(windows.begin(), windows.end(),
            [&](xcb_window_t window) { return m_desktop.server().outline(window) == place; });
    }
    static QRect placeOf(QRect region) { return region.adjusted(1, 0, 0, -1); }
    testing::AssertionResult pin(QRect region)
    {
        if (const auto opened = openOverlay(); !opened)
            return opened;
        m_desktop.input().drag(region.topLeft(), region.topLeft() + QPoint(region.width(), region.height()));
        m_desktop.input().chord({Key::Control, Key::P});
        if (!waitUntil([&] { return hasWindow(placeOf(region)); }))
            return testing::AssertionFailure() << "no pin at " << region.x() << ',' << region.y();
        return waitForRest();
    }
    // How often the program's threads have left the processor of their own will.
    int wakeUps() const
    {
        int count = 0;
        const QDir tasks(QStringLiteral("/proc/%1/task").arg(m_program.resident().processId()));
        for (const QString& task : tasks.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
            QFile status(tasks.filePath(task + QStringLiteral("/status")));
            if (!status.open(QIODevice::ReadOnly))
                continue;
            const QByteArray text = status.readAll();
            count +=
                text.mid(text.indexOf("\nvoluntary_ctxt_switches:") + 25).split('\n')[0].trimmed().toInt();
        }
        return count;
    }

    static constexpr QRect kRegion{101, 377, 301, 222};
};

}

LUMORA_ON_EACH_DESKTOP(Pin);

TEST_P(Pin, ShowsItsPixelsWhereTheyWere)
{
    ASSERT_TRUE(pin(kRegion));
    m_desktop.input().moveTo({1270, 790});
    EXPECT_TRUE(samePixels(m_desktop.settledScreen(), m_before));
}

TEST_P(Pin, IsDraggedByItsBodyAndSavedWhole)
{
    ASSERT_TRUE(pin(kRegion));
    m_desktop.input().drag({200, 500}, {633, 421});
    const QRect moved = placeOf(kRegion).translated(433, -79);
    EXPECT_TRUE(waitUntil([&] { return hasWindow(moved); }));
    EXPECT_TRUE(samePixels(pictureAfter({Key::Control, Key::S}), m_before.copy(kRegion)));
    m_desktop.input().chord({Key::Control, Key::C});
    EXPECT_TRUE(waitUntil([&] { return !clipboard("image/png").isEmpty(); }));
    EXPECT_TRUE(samePixels(QImage::fromData(clipboard("image/png")), m_before.copy(kRegion)));
    m_desktop.input().chord({Key::Escape});
    EXPECT_TRUE(waitUntil([&] { return !hasWindow(moved); }));
}

TEST_P(Pin, IsOnTheNextPicture)
{
    ASSERT_TRUE(pin(kRegion));
    m_desktop.input().drag({200, 500}, {633, 421});
    ASSERT_TRUE(waitUntil([&] { return hasWindow(placeOf(kRegion).translated(433, -79)); }));
    m_desktop.input().moveTo({1270, 790});
    const QImage before = m_desktop.settledScreen();
    const QImage picture = pictureAfter({Key::Super, Key::Digit2});
    EXPECT_TRUE(samePixels(picture, before));
    const QRect inside = placeOf(kRegion).adjusted(2, 2, -2, -2); // without the frame of an active one
    EXPECT_TRUE(samePixels(picture.copy(inside.translated(433, -79)), m_before.copy(inside)));
}

TEST_P(Pin, ZoomsWithTheWheelAndComesBack)
{
    ASSERT_TRUE(pin(kRegion));
    m_desktop.input().moveTo(kRegion.center());
    for (int i = 0; i < 3; ++i)
        m_desktop.input().click(Button::WheelUp);
    EXPECT_TRUE(waitUntil([&] { return !hasWindow(placeOf(kRegion)); }));
    for (int i = 0; i < 3; ++i)
        m_desktop.input().click(Button::WheelDown);
    const auto isBack = [&] {
        const auto windows = m_desktop.server().visibleWindows();
        return std::any_of(windows.begin(), windows.end(), [&](xcb_window_t window) {
            return m_desktop.server().outline(window).size() == placeOf(kRegion).size();
        });
    };
    EXPECT_TRUE(waitUntil(isBack));
    m_desktop.input().click(Button::Middle);
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
    m_desktop.input().moveTo({1270, 790});
    QThread::msleep(500);
    const int before = wakeUps();
    QThread::msleep(1000);
    EXPECT_EQ(wakeUps(), before);
    for (const QRect region : regions) {
        m_desktop.input().drag(region.center(), region.center() + by);
        EXPECT_TRUE(waitUntil([&] { return hasWindow(placeOf(region).translated(by)); }));
    }
    for (const QRect region : regions) {
        m_desktop.input().moveTo(region.center() + by);
        m_desktop.input().click(Button::Middle);
        EXPECT_TRUE(waitUntil([&] { return !hasWindow(placeOf(region).translated(by)); }));
    }
}
