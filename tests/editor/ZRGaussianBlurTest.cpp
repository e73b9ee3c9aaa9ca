#include "editor/ZRGaussianBlur.h"

#include "editor/GaussianBlur.h"
#include "editor/MosaicRules.h"
#include "tests/fakes/Noise.h"

#include <gtest/gtest.h>

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
    const QImage below = noiseImage({70, 50});
    const Case cases[] = {
        {"mosic", 3, 1, MosaicRules::transToMosaicImage(below, 3)},
        {"mosic", 6, 2, MosaicRules::transToMosaicImage(below, 12)},
        {"mosic", 3, 1.25, MosaicRules::transToMosaicImage(below, 4)},
        {"blur", 6, 1, gaussianBlurred(below, 6)},
        {"blur", 3, 1.5, gaussianBlurred(below, 4.5)},
        {"blur", 0, 2, below},
        {"mosic", 0, 2, below},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.id << " of " << c.lineWidth << " at scale " << c.scale);
        const auto shape = ZRBasicCustomView::createNewEntityWithGratiffitID(QLatin1String(c.id));
        shape->setLineWidth(c.lineWidth);
        EXPECT_EQ(dynamic_cast<const ZRGaussianBlur&>(*shape).coverOf(below, c.scale), c.expected);
    }
}
