#include "editor/ShapeRules.h"
#include "editor/ZRGaussianBlur.h"
#include "output/ImageWriter.h"
#include "settings/AppSettings.h"
#include "settings/UserDefaults.h"
#include "tests/editor/EditorTest.h"
#include "tests/editor/ExpectedMosaic.h"

#include <QFile>
#include <QTemporaryDir>

namespace {

constexpr ZRPoint kFrom{40, 150};
constexpr ZRPoint kTo{140, 80};

// Areas that hide, over noise. Pixels of the region, y down.
class Redaction : public EditorTest {
protected:
    explicit Redaction(double scale = 1)
        : EditorTest((QSizeF(400, 300) * scale).toSize(), scale)
        , m_store(m_folder.path(), AppSettings::AppBundleId(), AppSettings::AppOldBundleId())
    {
        UserDefaults::setStandardUserDefaults(&m_store);
    }
    ~Redaction() override { UserDefaults::setStandardUserDefaults(nullptr); }

    // Of the drag from kFrom to kTo.
    QRect area() const
    {
        const double s = m_frame->display().scale;
        return QRectF(40 * s, 50 * s, 100 * s, 70 * s).toRect();
    }
    QRect shownPixels() { return m_frame->display().localPixels(view().frame()); }
    QImage frozenThere() { return m_frame->image().copy(shownPixels()); }
    // Whether what would go out is as the mosaic's rule wants it, in the area and beside it.
    bool isMosaic(QRect hidden, int block)
    {
        return view().composed(shownPixels()) == expectedMosaic(frozenThere(), hidden, block);
    }

    QTemporaryDir m_folder;
    UserDefaults m_store;
};

// The same with secure mosaics of known random numbers, by the display's scale.
class SecureRedaction : public Redaction, public testing::WithParamInterface<int> {
protected:
    struct Area {
        const char* tool;
        ZRPoint from, to;
    };
    SecureRedaction()
        : Redaction(GetParam())
    {
        AppSettings::setMosaicSecure(true);
        view().newRandom = [] { return QRandomGenerator(5); };
    }

    // Pixels of the display below the mosaics.
    QRegion hiddenPixels(const std::vector<Area>& areas) const
    {
        QRegion pixels;
        for (const Area& area : areas)
            if (qstrcmp(area.tool, "blur") != 0)
                pixels += m_frame->display().localPixels(
                    ShapeRules::spanned(area.from, area.to).translated(kRegion.x, kRegion.y));
        return pixels;
    }
    QImage withAreas(const std::vector<Area>& areas)
    {
        for (const Area& area : areas)
            draw(area.tool, area.from, area.to);
        const QImage drawn = picture();
        while (m_manager.isCanRevoke())
            m_manager.undoDrawView();
        return drawn;
    }
    // What is written of the region where its mosaics hide a colour.
    QList<QByteArray> files(const std::vector<Area>& areas, Qt::GlobalColor secret)
    {
        const auto before = m_frame;
        QImage image = before->image().copy();
        for (const QRect& hidden : hiddenPixels(areas))
            QPainter(&image).fillRect(hidden, secret);
        m_frame = std::make_shared<Frame>(before->display(), image);
        view().setFrozenDisplay(m_frame);
        const QImage drawn = withAreas(areas);
        m_frame = before;
        view().setFrozenDisplay(m_frame);
        QList<QByteArray> bytes;
        for (const char* type : {".png", ".jpg"}) {
            QFile file(m_folder.filePath(QStringLiteral("picture")));
            EXPECT_TRUE(ImageWriter::write(file.fileName(), drawn, QLatin1String(type)).ok);
            EXPECT_TRUE(file.open(QIODevice::ReadOnly));
            bytes << file.readAll();
        }
        return bytes;
    }
};

INSTANTIATE_TEST_SUITE_P(Scales, SecureRedaction, testing::Values(1, 2));

}

TEST_F(Redaction, MosaicFollowsItsRuleAndTouchesNothingElse)
{
    for (const int width : {3, 6, 9}) {
        SCOPED_TRACE(width);
        m_manager.setLineWidth(width);
        draw("mosic", kFrom, kTo);
        EXPECT_TRUE(isMosaic(area(), width));
        click({90, 120}); // selects it: the width is only for others from now on
        m_manager.setLineWidth(2);
        EXPECT_TRUE(isMosaic(area(), width));
        m_manager.updateGraffitView(kRegion.translated(7, -12)); // another part of the frame is below it
        EXPECT_TRUE(isMosaic(area(), width));
        m_manager.updateGraffitView({20, 20, 330, 210}); // on the picture it stays
        EXPECT_TRUE(isMosaic(area().translated(27, 12), width));
        m_manager.updateGraffitView(kRegion);
        m_manager.clearFocusOnGraffitView();
        m_manager.revokeDrawView();
        EXPECT_EQ(picture(), untouched());
    }
}

TEST_F(Redaction, EndsAtTheRegionsEdge)
{
    struct Case {
        ZRPoint to;
        ZRRect bounds; // of a drag from 250, 50 and then to 200, 100
    };
    const Case cases[] = {{{360, 80}, {250, 50, 50, 30}}, {{280, -40}, {250, 0, 30, 50}},
        {{-30, 260}, {0, 50, 250, 150}}, {{300, 0}, {200, 50, 50, 50}}}; // the corner is not beyond
    for (const Case& c : cases) {
        SCOPED_TRACE(c.to.x);
        m_manager.updateGraffitID(QStringLiteral("mosic"));
        view().mouseDown(at({250, 50}));
        view().mouseDragged(at({260, 60}));
        view().mouseDragged(at(c.to));
        view().mouseDragged(at({200, 100})); // too late where the area has ended
        view().mouseUp(at({200, 100}));
        ASSERT_EQ(count(), 1U);
        EXPECT_EQ(records()[0].bounds, c.bounds);
        EXPECT_FALSE(records()[0].picture.isNull());
        m_manager.undoDrawView();
    }
}

TEST_F(Redaction, ClickEmptyAreaAndLevelZeroLeaveTheFrameAndSoDoesUndo)
{
    struct Case {
        int width;
        ZRPoint to;
        bool hides;
    };
    const Case cases[] = {
        {3, kFrom, false}, {3, {kFrom.x + 30, kFrom.y}, false}, {0, kTo, false}, {6, kTo, true}};
    for (const char* tool : {"mosic", "blur"}) {
        for (const Case& c : cases) {
            SCOPED_TRACE(testing::Message() << tool << " of " << c.width << " to " << c.to.x);
            m_manager.setLineWidth(c.width);
            draw(tool, kFrom, c.to);
            const QImage hidden = picture();
            EXPECT_EQ(hidden != untouched(), c.hides);
            m_manager.undoDrawView();
            EXPECT_EQ(picture(), untouched());
            m_manager.goForwardDrawView();
            EXPECT_EQ(picture(), hidden);
            m_manager.undoDrawView();
        }
    }
}

TEST_F(Redaction, LiesBelowWhatIsDrawnLater)
{
    draw("mosic", kFrom, kTo);
    m_manager.setLineWidth(4);
    draw("line", {30, 120}, {160, 120});
    EXPECT_EQ(picture().pixel(90, 80), qRgb(255, 0, 0));
    click({90, 100}); // comes to the front
    m_manager.clearFocusOnGraffitView();
    EXPECT_NE(picture().pixel(90, 80), qRgb(255, 0, 0));
    EXPECT_EQ(picture().pixel(155, 80), qRgb(255, 0, 0));
}

// In whatever order and beside whatever it was drawn.
TEST_P(SecureRedaction, FilesTellNothingOfWhatItHides)
{
    const Area mosaic{"mosic", kFrom, kTo};
    const struct {
        const char* what;
        std::vector<Area> areas;
        bool isSecure;
    } cases[] = {
        {"alone", {mosaic}, true},
        {"beside another", {mosaic, {"mosic", {200, 150}, {140, 80}}}, true},
        {"over another", {mosaic, {"mosic", {200, 60}, {100, 120}}}, true},
        {"below a blur", {mosaic, {"blur", {200, 60}, {100, 120}}}, true},
        {"above a blur", {{"blur", {200, 60}, {100, 120}}, mosaic}, true},
        {"an ordinary one", {mosaic}, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        AppSettings::setMosaicSecure(c.isSecure);
        const bool areAlike = files(c.areas, Qt::darkGreen) == files(c.areas, Qt::yellow);
        EXPECT_EQ(areAlike, c.isSecure);
        const QRegion hidden = hiddenPixels(c.areas).translated(-regionPixels().topLeft());
        const QImage frozen = frozenThere(), shown = withAreas(c.areas);
        for (const QRect& r : hidden)
            for (int y = r.top(); c.isSecure && y <= r.bottom(); ++y)
                for (int x = r.left(); x <= r.right(); ++x)
                    ASSERT_NE(shown.pixel(x, y), frozen.pixel(x, y)) << x << ',' << y;
    }
}

TEST_P(SecureRedaction, KeepsItsLookWhenItIsUndoneAndDoneAgain)
{
    const QImage one = withAreas({{"mosic", kFrom, kTo}});
    draw("mosic", kFrom, kTo);
    view().newRandom = [] { return QRandomGenerator(6); };
    m_manager.undoDrawView();
    m_manager.goForwardDrawView();
    EXPECT_EQ(picture(), one);
    m_manager.undoDrawView();
    EXPECT_NE(withAreas({{"mosic", kFrom, kTo}}), one);
}
