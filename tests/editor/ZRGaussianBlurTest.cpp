#include "editor/ZRGaussianBlur.h"

#include "editor/GaussianBlur.h"
#include "editor/MosaicRules.h"

#include <gtest/gtest.h>

namespace {

// Over 10, 10 to 60, 40.
std::unique_ptr<ZRBasicCustomView> drawn(const char* id)
{
    auto area = ZRBasicCustomView::createNewEntityWithGratiffitID(QLatin1String(id));
    area->mouseDown({10, 40});
    area->mouseDragged({30, 30});
    area->mouseDragged({60, 10});
    area->setIsDrawDone();
    return area;
}

QImage stripes()
{
    QImage image(70, 50, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, qRgb(x * 3, y * 5, (x + y) % 5 * 50));
    }
    return image;
}

}

TEST(ZRGaussianBlur, HasABorderWhileItIsDrawnOrSelected)
{
    const auto area = ZRBasicCustomView::createNewEntityWithGratiffitID(QStringLiteral("blur"));
    EXPECT_TRUE(area->record().needBorder);
    area->setIsDrawDone();
    EXPECT_FALSE(area->record().needBorder);
    area->registerFocusOn();
    EXPECT_TRUE(area->record().needBorder);
}

TEST(ZRGaussianBlur, IsCoveredAsItsToolSaysInPixels)
{
    struct Case {
        const char* id;
        qint32 lineWidth;
        double scale;
        QImage expected;
    };
    const Case cases[] = {
        {"mosic", 3, 1, MosaicRules::transToMosaicImage(stripes(), 3)},
        {"mosic", 6, 2, MosaicRules::transToMosaicImage(stripes(), 12)},
        {"mosic", 3, 1.25, MosaicRules::transToMosaicImage(stripes(), 4)},
        {"blur", 6, 1, gaussianBlurred(stripes(), 6)},
        {"blur", 3, 1.5, gaussianBlurred(stripes(), 4.5)},
        {"blur", 0, 2, stripes()},
        {"mosic", 0, 2, stripes()},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.id << " of " << c.lineWidth << " at scale " << c.scale);
        const auto shape = drawn(c.id);
        const auto& area = dynamic_cast<const ZRGaussianBlur&>(*shape);
        shape->setLineWidth(c.lineWidth);
        EXPECT_TRUE(area.isMosic()); // whatever the tool
        EXPECT_EQ(area.coverOf(stripes(), c.scale), c.expected);
    }
}
