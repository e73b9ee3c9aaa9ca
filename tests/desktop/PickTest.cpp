#include "tests/desktop/ToolTest.h"

#include <QColor>

#include <random>

namespace {

constexpr int kPicks = 68; // at each pair of scale factors

class Pick : public ToolTest {
protected:
    explicit Pick(bool hasWindowManager = false) // nobody else gives the keyboard back
        : ToolTest(hasWindowManager)
    {
    }
    static QRect displayAt(QPoint place) { return kFirst.contains(place) ? kFirst : kSecond; }
    std::unique_ptr<QProcess> startPick() const { return m_program.start("pick"); }
    // Picks at a place, coming from another one; what the program answered.
    testing::AssertionResult pick(QPoint from, QPoint place, Answer& answer)
    {
        m_before = m_desktop.screen();
        input().moveTo(from);
        const auto process = startPick();
        if (!waitForTool(displayAt(from)))
            return testing::AssertionFailure() << "no tool";
        input().moveTo(place);
        if (!waitForTool(displayAt(place)))
            return testing::AssertionFailure() << "the tool did not follow";
        input().click(Button::Left);
        answer = Program::finish(*process);
        return testing::AssertionSuccess();
    }
    QString colourAt(QPoint place) const { return QColor(m_before.pixel(place)).name(); }

    bool hasColourWindow() const
    {
        return server().title(server().focusedWindow()) == QLatin1String("Color");
    }
    bool waitForColourWindow() const { return waitForFocus("Color"); }
    // True when no other one comes to light below it, and the desktop looks as before.
    bool closeColourWindow()
    {
        input().chord({Key::Escape});
        return waitUntil([this] { return !hasColourWindow() && m_desktop.screen() == m_before; });
    }
};

class PickAtScales : public Pick, public testing::WithParamInterface<const char*> {
protected:
    PickAtScales()
        : Pick(true)
    {
    }
};

} // namespace

INSTANTIATE_TEST_SUITE_P(Scales, PickAtScales,
    testing::Values("FIRST=1;SECOND=2", "FIRST=1.5;SECOND=1", "FIRST=2;SECOND=1.5"),
    [](const auto& pair) { return "Pair" + std::to_string(pair.index); });

TEST_P(PickAtScales, GivesTheScreensPixelUnderThePointer)
{
    std::mt19937 random(unsigned(testing::UnitTest::GetInstance()->random_seed()));
    const auto randomPlace = [&random] {
        const QRect display = random() % 2 ? kFirst : kSecond;
        return display.topLeft() + QPoint(random() % display.width(), random() % display.height());
    };
    ASSERT_TRUE(startAt(GetParam()));
    for (int i = 0; i < kPicks; ++i) {
        const QPoint from = randomPlace(), place = randomPlace();
        SCOPED_TRACE(testing::Message() << "from " << from.x() << ',' << from.y() << " picked at "
                                        << place.x() << ',' << place.y());
        Answer answer;
        ASSERT_TRUE(pick(from, place, answer));
        EXPECT_EQ(answer.exitCode, 0) << qPrintable(answer.err);
        EXPECT_EQ(answer.out.toStdString(), (colourAt(place) + QLatin1Char('\n')).toStdString());
        ASSERT_TRUE(waitForColourWindow());
        ASSERT_TRUE(closeColourWindow());
    }
}

TEST_F(Pick, OpensOneColourWindowOnItsDisplayThatCopiesTheValue)
{
    ASSERT_TRUE(startAt("FIRST=1;SECOND=1"));
    Answer answer;
    for (const QPoint place : {kSecond.topLeft() + QPoint(30, 20), QPoint(40, 60)}) {
        ASSERT_TRUE(pick(place, place, answer));
        ASSERT_TRUE(waitForColourWindow());
        const auto isCentred = [this, place] {
            const xcb_window_t window = server().topmost(server().focusedWindow());
            const QPoint off = server().outline(window).center() - displayAt(place).center();
            return off.manhattanLength() < 40;
        };
        EXPECT_TRUE(waitUntil(isCentred));
        input().chord({Key::Control, Key::C});
        EXPECT_TRUE(waitUntil([&] { return clipboard("UTF8_STRING") == colourAt(place).toLatin1(); }));
    }
    m_before = m_desktop.screen();
    input().chord({Key::Escape});
    EXPECT_TRUE(waitUntil([this] { return !hasColourWindow(); }));
}

TEST_F(Pick, WithoutAColourChangesNothing)
{
    struct Case {
        const char* what;
        std::function<void(Input&)> end;
    };
    const Case cases[] = {
        {"Escape", [](Input& input) { input.chord({Key::Escape}); }},
        {"right button", [](Input& input) { input.click(Button::Right); }},
        {"verb", [this](Input&) { EXPECT_TRUE(m_program.answers()); }},
        {"its display goes", [this](Input&) { EXPECT_TRUE(m_desktop.removeDisplay("SECOND")); }},
    };
    KeyRecorder recorder(m_desktop.displayName(), kWindow);
    ASSERT_TRUE(startAt("FIRST=1;SECOND=1"));
    input().moveTo(kSecond.center());
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        m_before = m_desktop.settledScreen();
        const auto process = startPick();
        ASSERT_TRUE(waitForTool(kSecond));
        input().chord({Key::A});
        input().chord({Key::Super, Key::Digit1}); // a capture's hot key is a key as any other
        EXPECT_EQ(m_program.overlay(), XCB_NONE);
        c.end(input());
        const Answer answer = Program::finish(*process);
        EXPECT_EQ(answer.exitCode, 4);
        EXPECT_EQ(answer.out, QString());
        EXPECT_TRUE(waitForNoTool());
        EXPECT_TRUE(waitUntil([&] { return recorder.hasKeyboard() && m_desktop.screen() == m_before; }));
        EXPECT_EQ(recorder.take(), std::vector<KeyRecorder::Event>());
    }
}

TEST_F(Pick, BelongsToTheDisplayOfItsPress)
{
    ASSERT_TRUE(startAt("FIRST=1;SECOND=2"));
    m_before = m_desktop.screen();
    const QPoint place = kFirst.topLeft() + QPoint(200, 300);
    input().moveTo(place);
    const auto process = startPick();
    ASSERT_TRUE(waitForTool(kFirst));
    input().press(Button::Left);
    input().moveTo(kSecond.center());
    input().release(Button::Left); // picks nothing
    input().moveTo(place);
    EXPECT_TRUE(waitForTool(kFirst));
    input().click(Button::Left);
    EXPECT_EQ(Program::finish(*process).out.trimmed(), colourAt(place));
}

TEST_F(Pick, ALaterPickTakesOver)
{
    ASSERT_TRUE(startAt("FIRST=1;SECOND=2"));
    m_before = m_desktop.screen();
    const auto first = startPick();
    ASSERT_TRUE(waitForTool(kFirst));
    const auto second = startPick();
    EXPECT_EQ(Program::finish(*first).exitCode, 4);
    ASSERT_TRUE(waitForTool(kFirst));
    input().click(Button::Left); // where the first one drew its cross
    EXPECT_EQ(Program::finish(*second).out.trimmed(), colourAt(kFirst.center()));
}
