#include "editor/TextRules.h"

#include <QFontMetricsF>
#include <QTextBoundaryFinder>

#include <algorithm>

namespace TextRules {

namespace {

constexpr double kFieldX = 5; // of the field inside the box
constexpr double kFieldY = -3;
constexpr double kFieldNarrower = 10; // than the box
constexpr double kFieldLower = 4;
constexpr double kTextX = 2;      // of the text inside the field, which it begins at the top
constexpr double kBoxHigher = 16; // than the text
constexpr double kMinBoxWidth = 100;
constexpr double kMinWidth = 90;
constexpr double kMinWidthAfterDeletion = 95;
constexpr double kMargin = 5;
constexpr double kMarginThreshold = 10;

qsizetype commonStart(QStringView a, QStringView b)
{
    return std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first - a.begin();
}

qsizetype commonEnd(QStringView a, QStringView b)
{
    return std::mismatch(a.rbegin(), a.rend(), b.rbegin(), b.rend()).first - a.rbegin();
}

QString without(const QString& text, Range range)
{
    return QString(text).remove(range.location, range.length);
}

double widthOr(double minimum, double textWidth)
{
    return textWidth + kMarginThreshold > kMinWidth ? textWidth + kMargin : minimum;
}

}

Change changeBetween(const QString& before, Range selected, const QString& after)
{
    const QString start = before.left(selected.location);
    const QString end = before.mid(selected.location + selected.length);
    const qsizetype added = after.size() - start.size() - end.size();
    if (added >= 0 && after.startsWith(start) && after.endsWith(end))
        return {before, selected, after.mid(selected.location, added)};
    const qsizetype first = commonStart(before, after);
    const qsizetype last = commonEnd(QStringView(before).mid(first), QStringView(after).mid(first));
    return {before, {first, before.size() - first - last}, after.mid(first, after.size() - first - last)};
}

Range wordAt(const QString& text, qsizetype location)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Word, text);
    finder.setPosition(std::clamp<qsizetype>(location, 0, text.size()));
    if (!finder.isAtBoundary() || finder.position() == text.size())
        finder.toPreviousBoundary();
    const qsizetype start = std::max<qsizetype>(finder.position(), 0);
    const qsizetype end = finder.toNextBoundary();
    return {start, end > start ? end - start : 0};
}

double fieldWidth(const Change& change, const Measure& width)
{
    const auto& [before, range, replacement] = change;
    if (replacement.isEmpty())
        return widthOr(kMinWidthAfterDeletion, width(without(before, range)));
    if (range.length == 0)
        return widthOr(kMinWidth, width(before) + width(replacement));
    const double kept = width(without(before, {range.location, range.length - 1}));
    return std::max(kMinWidth, kept + width(replacement));
}

ZRSize measured(const QString& text, const QFont& font)
{
    const QFontMetricsF metrics(font);
    return {metrics.horizontalAdvance(text), metrics.height()};
}

ZRRect newBox(ZRPoint press, const QFont& font)
{
    const double height = measured(QStringLiteral("T"), font).height + kBoxHigher;
    return {press.x - kFieldX, press.y - height / 2, kMinBoxWidth, height};
}

ZRSize boxSize(const QString& text, const QFont& font)
{
    const ZRSize size = measured(text, font);
    return {std::max(kMinBoxWidth, boxWidth(size.width)), size.height + kBoxHigher};
}

ZRRect fieldRect(ZRRect box)
{
    return {box.x + kFieldX, box.y + kFieldY, box.width - kFieldNarrower, box.height - kFieldLower};
}

double boxWidth(double width)
{
    return width + kFieldNarrower;
}

ZRPoint textCorner(ZRRect box)
{
    const ZRRect field = fieldRect(box);
    return {field.x + kTextX, field.maxY()};
}

}
