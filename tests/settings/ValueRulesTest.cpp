#include "settings/ValueRules.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

TEST(ValueRules, ConvertEachTypeToEachOther)
{
    const qint64 largest = std::numeric_limits<qint64>::max();
    const struct {
        QVariant value;
        std::optional<QString> text;
        bool truth;
        qint64 whole;
        int single;
        double real;
    } cases[] = {
        {QVariant(), std::nullopt, false, 0, 0, 0},
        {true, QStringLiteral("1"), true, 1, 1, 1},
        {false, QStringLiteral("0"), false, 0, 0, 0},
        {qint64(-3), QStringLiteral("-3"), true, -3, -3, -3},
        {qint64(5000000000), QStringLiteral("5000000000"), true, 5000000000, 2147483647, 5e9},
        {-2.75, QStringLiteral("-2.75"), true, -2, -2, -2.75},
        {1e30, QStringLiteral("1e+30"), true, largest, 2147483647, 1e30},
        {-HUGE_VAL, QStringLiteral("-inf"), true, std::numeric_limits<qint64>::min(), -2147483647 - 1,
            -HUGE_VAL},
        {QStringLiteral("YES"), QStringLiteral("YES"), true, 0, 0, 0},
        {QStringLiteral("true"), QStringLiteral("true"), true, 0, 0, 0},
        {QStringLiteral("no"), QStringLiteral("no"), false, 0, 0, 0},
        {QStringLiteral(" +07 "), QStringLiteral(" +07 "), true, 7, 7, 7},
        {QStringLiteral("0.5x"), QStringLiteral("0.5x"), false, 0, 0, 0.5},
        {QStringLiteral("16 or so"), QStringLiteral("16 or so"), true, 16, 16, 16},
        {QStringLiteral("99999999999999999999"), QStringLiteral("99999999999999999999"), true, largest,
            2147483647, 1e20},
        {QByteArray("1"), std::nullopt, false, 0, 0, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text.value_or(QStringLiteral("no text")).toStdString());
        EXPECT_EQ(ValueRules::formatted(c.value), c.text);
        EXPECT_EQ(ValueRules::boolValue(c.value), c.truth);
        EXPECT_EQ(ValueRules::integerValue(c.value), c.whole);
        EXPECT_EQ(ValueRules::intValue(c.value), c.single);
        EXPECT_DOUBLE_EQ(ValueRules::doubleValue(c.value), c.real);
    }
}
