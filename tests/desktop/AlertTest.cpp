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
        m_program.setEnvironment(QStringLiteral("STAGED_WINDOWS"), QStringLiteral("alert alert"));
        ASSERT_TRUE(m_program.startResident());
        ASSERT_TRUE(waitForAlert());
    }
    // An alert has the keyboard's focus.
    bool waitForAlert() const
    {
        return waitUntil([this] {
            return m_desktop.server().title(m_desktop.server().focusedWindow()) ==
                   QLatin1String("Staged alert");
        });
    }
};

}

LUMORA_ON_EACH_DESKTOP(Alert);

TEST_P(Alert, WaitsDuringACaptureAndIsBackAsItWas)
{
    for (const bool isSaved : {false, true}) {
        SCOPED_TRACE(isSaved);
        ASSERT_TRUE(openOverlay());
        const QImage before = m_before;
        const QPoint from(300, 200), to(1000, 700); // across the alert
        if (isSaved) {
            EXPECT_TRUE(samePixels(savedRegion(from, to), before.copy(spannedBy(from, to))));
        } else {
            m_desktop.input().chord({Key::Escape});
            ASSERT_TRUE(waitForRest());
        }
        ASSERT_TRUE(waitForAlert());
        EXPECT_TRUE(samePixels(m_desktop.settledScreen(), before));
    }
    EXPECT_EQ(logCount("the alert was answered with 0"), 0);
    m_desktop.input().chord({Key::Escape});
    EXPECT_TRUE(waitUntil([this] { return logCount("the alert was answered with 0") == 1; }));
    ASSERT_TRUE(waitForAlert()) << "the one that waited";
    m_desktop.input().chord({Key::Return});
    EXPECT_TRUE(waitUntil([this] { return logCount("the alert was answered with 1") == 1; }));
    EXPECT_TRUE(openOverlay());
}
