#include "tests/desktop/ProgramTest.h"

namespace {

// Two alerts, of which one shows.
class Alert : public EachDesktopTest {
protected:
    Alert()
        : EachDesktopTest({1280, 800}, STAGED_PROGRAM)
    {
    }
    void SetUp() override
    {
        EachDesktopTest::SetUp();
        m_program.setEnvironment("STAGED_WINDOWS", "alert alert");
        ASSERT_TRUE(m_program.startResident());
        ASSERT_TRUE(waitForFocus("Staged alert"));
    }
};

}

LUMORA_ON_EACH_DESKTOP(Alert);

TEST_P(Alert, WaitsDuringACaptureAndIsBackAsItWas)
{
    for (const bool isSaved : {false, true}) {
        SCOPED_TRACE(isSaved);
        ASSERT_TRUE(openOverlay());
        if (isSaved) {
            EXPECT_TRUE(savesRegion({300, 200}, {1000, 700})); // across the alert
        } else {
            ASSERT_TRUE(cancelCapture());
        }
        ASSERT_TRUE(waitForFocus("Staged alert"));
        EXPECT_TRUE(samePixels(m_desktop.settledScreen(), m_before));
    }
    EXPECT_EQ(logCount("the alert was answered with 0"), 0);
    input().chord({Key::Escape});
    EXPECT_TRUE(waitUntil([this] { return logCount("the alert was answered with 0") == 1; }));
    ASSERT_TRUE(waitForFocus("Staged alert")) << "the one that waited";
    input().chord({Key::Return});
    EXPECT_TRUE(waitUntil([this] { return logCount("the alert was answered with 1") == 1; }));
    EXPECT_TRUE(openOverlay());
}
