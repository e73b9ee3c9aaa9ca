#include "tests/desktop/Toolbars.h"

#include "customui/PopupRules.h"
#include "editor/PlacementRules.h"

namespace {

constexpr ZRSize kDrawing{441, 40}; // points, as all that follows
constexpr ZRSize kOutput{40, 225};
constexpr double kPadding = 4;
constexpr double kItem = 32;
constexpr double kStep = kItem + kPadding;
constexpr double kSeparator = 1 + kPadding;
constexpr double kRibbonPadding = 8;
constexpr int kTextTool = 7, kMosaicTool = 8;
constexpr int kColorsInARow = 13;

ZRRect at(ZRPoint origin, ZRSize size)
{
    return {origin.x, origin.y, size.width, size.height};
}

double contentWidth(int digit)
{
    return digit == kTextTool ? 331 : digit == kMosaicTool ? 153 : 367;
}

}

Toolbars::Toolbars(QRect display, double scale, QRect region)
    : m_display(display)
    , m_scale(scale)
{
    const ZRSize screen{display.width() / scale, display.height() / scale};
    const ZRRect place{(region.x() - display.x()) / scale,
        (display.y() + display.height() - region.y() - region.height()) / scale, region.width() / scale,
        region.height() / scale};
    const auto apart = PlacementRules::apart(place,
        {at(PlacementRules::drawingToolbarOrigin(place, kDrawing, screen), kDrawing),
            at(PlacementRules::outputToolbarOrigin(place, kOutput, screen), kOutput)},
        screen);
    m_drawing = apart.drawing;
    m_output = apart.output;
}

bool Toolbars::covers(QPoint pixel) const
{
    return drawing().adjusted(-2, -2, 2, 2).contains(pixel) ||
           output().adjusted(-2, -2, 2, 2).contains(pixel);
}

QPoint Toolbars::shareTarget(int index) const
{
    const ZRRect item{
        m_output.x + kPadding, m_output.maxY() - kPadding - kStep - kSeparator - kItem, kItem, kItem};
    constexpr ZRSize size{42, 128};
    const ZRSize screen{m_display.width() / m_scale, m_display.height() / m_scale};
    const ZRRect panel = PopupRules::besideAnchor(
        item, m_output, {size.width + 2 * kRibbonPadding, size.height + 2 * kRibbonPadding}, screen, 2)
                             .panel;
    return pixel(
        {panel.x + kRibbonPadding + 10 + kItem / 2, panel.maxY() - kRibbonPadding - (index + 0.5) * kItem});
}

QPoint Toolbars::lineWidth(int digit, int index) const
{
    const ZRRect ribbon = content(digit);
    return pixel({ribbon.x + kItem / 2 + 37 * index, ribbon.y + kItem / 2});
}

QPoint Toolbars::color(int digit, int index) const
{
    const ZRRect ribbon = content(digit);
    const double first = ribbon.maxX() - 256 + 37 + 7.5;
    return pixel({first + 17 * (index % kColorsInARow), ribbon.y + (index < kColorsInARow ? 24.5 : 7.5)});
}

QPoint Toolbars::fontSize(int digit) const
{
    const ZRRect ribbon = content(digit);
    return pixel({ribbon.x + 35, ribbon.y + 16});
}

QPoint Toolbars::fontSizeRow(int digit, int row) const
{
    const ZRRect ribbon = content(digit);
    constexpr double listPadding = 4, rowHeight = 20, rows = 13;
    const ZRSize panel{75 + 2 * listPadding, rows * rowHeight + 2 * listPadding};
    const ZRSize screen{m_display.width() / m_scale, m_display.height() / m_scale};
    const ZRRect list = PopupRules::underButton({ribbon.x, ribbon.y + 4, 75, 24}, panel, screen);
    return pixel({list.x + 35, list.maxY() - listPadding - (row + 0.5) * rowHeight});
}

QPoint Toolbars::mosaicSwitch(int digit) const
{
    const ZRRect ribbon = content(digit);
    return pixel({ribbon.x + 111 + kItem / 2, ribbon.y + kItem / 2});
}

QPoint Toolbars::drawingItem(int index, int separators) const
{
    return pixel({m_drawing.x + kPadding + index * kStep + separators * kSeparator + kItem / 2,
        m_drawing.y + m_drawing.height / 2});
}

QPoint Toolbars::outputItem(int index, int separators) const
{
    return pixel({m_output.x + m_output.width / 2,
        m_output.maxY() - kPadding - index * kStep - separators * kSeparator - kItem / 2});
}

ZRRect Toolbars::toolItem(int digit) const
{
    return {m_drawing.x + kPadding + (digit - 1) * kStep, m_drawing.y + kPadding, kItem, kItem};
}

ZRRect Toolbars::content(int digit) const
{
    const ZRSize size{contentWidth(digit), kItem};
    const ZRSize screen{m_display.width() / m_scale, m_display.height() / m_scale};
    const ZRRect panel = PopupRules::besideAnchor(toolItem(digit), m_drawing,
        {size.width + 2 * kRibbonPadding, size.height + 2 * kRibbonPadding}, screen, 1)
                             .panel;
    return {panel.x + kRibbonPadding, panel.y + kRibbonPadding, size.width, size.height};
}

QPoint Toolbars::pixel(ZRPoint point) const
{
    return {m_display.x() + int(point.x * m_scale),
        m_display.y() + m_display.height() - 1 - int(point.y * m_scale)};
}

QRect Toolbars::pixels(ZRRect rect) const
{
    const QPoint corner(m_display.x() + qRound(rect.x * m_scale),
        m_display.y() + m_display.height() - qRound(rect.maxY() * m_scale));
    return {corner, QSize(qRound(rect.width * m_scale), qRound(rect.height * m_scale))};
}
