#include "editor/EntityRecord.h"

#include <gtest/gtest.h>

TEST(EntityRecord, DictionaryHoldsItsSevenKeys)
{
    const DragPoints points{{1.5F, 2}, {3, 4.25F}};
    const EntityRecord record{
        {1, -2.5, 30, 40}, QStringLiteral("arrow"), true, &points, 6, Qt::green, true, {}};
    const QVariantMap dictionary = record.dictionary();
    EXPECT_EQ(dictionary.keys(), QStringList({QStringLiteral("EntityBounds"),
                                     QStringLiteral("EntityDragPoints"), QStringLiteral("EntityDrawColor"),
                                     QStringLiteral("EntityDrawLineWidth"), QStringLiteral("EntityFocusOn"),
                                     QStringLiteral("EntityIDName"), QStringLiteral("EntityNeedBorder")}));
    EXPECT_EQ(dictionary[QStringLiteral("EntityBounds")].toString(),
        QStringLiteral("1.000000:-2.500000:30.000000:40.000000"));
    const QVariantList list = dictionary[QStringLiteral("EntityDragPoints")].toList();
    ASSERT_EQ(list.size(), 2);
    EXPECT_EQ(list[1].toMap()[QStringLiteral("dragPointX")].toFloat(), 3);
    EXPECT_EQ(list[1].toMap()[QStringLiteral("dragPointY")].toFloat(), 4.25F);
}

TEST(EntityRecord, ReadsBackTheTextOfItsBounds)
{
    struct Case {
        const char* text;
        ZRRect expected;
    };
    const Case cases[] = {
        {"1.500000:-2.000000:30.000000:40.250000", {1.5, -2, 30, 40.25}},
        {"1:2", {1, 2, 0, 0}},
        {"a:2:b:4:5", {0, 2, 0, 4}},
        {"", {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(EntityRecord::boundsFromText(QLatin1String(c.text)), c.expected);
    }
    const ZRRect bounds{10.5, 20.25, -3, 1024};
    EXPECT_EQ(EntityRecord::boundsFromText(EntityRecord::boundsText(bounds)), bounds);
}
