#include "capture/ScreenShotBackView.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

namespace {

// The mask as it looks over white.
QImage picture(ScreenShotBackView& view)
{
    QImage image(view.size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    view.render(&image, {}, {}, QWidget::DrawChildren);
    return image;
}

bool isDimmed(const QImage& image, int x, int y)
{
    const int grey = qRed(image.pixel(x, y));
    return image.pixelColor(x, y) == QColor(grey, grey, grey) && qAbs(grey - 127) <= 1;
}

}

TEST(ScreenShotBackView, DimsWhatLiesOutsideTheRegionOnly)
{
    ScreenShotBackView view(nullptr);
    view.resize(200, 100);
    view.setSelectedRegionRect({20, 10, 60, 30}); // rows 60 to 89 from the top
    const QImage image = picture(view);
    EXPECT_EQ(image.pixelColor(20, 60), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(79, 89), QColor(Qt::white));
    EXPECT_TRUE(isDimmed(image, 19, 60));
    EXPECT_TRUE(isDimmed(image, 20, 59));
    EXPECT_TRUE(isDimmed(image, 80, 89));
    EXPECT_TRUE(isDimmed(image, 79, 90));
}

TEST(ScreenShotBackView, DrawsNoBorderAroundARegionWithoutWidth)
{
    ScreenShotBackView view(nullptr);
    view.resize(200, 100);
    view.setDrawRegionBorder(true);
    view.setSelectedRegionRect({20, 10, 0, 30});
    EXPECT_TRUE(isDimmed(picture(view), 20, 70));
    view.setSelectedRegionRect({20, 10, 60, 30});
    EXPECT_EQ(picture(view).pixel(50, 60), qRgb(64, 171, 250));
}

TEST(ScreenShotBackView, DrawsAPulledOverRegionLikeItsPositiveSelf)
{
    ScreenShotBackView view(nullptr);
    view.resize(200, 100);
    view.setSelectedRegionRect({80, 40, -60, -30});
    const QImage pulledOver = picture(view);
    view.updateSelectedRegionRect();
    EXPECT_EQ(view.regionRect(), (ZRRect{20, 10, 60, 30}));
    EXPECT_EQ(picture(view), pulledOver);
}
