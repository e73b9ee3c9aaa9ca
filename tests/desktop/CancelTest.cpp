#include "tests/desktop/KeyboardTest.h"

namespace {

class Cancel : public KeyboardTest {
protected:
    // The window that had the keyboard has it, alone, and got nothing in the meantime.
    void expectKeyboardIsBack()
    {
        EXPECT_TRUE(waitUntil([this] { return m_recorder->hasKeyboard(); }));
        EXPECT_TRUE(waitUntil([this] { return !server().isKeyboardTaken(); }));
        type(1);
        EXPECT_EQ(m_recorder->take(), typed(1));
    }
};

} // namespace

LUMORA_ON_EACH_DESKTOP(Cancel);

TEST_P(Cancel, LeavesNoWindowNoFileAndTheKeyboardWhereItWas)
{
    struct Case {
        const char* way;
        std::function<void(Input&, Program&)> cancel;
    };
    const Case cases[] = {
        {"Escape", [](Input& input, Program&) { input.chord({Key::Escape}); }},
        {"right button", [](Input& input, Program&) { input.click(Button::Right); }},
        {"verb", [](Input&, Program& program) { EXPECT_TRUE(program.answers()); }},
        {"Escape in mid-drag",
            [](Input& input, Program&) {
                input.moveTo({100, 100});
                input.press(Button::Left);
                input.moveTo({300, 250});
                input.chord({Key::Escape});
                input.release(Button::Left);
            }},
    };
    for (const Case& c : cases) {
        for (const bool hasRegion : {false, true}) {
            SCOPED_TRACE(testing::Message() << c.way << (hasRegion ? " with a region" : ""));
            const auto region = startRegion();
            ASSERT_TRUE(region);
            if (hasRegion)
                input().drag({200, 150}, {600, 500});
            c.cancel(input(), m_program);
            const Answer answer = Program::finish(*region);
            EXPECT_EQ(answer.exitCode, 4);
            EXPECT_EQ(answer.out, QString());
            EXPECT_TRUE(waitForRest());
            expectKeyboardIsBack();
            EXPECT_TRUE(waitUntil([this] { return m_desktop.screen() == m_before; }));
        }
    }
    EXPECT_TRUE(Program::allFiles(m_program.saveFolder()).isEmpty());
}

TEST_P(Cancel, HeldEscapeReachesNobodyElse)
{
    ASSERT_TRUE(openOverlay());
    m_recorder->take(); // the hot key's modifier went down before the hot key did
    input().press(Key::Escape);
    ASSERT_TRUE(m_program.waitForNoOverlay());
    QThread::msleep(1200); // some fifteen repeats
    input().release(Key::Escape);
    expectKeyboardIsBack();
}

TEST_P(Cancel, KilledProgramFreesTheKeyboardAndStartsAgain)
{
    const auto region = startRegion();
    ASSERT_TRUE(region);
    input().drag({200, 150}, {600, 500});
    m_program.killResident();
    EXPECT_EQ(Program::finish(*region).exitCode, 1);
    EXPECT_EQ(m_program.overlay(), XCB_NONE);
    EXPECT_FALSE(server().isKeyboardTaken());
    EXPECT_EQ(m_program.run("cancel").exitCode, 3);

    ASSERT_TRUE(m_program.startResident());
    ASSERT_TRUE(openOverlay());
    EXPECT_TRUE(savesRegion({5, 7}, {60, 90}));
}
