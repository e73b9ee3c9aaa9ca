#include "settings/ValueRules.h"

#include <QLocale>
#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

// The part of the text that reads as a number, from its beginning; empty when there is none.
QString leadingNumber(const QString& text, const QRegularExpression& number)
{
    return number
        .match(text, 0, QRegularExpression::NormalMatch, QRegularExpression::AnchorAtOffsetMatchOption)
        .captured(1);
}

bool isYes(const QString& text)
{
    static const QRegularExpression yes(QStringLiteral("^\\s*[+-]?0*[YyTt1-9]"));
    return yes.match(text).hasMatch();
}

qint64 wholeNumber(const QString& text)
{
    static const QRegularExpression number(QStringLiteral("\\s*([+-]?[0-9]+)"));
    const QString digits = leadingNumber(text, number);
    bool isInRange = false;
    const qint64 value = digits.toLongLong(&isInRange);
    if (isInRange || digits.isEmpty())
        return value;
    return digits.startsWith(QLatin1Char('-')) ? std::numeric_limits<qint64>::min()
                                               : std::numeric_limits<qint64>::max();
}

double realNumber(const QString& text)
{
    static const QRegularExpression number(
        QStringLiteral("\\s*([+-]?(?:[0-9]+\\.?[0-9]*|\\.[0-9]+)(?:[eE][+-]?[0-9]+)?)"));
    return leadingNumber(text, number).toDouble();
}

qint64 truncated(double value)
{
    constexpr double beyond = 9223372036854775808.0; // 2^63
    if (std::isnan(value))
        return 0;
    if (value >= beyond)
        return std::numeric_limits<qint64>::max();
    return value < -beyond ? std::numeric_limits<qint64>::min() : static_cast<qint64>(value);
}

}

std::optional<QString> ValueRules::formatted(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::QString:
        return value.toString();
    case QMetaType::Bool:
        return value.toBool() ? QStringLiteral("1") : QStringLiteral("0");
    case QMetaType::LongLong:
        return QString::number(value.toLongLong());
    case QMetaType::Double:
        return QString::number(value.toDouble(), 'g', QLocale::FloatingPointShortest);
    default:
        return std::nullopt;
    }
}

bool ValueRules::boolValue(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::QString:
        return isYes(value.toString());
    case QMetaType::Bool:
        return value.toBool();
    case QMetaType::LongLong:
        return value.toLongLong() != 0;
    case QMetaType::Double:
        return value.toDouble() != 0;
    default:
        return false;
    }
}

qint64 ValueRules::integerValue(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::QString:
        return wholeNumber(value.toString());
    case QMetaType::Bool:
        return value.toBool() ? 1 : 0;
    case QMetaType::LongLong:
        return value.toLongLong();
    case QMetaType::Double:
        return truncated(value.toDouble());
    default:
        return 0;
    }
}

int ValueRules::intValue(const QVariant& value)
{
    return static_cast<int>(std::clamp<qint64>(
        integerValue(value), std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

double ValueRules::doubleValue(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::QString:
        return realNumber(value.toString());
    case QMetaType::Bool:
        return value.toBool() ? 1 : 0;
    case QMetaType::LongLong:
        return static_cast<double>(value.toLongLong());
    case QMetaType::Double:
        return value.toDouble();
    default:
        return 0;
    }
}

QByteArray ValueRules::dataValue(const QVariant& value)
{
    return value.typeId() == QMetaType::QByteArray ? value.toByteArray() : QByteArray();
}
