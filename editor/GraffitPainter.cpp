#include "editor/GraffitPainter.h"

#include "editor/ShapeRules.h"
#include "editor/TextLine.h"

#include <QPainterPath>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr double kHighlighterAlpha = 0.5;
constexpr double kArrowOutline = 1; // points

bool isRectangular(const EntityRecord& record)
{
    return record.idName == QLatin1String("square") || record.idName == QLatin1String("eillpse");
}

bool isArea(const EntityRecord& record)
{
    return record.idName == QLatin1String("mosic") || record.idName == QLatin1String("blur");
}

bool isHighlighter(const EntityRecord& record)
{
    return record.idName == QLatin1String("light");
}

bool isStroke(const EntityRecord& record)
{
    return record.idName == QLatin1String("customLine") || isHighlighter(record);
}

// What a click left draws nothing.
bool isVisible(const EntityRecord& record)
{
    if (record.text)
        return !record.text->isEmpty();
    if (isArea(record))
        return !record.picture.isNull();
    if (isRectangular(record))
        return record.bounds.width != 0 || record.bounds.height != 0;
    return record.hasPoints();
}

double strokeWidth(const EntityRecord& record)
{
    return isHighlighter(record) ? 2.0 * record.drawLineWidth : record.drawLineWidth;
}

ZRRect arrowBounds(const EntityRecord& record)
{
    const ShapeRules::Arrow arrow = ShapeRules::arrow(record.start(), record.end(), record.drawLineWidth);
    ZRRect bounds = ShapeRules::spanned(arrow.tail, arrow.head[0]);
    bounds = ShapeRules::withPoint(bounds, arrow.head[1]);
    return ShapeRules::withPoint(bounds, arrow.tip).grown(kArrowOutline / 2);
}

// Letters may reach beyond their line.
ZRRect textBounds(const EntityRecord& record)
{
    const ZRPoint corner = TextRules::textCorner(record.bounds);
    const ZRSize size = record.text->size();
    return ZRRect{corner.x, corner.y - size.height, size.width, size.height}.grown(size.height / 2);
}

// In points; what is drawn with a pen reaches beyond its path by half the pen's width.
ZRRect paintedRect(const EntityRecord& record)
{
    if (record.text)
        return textBounds(record);
    if (isArea(record))
        return record.bounds;
    if (record.idName == QLatin1String("arrow"))
        return arrowBounds(record);
    if (record.idName == QLatin1String("line"))
        return ShapeRules::lineRect(record.start(), record.end(), record.drawLineWidth);
    if (isRectangular(record))
        return record.bounds.normalized().grown(record.drawLineWidth / 2.0);
    return isStroke(record) ? record.pointExtent.grown(strokeWidth(record) / 2) : ZRRect{};
}

QRectF qt(ZRRect r)
{
    return {r.x, r.y, r.width, r.height};
}

QPointF qt(ZRPoint p)
{
    return {p.x, p.y};
}

int nearestPixel(double value)
{
    return int(std::floor(value + 0.5));
}

QPen roundPen(const QColor& color, double width)
{
    return {color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

QPainterPath triangle(ZRPoint tip, const std::array<ZRPoint, 2>& base)
{
    QPainterPath path(qt(tip));
    path.lineTo(qt(base[0]));
    path.lineTo(qt(base[1]));
    path.lineTo(qt(tip));
    return path;
}

}

GraffitPainter::GraffitPainter(QSize pixels, const QTransform& toPixels)
    : m_toPixels(toPixels)
    , m_mask(pixels)
{
}

QRect GraffitPainter::pixelBounds(const EntityRecord& record) const
{
    if (!isVisible(record))
        return {};
    return m_toPixels.mapRect(qt(paintedRect(record))).toAlignedRect().adjusted(-1, -1, 1, 1);
}

QRect GraffitPainter::grownPixels(const EntityRecord& record)
{
    if (!isStroke(record) || !isVisible(record) || !m_mask.isContinuedBy(stroke(record)))
        return {};
    return m_mask.cover(stroke(record));
}

void GraffitPainter::paint(QImage& picture, const EntityRecord& record, const QRect& clip)
{
    struct Drawer {
        const char* id;
        void (GraffitPainter::*draw)(QPainter&, const EntityRecord&) const;
    };
    static constexpr Drawer kDrawers[] = {
        {"square", &GraffitPainter::_drawSquareWithRect},
        {"eillpse", &GraffitPainter::_drawEillpseWithRect},
        {"arrow", &GraffitPainter::_drawArrowWithDragPoints},
        {"line", &GraffitPainter::_drawLineWithDragPoints},
    };
    if (!isVisible(record))
        return;
    if (record.text)
        return drawText({picture, clip}, record);
    if (isArea(record))
        return drawPicture({picture, clip}, record);
    if (isStroke(record))
        return drawStroke({picture, clip}, record);
    for (const Drawer& drawer : kDrawers) {
        if (record.idName != QLatin1String(drawer.id))
            continue;
        QPainter painter(&picture);
        painter.setClipRect(clip);
        painter.setTransform(m_toPixels);
        painter.setRenderHint(QPainter::Antialiasing);
        (this->*drawer.draw)(painter, record);
    }
}

void GraffitPainter::_drawSquareWithRect(QPainter& painter, const EntityRecord& record) const
{
    painter.setPen(roundPen(record.drawColor, record.drawLineWidth));
    painter.drawRect(qt(record.bounds.normalized()));
}

void GraffitPainter::_drawEillpseWithRect(QPainter& painter, const EntityRecord& record) const
{
    painter.setPen(roundPen(record.drawColor, record.drawLineWidth));
    painter.drawEllipse(qt(record.bounds.normalized()));
}

// Kept: one side of the head is stroked twice.
void GraffitPainter::_drawArrowWithDragPoints(QPainter& painter, const EntityRecord& record) const
{
    const ShapeRules::Arrow arrow = ShapeRules::arrow(record.start(), record.end(), record.drawLineWidth);
    const QPen outline = roundPen(record.drawColor, kArrowOutline);
    QPainterPath head = triangle(arrow.tip, arrow.head);
    painter.fillPath(head, record.drawColor);
    painter.strokePath(head, outline);
    head.moveTo(qt(arrow.tip));
    head.lineTo(qt(arrow.head[1]));
    painter.strokePath(head, outline);
    painter.fillPath(triangle(arrow.tail, arrow.base), record.drawColor);
}

void GraffitPainter::_drawLineWithDragPoints(QPainter& painter, const EntityRecord& record) const
{
    painter.setPen(roundPen(record.drawColor, record.drawLineWidth));
    painter.drawLine(qt(record.start()), qt(record.end()));
}

void GraffitPainter::drawText(const Canvas& canvas, const EntityRecord& record) const
{
    QPainter painter(&canvas.picture);
    painter.setClipRect(canvas.clip);
    record.text->paint(painter, m_toPixels, TextRules::textCorner(record.bounds), record.drawColor);
}

// An area begins and ends with a pixel; beyond the display nothing was hidden.
void GraffitPainter::drawPicture(const Canvas& canvas, const EntityRecord& record) const
{
    const QPointF corner = m_toPixels.mapRect(qt(record.bounds)).topLeft();
    QPainter painter(&canvas.picture);
    painter.setClipRect(canvas.clip);
    painter.drawImage(
        QPoint(std::max(0, nearestPixel(corner.x())), std::max(0, nearestPixel(corner.y()))), record.picture);
}

// Pen and highlighter: every point in its order, without smoothing.
void GraffitPainter::drawStroke(const Canvas& canvas, const EntityRecord& record)
{
    QColor color = record.drawColor;
    if (isHighlighter(record))
        color.setAlphaF(float(kHighlighterAlpha));
    m_mask.cover(stroke(record));
    m_mask.paint(canvas.picture, color, canvas.clip);
}

StrokeMask::Stroke GraffitPainter::stroke(const EntityRecord& record) const
{
    return {record, strokeWidth(record), m_toPixels};
}
