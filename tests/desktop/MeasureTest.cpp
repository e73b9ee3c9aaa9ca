#include "tests/desktop/ToolTest.h"

namespace {

constexpr QRgb kPointerCross = qRgb(50, 166, 255);
constexpr QRgb kPressCross = qRgb(153, 227, 148);
constexpr const char* kScales[] = {"FIRST=1;SECOND=2", "FIRST=1.5;SECOND=1", "FIRST=2;SECOND=1.5"};

class Measure : public ToolTest {
protected:
    std::unique_ptr<QProcess> startMeasure() const { return m_program.start("measure"); }
    // Whether a cross of this colour, and of no other place, reaches the display's edges.
    bool waitForCross(QRgb colour, QRect display, QPoint place) const
    {
        return waitUntil([=, this] {
            const QImage screen = m_desktop.screen();
            const QPoint top(place.x(), display.top()), left(display.left(), place.y());
            return screen.pixel(top) == colour && screen.pixel(left) == colour;
        });
    }
    int pixelsOf(QRgb colour, QRect display) const
    {
        const QImage screen = m_desktop.screen().copy(display);
        int count = 0;
        for (int y = 0; y < screen.height(); ++y)
            for (int x = 0; x < screen.width(); ++x)
                count += screen.pixel(x, y) == colour;
        return count;
    }
};

} // namespace

TEST_F(Measure, DrawsACrossAtThePointerAndOneAtThePress)
{
    for (const char* scales : kScales) {
        ASSERT_TRUE(startAt(scales));
        for (const QRect display : {kFirst, kSecond}) {
            SCOPED_TRACE(testing::Message() << scales << (display == kFirst ? " first" : " second"));
            const QPoint press = display.topLeft() + QPoint(201, 133);
            m_before = m_desktop.settledScreen();
            input().moveTo(press);
            const auto process = startMeasure();
            ASSERT_TRUE(waitForTool(display));
            EXPECT_TRUE(waitForCross(kPointerCross, display, press));
            EXPECT_EQ(pixelsOf(kPressCross, display), 0);
            const QPoint place = display.topLeft() + QPoint(57, 342);
            input().press(Button::Left);
            input().moveTo(place);
            EXPECT_TRUE(waitForCross(kPointerCross, display, place));
            EXPECT_TRUE(waitForCross(kPressCross, display, press));
            input().release(Button::Left);
            input().clickAt(press); // measures on, from here
            EXPECT_TRUE(waitForCross(kPointerCross, display, press));
            input().chord({Key::Escape});
            const Answer answer = Program::finish(*process);
            EXPECT_EQ(answer.exitCode, 0) << qPrintable(answer.err);
            EXPECT_EQ(answer.out, QString());
            EXPECT_TRUE(waitForNoTool());
            EXPECT_TRUE(waitUntil([this] { return m_desktop.screen() == m_before; }));
        }
        EXPECT_EQ(m_program.quitResident(), 0);
    }
}

TEST_F(Measure, FollowsThePointerAndLeavesThePressBehind)
{
    KeyRecorder recorder(m_desktop.displayName(), kWindow);
    for (const char* scales : kScales) {
        SCOPED_TRACE(scales);
        ASSERT_TRUE(startAt(scales));
        m_before = m_desktop.settledScreen();
        const auto process = startMeasure();
        ASSERT_TRUE(waitForTool(kFirst));
        input().click(Button::Left);
        for (const QRect display : {kSecond, kFirst}) {
            input().moveTo(display.center());
            for (int key = 0; key < 8; ++key) { // before, while and after the window moves
                input().chord({Key::A});
                QThread::msleep(8);
            }
            ASSERT_TRUE(waitForTool(display));
            EXPECT_TRUE(waitForCross(kPointerCross, display, display.center()));
            EXPECT_EQ(pixelsOf(kPressCross, display), 0);
            const QRect other = display == kFirst ? kSecond : kFirst;
            EXPECT_TRUE(waitUntil([&] { return m_desktop.screen().copy(other) == m_before.copy(other); }));
        }
        EXPECT_EQ(recorder.take(), std::vector<KeyRecorder::Event>());
        input().click(Button::Right);
        EXPECT_EQ(Program::finish(*process).exitCode, 0);
        EXPECT_TRUE(waitUntil([&] { return recorder.hasKeyboard(); }));
        EXPECT_EQ(m_program.quitResident(), 0);
    }
}

TEST_F(Measure, ACaptureEndsItAndShowsNothingOfIt)
{
    ASSERT_TRUE(startAt("FIRST=1;SECOND=1.5"));
    input().moveTo(kFirst.center());
    m_before = m_desktop.settledScreen();
    for (const bool isRegion : {true, false}) {
        const auto process = startMeasure();
        ASSERT_TRUE(waitForTool(kFirst));
        input().click(Button::Left);
        const auto capture = m_program.start(isRegion ? "region" : "full");
        EXPECT_EQ(Program::finish(*process).exitCode, 0);
        if (isRegion) {
            ASSERT_TRUE(m_program.waitForOverlay(m_before, kFirst));
            EXPECT_EQ(m_program.run("measure").exitCode, 5);
            EXPECT_TRUE(savesRegion({10, 10}, {900, 600}));
        }
        const Answer answer = Program::finish(*capture);
        EXPECT_EQ(answer.exitCode, 0) << qPrintable(answer.err);
        if (!isRegion) {
            EXPECT_TRUE(samePixels(QImage(answer.path()), m_before.copy(kFirst)));
        }
    }
}
