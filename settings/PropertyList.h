#pragma once

#include <QByteArray>
#include <QString>
#include <QVariant>

#include <optional>

// Property lists as values: QString, bool, qint64, double, QByteArray, QDateTime, QVariantList, QVariantMap.
namespace PropertyList {

constexpr qsizetype kLargest = 16'777'216; // bytes
constexpr int kDeepest = 64;               // lists within lists

// From either form, XML or binary. Empty, and a reason, for anything else, what is cut short, larger than
// kLargest or deeper than kDeepest.
std::optional<QVariant> parsed(const QByteArray& bytes, QString* reason);
// The same for a list whose outermost value is a dictionary.
std::optional<QVariantMap> parsedDictionary(const QByteArray& bytes, QString* reason);

// Empty when the value cannot be held.
QByteArray xml(const QVariant& value);
QByteArray binary(const QVariant& value);

// The value as it reads back after being written: whole numbers as qint64, others as double, lists of texts
// as lists; what no property list holds, and characters that XML cannot carry, are left out. Invalid when
// nothing remains or it lies deeper than kDeepest.
QVariant normalized(const QVariant& value);

}
