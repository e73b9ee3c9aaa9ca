#include "settings/SettingsKeys.h"
#include "tests/desktop/AnnotatingTest.h"

#include <utility>

namespace {

constexpr QPoint kFrom(300, 200);
constexpr QPoint kTo(550, 360);

// Whether every pixel of the area is its block's first one and the last row and column are as they were.
testing::AssertionResult isMosaic(const QImage& picture, const QImage& frozen, QRect area, int block)
{
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            const QPoint p = QPoint(x, y) - area.topLeft();
            const bool isLast = x == area.right() || y == area.bottom();
            const QPoint corner = area.topLeft() + QPoint(p.x() - p.x() % block, p.y() - p.y() % block);
            if (picture.pixel(x, y) != frozen.pixel(isLast ? QPoint(x, y) : corner))
                return testing::AssertionFailure() << "pixel " << x << ',' << y;
        }
    }
    return testing::AssertionSuccess();
}

class Redaction : public AnnotatingTest {
protected:
    // The tool, as a mosaic or as a blur, in a width of points.
    void take(bool isBlur, int points)
    {
        arm(kBlur);
        if (std::exchange(m_isBlur, isBlur) != isBlur)
            clickAt(toolbars().mosaicSwitch(kBlur));
        setWidth(points / 3 - 1);
    }
    // Whether the file is what the overlay shows, and beside the area the frame.
    testing::AssertionResult isSaved(QRect area, QImage* file)
    {
        clickAt(kFrom - QPoint(100, 60)); // selects nothing and draws nothing
        const QImage overlay = screen();
        *file = saved();
        if (const auto same = samePixels(file->copy(inside()), overlay.copy(inside())); !same)
            return same;
        QImage beside = *file;
        put(beside, m_before, area);
        return samePixels(beside, m_before);
    }
    const QRect m_area = spannedBy(kFrom, kTo);
    bool m_isBlur = false;
};

class SecureRedaction : public Redaction {
protected:
    void SetUp() override
    {
        m_program.writeSettings({{SettingsKeys::kMosaicSecure, true}});
        Redaction::SetUp();
    }
    // Whether the area is made of blocks that tell nothing of what was there, up to its edges.
    testing::AssertionResult isHidden(const QImage& picture) const
    {
        const int block = 6 * scale();
        if (picture.size() != m_before.size() || isMosaic(picture, m_before, m_area, block))
            return testing::AssertionFailure() << "a picture of what was there, or none";
        // The rule leaves a last row and column out; here they are beside the area.
        return isMosaic(picture, picture, m_area.adjusted(0, 0, 1, 1), block);
    }
};

}

LUMORA_ON_EACH_DESKTOP(Redaction);
LUMORA_ON_EACH_DESKTOP(SecureRedaction);

TEST_P(Redaction, MosaicInTheFileFollowsItsRule)
{
    for (const int points : {3, 6, 9}) {
        SCOPED_TRACE(points);
        take(false, points);
        drag(kFrom, kTo);
        EXPECT_TRUE(isMosaic(screen(), m_before, m_area, points * scale()));
        if (points < 9)
            undo();
    }
    QImage file;
    EXPECT_TRUE(isSaved(m_area, &file));
    EXPECT_TRUE(isMosaic(file, m_before, m_area, 9 * scale()));
}

TEST_P(Redaction, BlurInTheFileIsTheOverlays)
{
    QImage last = m_before;
    for (const int points : {3, 6, 9}) {
        SCOPED_TRACE(points);
        take(true, points);
        drag(kFrom, kTo);
        const QImage blurred = screen();
        EXPECT_TRUE(m_area.contains(changed(blurred, m_before)));
        EXPECT_NE(blurred, last);
        last = blurred;
        if (points < 9)
            undo();
    }
    QImage file;
    EXPECT_TRUE(isSaved(m_area, &file));
    EXPECT_NE(file, m_before);
}

TEST_P(Redaction, DragOutOfTheRegionEndsTheAreaThere)
{
    take(false, 6);
    const QPoint from(1000, 450);
    input().moveTo(from);
    input().press(Button::Left);
    input().moveTo({1250, 600}); // beyond the corner at once
    input().release(Button::Left);
    const QRect area = QRect(from, kRegion.bottomRight());
    const QImage overlay = screen();
    const QRect shown = area & inside();
    EXPECT_TRUE(area.contains(changed(overlay, m_before)));
    const QImage file = saved();
    EXPECT_TRUE(isMosaic(file, m_before, area, 6 * scale()));
    EXPECT_TRUE(samePixels(file.copy(shown), overlay.copy(shown)));
}

TEST_P(Redaction, FinishedAreaIsSelectedButStaysWhereItIs)
{
    take(false, 6);
    drag(kFrom, kTo);
    const QImage before = screen();
    drag({400, 280}, {500, 400});
    const QImage selected = screen();
    const QRect marked = m_area.adjusted(-6, -6, 6, 6);
    EXPECT_TRUE(marked.contains(changed(selected, before)));
    EXPECT_NE(selected, before);
    input().chord({Key::BackSpace});
    EXPECT_TRUE(samePixels(screen(), m_before));
}

TEST_P(Redaction, MovedRegionHidesWhatIsBelowNow)
{
    take(false, 6);
    drag(kFrom, kTo);
    arm(kNone);
    const QPoint by(24, 30);
    drag({800, 480}, QPoint(800, 480) + by);
    EXPECT_TRUE(isMosaic(screen(), m_before, m_area.translated(by), 6 * scale()));
}

TEST_P(SecureRedaction, LeavesNoPixelOfTheAreaInTheFileNorInWhatIsKeptToOpenAgain)
{
    const QDir journal(m_desktop.cacheFolder() + QStringLiteral("/com.Lumora.Screenshot/journal"));
    const auto kept = [&journal] {
        const QStringList pictures = journal.entryList({QStringLiteral("*.png")}, QDir::Files);
        return pictures.size() == 1 ? QImage(journal.filePath(pictures.first())) : QImage();
    };
    ASSERT_TRUE(waitUntil([&] { return samePixels(kept(), m_before); })) << "the region alone";
    take(false, 6);
    drag(kFrom, kTo);
    EXPECT_TRUE(waitUntil([&] { return isHidden(kept()); }));
    EXPECT_EQ(journal.entryList(QDir::Files | QDir::Hidden).size(), 2) << "a record and this picture";
    QImage beside = kept();
    put(beside, m_before, m_area);
    EXPECT_TRUE(samePixels(beside, m_before));
    EXPECT_TRUE(samePixels(kept().copy(m_area), screen().copy(m_area)));
    QImage file;
    EXPECT_TRUE(isSaved(m_area, &file));
    EXPECT_TRUE(isHidden(file));
}
