#pragma once

#include <QString>
#include <QVariant>

#include <optional>

// How a stored value answers a read of another type. Values that do not convert give false, zero or nothing.
namespace ValueRules {

// Texts as they are, truth values as "1" and "0", numbers in digits; nothing for data and collections.
std::optional<QString> formatted(const QVariant& value);
// Numbers: not zero. Texts: "yes", "true" or a number that begins with a digit other than zero, as "Y", "t1",
// "07".
bool boolValue(const QVariant& value);
// Reals lose their fraction; texts give their leading number. Cut at the type's range.
qint64 integerValue(const QVariant& value);
int intValue(const QVariant& value);
double doubleValue(const QVariant& value);
// Of data alone.
QByteArray dataValue(const QVariant& value);

}
