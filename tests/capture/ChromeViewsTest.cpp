#include "capture/MagnifierArt.h"
#include "capture/RegionSizeView.h"
#include "capture/ZRMagnifierView.h"
#include "capture/ZRScreenshotCursorView.h"
#include "tests/fakes/FakeDisplays.h"

#include <QPainter>

#include <gtest/gtest.h>

namespace {

const DisplayRecord kDisplay = FakeDisplays::display(1, {0, 0, 800, 600}, 1);

// What the layer draws over grey.
QImage picture(ChromeLayer& layer)
{
    QImage image(layer.size(), QImage::Format_RGB32);
    image.fill(Qt::gray);
    layer.render(&image, {}, {}, QWidget::DrawChildren);
    return image;
}

// The pixels that differ between two pictures.
QRegion changed(const QImage& a, const QImage& b)
{
    QRegion region;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            if (a.pixel(x, y) != b.pixel(x, y))
                region += QRect(x, y, 1, 1);
    return region;
}

template <class Layer>
Layer& covering(QWidget& window, Layer* layer)
{
    window.resize(800, 600);
    layer->coverDisplay(kDisplay);
    return *layer;
}

}

TEST(RegionSizeView, ShowsWhereAndHowLargeTheRegionIs)
{
    QWidget window;
    RegionSizeView& view = covering(window, new RegionSizeView(&window));
    EXPECT_TRUE(view.text().isEmpty());
    EXPECT_TRUE(view.touchedPoints().isEmpty());
    view.updateRegionSzie({100, 50, 30, -40});
    EXPECT_EQ(view.text(), QStringLiteral("30x40"));
    EXPECT_EQ(view.labelRect().origin(), (ZRPoint{100, 55}));
    view.updateRegionSzie({100, 50, 0, 40});
    EXPECT_EQ(view.text(), QStringLiteral("0x40")) << "one of the two is enough";
    view.clear();
    EXPECT_TRUE(view.text().isEmpty());
}

TEST(ChromeLayer, DrawsOnNothingBesideWhatItSaysItTouches)
{
    QWidget window;
    auto& size = covering(window, new RegionSizeView(&window));
    auto& cross = covering(window, new ZRScreenshotCursorView(&window));
    auto& magnifier = covering(window, ZRMagnifierView::loadForNib(&window));
    for (const ZRPoint p : {ZRPoint{100, 400}, ZRPoint{799, 1}, ZRPoint{0, 600}}) {
        SCOPED_TRACE(testing::Message() << p.x << ',' << p.y);
        size.updateRegionSzie({p.x, p.y, 60, 60});
        cross.updateCrossLocation(p);
        cross.showCross();
        magnifier.showMagnifierWithContent(QImage(32, 32, QImage::Format_RGB32), p, {}, QColor(Qt::red));
        for (ChromeLayer* layer : {static_cast<ChromeLayer*>(&size), static_cast<ChromeLayer*>(&cross),
                 static_cast<ChromeLayer*>(&magnifier)}) {
            QImage plain(layer->size(), QImage::Format_RGB32);
            plain.fill(Qt::gray);
            const QRegion drawn = changed(picture(*layer), plain);
            EXPECT_FALSE(drawn.isEmpty());
            EXPECT_TRUE(drawn.subtracted(layer->touchedPoints()).isEmpty());
        }
    }
    cross.hideCross();
    magnifier.hideMagnifierView();
    EXPECT_TRUE((cross.touchedPoints() + magnifier.touchedPoints()).isEmpty());
}

TEST(ZRMagnifierView, SaysWhatEachOfItsThreeUsersNeeds)
{
    QWidget window;
    auto& view = covering(window, ZRMagnifierView::loadForNib(&window));
    const QImage content(32, 32, QImage::Format_RGB32);
    const QColor colour(50, 166, 255);
    EXPECT_FALSE(view.isShown());
    view.showMagnifierWithContent(content, {12.7, 303.9}, {}, colour);
    EXPECT_TRUE(view.isShown());
    EXPECT_EQ(view.pixelColorValueText(), QStringLiteral("12x303"));
    EXPECT_EQ(view.locationText(), QStringLiteral("#32a6ff"));
    EXPECT_EQ(view.magnifierRect(), (ZRRect{22.7, 303.9 - MagnifierArt::kSize.height - 15,
                                        MagnifierArt::kSize.width, MagnifierArt::kSize.height}));
    view.showMagnifierWithContent(content, {13, 300}, colour);
    EXPECT_EQ(view.pixelColorValueText(), QStringLiteral("13x300"));
    EXPECT_EQ(view.locationText(), QStringLiteral("#32a6ff"));
    view.showMagnifierWithContent(content, {13, 300}, ZRSize{30, 40});
    EXPECT_EQ(view.pixelColorValueText(), QStringLiteral("30x40"));
    EXPECT_TRUE(view.locationText().isEmpty());
    view.showMagnifierWithContent(content, {13, 300}, {}, std::nullopt);
    EXPECT_TRUE(view.locationText().isEmpty()) << "no colour can be had";
    view.hideMagnifierView();
    EXPECT_FALSE(view.isShown());
}

TEST(ZRMagnifierView, FramesThePixelAndLeavesItsColour)
{
    QWidget window;
    auto& view = covering(window, ZRMagnifierView::loadForNib(&window));
    QImage content(32, 32, QImage::Format_RGB32);
    content.fill(Qt::darkGreen);
    content.setPixel(16, 16, qRgb(250, 30, 200));
    view.showMagnifierWithContent(content, {100, 400}, {}, QColor(Qt::red));
    const QImage image = picture(view);
    const int side = MagnifierLens::diameter(32);
    const QRect cell = MagnifierLens::middleCell(32).translated(
        QPoint(110, 215) + MagnifierArt::lensCorner(side, 1)); // the magnifier's corner from the top
    for (const QPoint inside : {cell.topLeft(), cell.bottomRight()})
        EXPECT_EQ(image.pixelColor(inside), QColor(250, 30, 200));
    EXPECT_EQ(image.pixelColor(cell.topLeft() - QPoint(1, 1)), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(cell.bottomRight() + QPoint(1, 1)), QColor(Qt::white));
}

TEST(ZRMagnifierView, TicksACopiedColourUntilThePointerMoves)
{
    QWidget window;
    auto& view = covering(window, ZRMagnifierView::loadForNib(&window));
    const auto show = [&] {
        view.showMagnifierWithContent(
            QImage(32, 32, QImage::Format_RGB32), {100, 400}, {}, QColor(50, 166, 255));
        return picture(view);
    };
    const QImage before = show();
    view.showColourCopied();
    EXPECT_NE(picture(view), before);
    EXPECT_EQ(show(), before);
}

TEST(ZRScreenshotCursorView, DrawsLinesUnlessItHasAnImageOfItsOwn)
{
    QWidget window;
    auto& view = covering(window, new ZRScreenshotCursorView(&window));
    view.updateCrossLocation({300, 400}); // the pixel 300,200 from the top
    EXPECT_FALSE(view.isCrossShown());
    view.showCross();
    const QColor blue(50, 166, 255);
    EXPECT_EQ(picture(view).pixelColor(5, 199), blue);
    EXPECT_EQ(picture(view).pixelColor(5, 200), blue);
    EXPECT_EQ(picture(view).pixelColor(299, 590), blue);
    EXPECT_NE(picture(view).pixelColor(5, 201), blue);
    view.setLineColor(QColor(Qt::red));
    EXPECT_EQ(picture(view).pixelColor(5, 199), QColor(Qt::red));
    QPixmap image(9, 9);
    image.fill(Qt::yellow);
    view.setCrosimage(image);
    EXPECT_TRUE(view.hideLine());
    EXPECT_EQ(view.touchedPoints(), QRegion(295, 195, 9, 9));
    EXPECT_EQ(picture(view).pixelColor(295, 195), QColor(Qt::yellow));
    view.setHideLine(false);
    EXPECT_EQ(picture(view).pixelColor(5, 199), QColor(Qt::red));
}

TEST(View, TellsTheColourOfWhatItDraws)
{
    QWidget window;
    auto& view = covering(window, new ZRScreenshotCursorView(&window));
    view.updateCrossLocation({300, 400});
    view.showCross();
    EXPECT_EQ(view.getPixlColorAtLocation({5, 400}), QColor(50, 166, 255));
    EXPECT_EQ(view.getPixlColorAtLocation({5, 300})->alpha(), 0);
    EXPECT_EQ(view.getPixlColorAtLocation({-1, 300}), std::nullopt);
    EXPECT_EQ(view.getPixlColorAtLocation({5, 601}), std::nullopt);
}
