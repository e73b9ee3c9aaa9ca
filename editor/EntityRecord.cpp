#include "editor/EntityRecord.h"

#include <QStringList>

#include <array>

namespace {

QVariantList pointDictionaries(const DragPoints* points)
{
    QVariantList list;
    if (!points)
        return list;
    for (const DragPoint p : *points)
        list.append(QVariantMap{{QStringLiteral("dragPointX"), p.x}, {QStringLiteral("dragPointY"), p.y}});
    return list;
}

}

QVariantMap EntityRecord::dictionary() const
{
    return {
        {QStringLiteral("EntityBounds"), boundsText(bounds)},
        {QStringLiteral("EntityIDName"), idName},
        {QStringLiteral("EntityFocusOn"), focusOn},
        {QStringLiteral("EntityDragPoints"), pointDictionaries(dragPoints)},
        {QStringLiteral("EntityDrawLineWidth"), drawLineWidth},
        {QStringLiteral("EntityDrawColor"), drawColor},
        {QStringLiteral("EntityNeedBorder"), needBorder},
    };
}

QString EntityRecord::boundsText(ZRRect bounds)
{
    return QString::asprintf("%f:%f:%f:%f", bounds.x, bounds.y, bounds.width, bounds.height);
}

ZRRect EntityRecord::boundsFromText(const QString& text)
{
    const QStringList items = text.split(QLatin1Char(':'));
    std::array<float, 4> values{};
    for (qsizetype i = 0; i < qMin<qsizetype>(items.size(), 4); ++i)
        values[size_t(i)] = items[i].toFloat();
    return {values[0], values[1], values[2], values[3]};
}
