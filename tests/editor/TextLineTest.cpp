#include "editor/TextLine.h"

#include <gtest/gtest.h>

namespace {

QFont font(int pixels)
{
    QFont font;
    font.setPixelSize(pixels);
    return font;
}

QImage painted(const TextLine& line, const QTransform& toPixels, ZRPoint corner)
{
    QImage image(300, 100, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    line.paint(painter, toPixels, corner, Qt::black);
    return image;
}

}

TEST(TextLine, PlacesAndLocationsLeadToEachOther)
{
    for (const QString& text : {QStringLiteral("words"), QString::fromUtf8("\u05e9\u05dc\u05d5\u05dd"),
             QString::fromUtf8("\u65e5\u672c"), QStringLiteral("A"), QString()}) {
        SCOPED_TRACE(text.toStdString());
        const TextLine line(text, font(20));
        for (qsizetype i = 0; i <= text.size(); ++i)
            EXPECT_EQ(line.locationAt(line.xOf(i)), i);
    }
}

TEST(TextLine, HebrewBeginsOnItsRight)
{
    const TextLine line(QString::fromUtf8("\u05e9\u05dc\u05d5\u05dd"), font(20));
    EXPECT_GT(line.xOf(0), line.xOf(4));
    const TextLine latin(QStringLiteral("abcd"), font(20));
    EXPECT_LT(latin.xOf(0), latin.xOf(4));
}

// The same pixels wherever it stands, for a text must not change while it is dragged.
TEST(TextLine, StandsOnWholePixelsWithoutColouredFringes)
{
    const TextLine line(QStringLiteral("Willow"), font(15));
    const QTransform up(1.5, 0, 0, -1.5, 0, 100);
    const QImage reference = painted(line, up, {10, 60});
    EXPECT_EQ(painted(line, up, {10.2, 60.1}), reference);
    const QImage moved = painted(line, up, {12, 58}); // 3 pixels to the right and down
    EXPECT_EQ(moved.copy(3, 3, 290, 90), reference.copy(0, 0, 290, 90));
    EXPECT_TRUE(reference.allGray());
    QImage blank = reference;
    blank.fill(Qt::white);
    EXPECT_NE(reference, blank);
}
