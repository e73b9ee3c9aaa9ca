#include "editor/GraffitPainter.h"
#include "editor/ShapeRules.h"

#include <gtest/gtest.h>

namespace {

constexpr QSize kSize{400, 300};

QTransform space(double scale)
{
    return {scale, 0, 0, -scale, 0, double(kSize.height())};
}

QImage white()
{
    QImage image(kSize, QImage::Format_RGB32);
    image.fill(Qt::white);
    return image;
}

EntityRecord recordOf(const char* tool, const DragPoints& points, qint32 width)
{
    const ZRRect extent = ShapeRules::extentOf(points);
    return {extent, QLatin1String(tool), false, &points, width, Qt::red, false, extent, 7};
}

QImage painted(const EntityRecord& record, double scale = 1)
{
    QImage image = white();
    GraffitPainter(kSize, space(scale)).paint(image, record, image.rect());
    return image;
}

// The smallest rectangle around all pixels that are not white.
QRect inked(const QImage& image)
{
    QRect ink;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixel(x, y) != qRgb(255, 255, 255))
                ink |= QRect(x, y, 1, 1);
    return ink;
}

constexpr const char* kTools[] = {"square", "eillpse", "arrow", "customLine", "light", "line"};

}

TEST(GraffitPainter, StaysWithinThePixelsThatItNamesAndPaintsPartsThatMakeTheWhole)
{
    const DragPoints points{{30.3F, 40.1F}, {90, 20}, {150.7F, 130.2F}};
    for (const char* tool : kTools) {
        for (double scale : {1.0, 1.5, 2.0}) {
            SCOPED_TRACE(testing::Message() << tool << " at scale " << scale);
            EntityRecord record = recordOf(tool, points, 6);
            const QImage whole = painted(record, scale);
            record.focusOn = true; // is not to be seen
            GraffitPainter painter(kSize, space(scale));
            const QRect bounds = painter.pixelBounds(record);
            EXPECT_TRUE(bounds.contains(inked(whole)));
            EXPECT_TRUE(inked(whole).adjusted(-4, -4, 4, 4).contains(bounds)); // and not much more
            QImage parts = white();
            for (int y = 0; y < kSize.height(); y += 50)
                for (int x = 0; x < kSize.width(); x += 40)
                    painter.paint(parts, record, {x, y, 40, 50});
            EXPECT_EQ(parts, whole);
        }
    }
}

TEST(GraffitPainter, PutsTheShapeWhereItsPointsAre)
{
    struct Case {
        const char* tool;
        DragPoints points;
        qint32 width;
        double scale;
        QRect ink;
    };
    // Points count from the bottom, pixels from the top.
    const Case cases[] = {
        {"square", {{20, 30}, {60, 80}}, 4, 1, {18, 218, 44, 54}},
        {"square", {{20, 30}, {60, 80}}, 3, 2, {37, 137, 86, 106}},
        {"eillpse", {{20, 30}, {60, 80}}, 4, 1, {18, 218, 44, 54}},
        {"line", {{20, 30}, {60, 30}}, 4, 1, {18, 268, 44, 4}},
        {"customLine", {{20, 30}, {40, 30}, {60, 30}}, 4, 1, {18, 268, 44, 4}},
        {"customLine", {{20, 30}}, 4, 1, {18, 268, 4, 4}},
        {"light", {{20, 30}, {60, 30}}, 6, 2, {28, 228, 104, 24}}, // twice its width
        {"square", {{20, 30}, {20, 30}}, 4, 1, {}},
        {"light", {}, 4, 1, {}},
        {"text", {{20, 30}, {60, 80}}, 4, 1, {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.tool << " at scale " << c.scale);
        EXPECT_EQ(inked(painted(recordOf(c.tool, c.points, c.width), c.scale)), c.ink);
    }
}

TEST(GraffitPainter, ArrowTapersFromItsTailToItsHead)
{
    const DragPoints points{{20, 100}, {220, 100}};
    const QImage image = painted(recordOf("arrow", points, 6));
    const auto thickness = [&image](int x) { return inked(image.copy(x, 0, 1, image.height())).height(); };
    EXPECT_LE(thickness(25), 2);
    EXPECT_NEAR(thickness(110), 7, 1);  // half way to a base of 2 * 22 * sin 18 degrees
    EXPECT_NEAR(thickness(185), 24, 2); // near the head's barbs, 38 points long
    EXPECT_LE(thickness(219), 3);
    EXPECT_EQ(inked(image).right(), 220);
}

TEST(GraffitPainter, HighlighterIsEvenWhereItCrossesItself)
{
    const DragPoints points{{20, 50}, {120, 50}, {70, 50}, {70, 100}, {70, 10}, {100, 80}, {40, 20}};
    const QImage image = painted(recordOf("light", points, 8));
    const QRgb half = image.pixel(60, 300 - 50);
    EXPECT_NEAR(qGreen(half), 127, 1);
    EXPECT_EQ(qRed(half), 255);
    for (int y = 300 - 55; y < 300 - 45; ++y)
        for (int x = 22; x < 118; ++x)
            EXPECT_EQ(image.pixel(x, y), half) << x << ',' << y;
}

TEST(GraffitPainter, StrokeIsTheSameInOneGoAndPointByPointAndAnotherOneBeginsAnew)
{
    for (const char* tool : {"customLine", "light"}) {
        SCOPED_TRACE(tool);
        DragPoints points;
        QImage grown = white();
        GraffitPainter painter(kSize, space(1.5));
        for (int i = 0; i < 60; ++i) {
            points.push_back({float(50 + (i * 37) % 90), float(30 + (i * 53) % 130)});
            const EntityRecord record = recordOf(tool, points, 5);
            QRect changed = painter.grownPixels(record);
            EXPECT_EQ(changed.isEmpty(), i == 0);
            if (i == 0)
                changed = painter.pixelBounds(record);
            QImage next = white();
            painter.paint(next, record, next.rect());
            QPainter(&grown).drawImage(changed.topLeft(), next, changed);
        }
        EXPECT_EQ(grown, painted(recordOf(tool, points, 5), 1.5));

        DragPoints others = points;
        for (DragPoint& point : others)
            point.x += 100;
        EntityRecord another = recordOf(tool, others, 5);
        another.revision = 8;
        EXPECT_TRUE(painter.grownPixels(another).isEmpty());
        QImage image = white();
        painter.paint(image, another, image.rect());
        EXPECT_EQ(image, painted(another, 1.5));
    }
}
