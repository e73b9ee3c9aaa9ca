#include "tests/desktop/ProgramTest.h"

#include <QColor>

#include <random>

namespace {

// Two displays full of noise, each with a scale factor of its own.
class ColourKey : public ProgramTest {
protected:
    ColourKey()
        : ProgramTest({.size = {1440, 800}, .hasClients = false})
    {
    }
    testing::AssertionResult startAt(const char* scales)
    {
        return startOnDisplays(kDisplays[0], kDisplays[1], scales);
    }
    QString textOnClipboard() const { return QString::fromUtf8(clipboard("UTF8_STRING")); }
    // The colour of the key's press at a pixel; empty when the clipboard does not change.
    QString copiedAt(QPoint pixel)
    {
        const QString expected = QColor(m_before.pixel(pixel)).name();
        input().moveTo(pixel);
        input().chord({Key::C});
        waitUntil([&] { return textOnClipboard() == expected; });
        return textOnClipboard();
    }

    static constexpr QRect kDisplays[] = {{0, 0, 800, 800}, {800, 120, 640, 600}};
    static constexpr int kPositions = 50; // for each scale
    std::minstd_rand m_random{4};
};

QString colourOf(const QImage& screen, QPoint pixel)
{
    return QColor(screen.pixel(pixel)).name();
}

}

TEST_F(ColourKey, CopiesTheScreensPixelUnderThePointerAtEveryScale)
{
    for (const char* scales : {"FIRST=1;SECOND=1.5", "FIRST=2;SECOND=1.25"}) {
        ASSERT_TRUE(startAt(scales));
        for (const QRect& display : kDisplays) {
            input().moveTo(display.topRight() + QPoint(-30, 40));
            ASSERT_TRUE(openOverlay(display));
            for (int i = 0; i < kPositions; ++i) {
                const QPoint pixel = display.topLeft() + QPoint(int(m_random() % unsigned(display.width())),
                                                             int(m_random() % unsigned(display.height())));
                ASSERT_EQ(copiedAt(pixel), colourOf(m_before, pixel))
                    << pixel.x() << ',' << pixel.y() << ", scales " << scales;
            }
            for (const QPoint corner :
                {display.topLeft(), display.topRight(), display.bottomLeft(), display.bottomRight()})
                EXPECT_EQ(copiedAt(corner), colourOf(m_before, corner)) << corner.x() << ',' << corner.y();
            ASSERT_TRUE(cancelCapture());
        }
        EXPECT_EQ(m_program.quitResident(), 0);
    }
}

TEST_F(ColourKey, LeavesTheCaptureGoingAndMeansNothingOnAFixedRegion)
{
    ASSERT_TRUE(startAt("FIRST=1;SECOND=1"));
    input().moveTo({600, 40});
    ASSERT_TRUE(openOverlay(kDisplays[0]));
    const QPoint first(300, 200);
    EXPECT_EQ(copiedAt(first), colourOf(m_before, first));
    input().drag({100, 100}, {300, 250});
    input().moveTo({150, 160});
    input().chord({Key::C});
    EXPECT_TRUE(saves({100, 100, 200, 150}));
    EXPECT_EQ(textOnClipboard(), colourOf(m_before, first));
}
