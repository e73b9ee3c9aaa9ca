#include "editor/TextLine.h"

#include <cmath>

namespace {

constexpr QRgb kSelection = 0xff2a7bf4;
constexpr double kHeightOfCaret = 20; // times its width

// Text stands upright, whatever way the points' y grows.
QTransform upright(const QTransform& toPixels, ZRPoint topLeft)
{
    const QPointF corner = toPixels.map(QPointF(topLeft.x, topLeft.y));
    const double scale = toPixels.m11();
    return {scale, 0, 0, scale, std::floor(corner.x() + 0.5), std::floor(corner.y() + 0.5)};
}

// Coloured fringes would be right for one kind of screen only.
QFont withoutFringes(QFont font)
{
    font.setStyleStrategy(QFont::StyleStrategy(font.styleStrategy() | QFont::NoSubpixelAntialias));
    return font;
}

}

TextLine::TextLine(const QString& text, const QFont& font, const QList<QTextLayout::FormatRange>& formats)
    : m_layout(text, withoutFringes(font))
{
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    option.setTextDirection(Qt::LayoutDirectionAuto);
    option.setFlags(QTextOption::IncludeTrailingSpaces);
    m_layout.setTextOption(option);
    m_layout.setFormats(formats);
    m_layout.beginLayout();
    m_layout.createLine();
    m_layout.endLayout();
}

ZRSize TextLine::size() const
{
    const QTextLine line = m_layout.lineAt(0);
    return {line.naturalTextWidth(), line.height()};
}

double TextLine::xOf(qsizetype location) const
{
    return m_layout.lineAt(0).cursorToX(int(location));
}

qsizetype TextLine::locationAt(double x) const
{
    return m_layout.lineAt(0).xToCursor(x);
}

void TextLine::paint(
    QPainter& painter, const QTransform& toPixels, ZRPoint topLeft, const QColor& color) const
{
    painter.save();
    painter.setTransform(upright(toPixels, topLeft), true);
    painter.setPen(color);
    m_layout.draw(&painter, {});
    painter.restore();
}

// Only the selected part leaves a trace.
void TextLine::paintSelected(
    QPainter& painter, const QTransform& toPixels, ZRPoint topLeft, TextRules::Range selected) const
{
    QTextLayout::FormatRange part;
    part.start = int(selected.location);
    part.length = int(selected.length);
    part.format.setBackground(QColor(kSelection));
    part.format.setForeground(Qt::white);
    painter.save();
    painter.setTransform(upright(toPixels, topLeft), true);
    painter.setPen(Qt::transparent);
    m_layout.draw(&painter, {}, {part});
    painter.restore();
}

void TextLine::paintCaret(QPainter& painter, const QTransform& toPixels, ZRPoint topLeft, qsizetype location,
    const QColor& color) const
{
    const double height = size().height;
    const double width = std::max(1.0, std::round(height / kHeightOfCaret));
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setTransform(upright(toPixels, topLeft), true);
    painter.fillRect(QRectF(std::round(xOf(location)), 0, width, height), color);
    painter.restore();
}
