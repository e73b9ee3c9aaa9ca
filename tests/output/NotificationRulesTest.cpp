#include "output/NotificationRules.h"

#include <QFontMetricsF>

#include <gtest/gtest.h>

namespace {

constexpr ZRSize kScreen{1440, 900};
constexpr ZRSize kNotice{345, 65};

}

TEST(NotificationRules, KeepToTheCornerOfAnotherScreen)
{
    const ZRSize other{800, 600};
    for (const ZRRect frame : {NotificationRules::standing(kScreen, kNotice),
             NotificationRules::belowNewOne(NotificationRules::standing(kScreen, kNotice), 65)}) {
        const ZRRect moved = NotificationRules::onOtherScreen(frame, kScreen, other);
        EXPECT_EQ(other.width - moved.maxX(), kScreen.width - frame.maxX());
        EXPECT_EQ(other.height - moved.maxY(), kScreen.height - frame.maxY());
    }
}

TEST(NotificationRules, MoveSlowlyAtBothEndsAndNeverBack)
{
    EXPECT_EQ(NotificationRules::eased(-1), 0);
    EXPECT_EQ(NotificationRules::eased(0.5), 0.5);
    EXPECT_EQ(NotificationRules::eased(7), 1);
    EXPECT_LT(NotificationRules::eased(0.1), 0.1);
    EXPECT_GT(NotificationRules::eased(0.9), 0.9);
    for (int i = 1; i <= 100; ++i)
        EXPECT_GT(NotificationRules::eased(i / 100.0), NotificationRules::eased((i - 1) / 100.0));
    EXPECT_EQ(NotificationRules::between({10, 0, 0, 8}, {0, 10, 20, 8}, 0.25), (ZRRect{7.5, 2.5, 5, 8}));
}

TEST(NotificationRules, CutLongTextsInTheMiddle)
{
    QFont font;
    font.setPixelSize(10);
    const QString path = QStringLiteral("Saved as /home/somebody/Pictures/Screenshot2024.png");
    EXPECT_EQ(NotificationRules::linesCutInMiddle(path, font, 800, 2), QStringList{path});
    EXPECT_TRUE(NotificationRules::linesCutInMiddle({}, font, 400, 2).isEmpty());
    for (const qsizetype length : {400, 5000, 1000000}) {
        SCOPED_TRACE(length);
        const QString text = path.leftJustified(length, QLatin1Char('x')) + QStringLiteral("end");
        const QStringList lines = NotificationRules::linesCutInMiddle(text, font, 278, 2);
        ASSERT_EQ(lines.size(), 2);
        EXPECT_TRUE(lines[0].startsWith(QStringLiteral("Saved as /home")));
        EXPECT_TRUE(lines[1].endsWith(QStringLiteral("xend")));
        EXPECT_EQ(lines.join(QString()).count(QChar(0x2026)), 1);
        for (const QString& line : lines) {
            EXPECT_LE(QFontMetricsF(font).horizontalAdvance(line), 278);
            EXPECT_GT(QFontMetricsF(font).horizontalAdvance(line), 200);
        }
    }
}
