#include "editor/FocusMarks.h"

#include "editor/HandleRules.h"
#include "editor/TextLine.h"

namespace {

constexpr double kLineWidth = 2; // points
constexpr double kThinLine = 1;
constexpr double kSquareSize = 4;
constexpr double kDash = 5;
constexpr double kDashPhase = 1;
const QColor kBlue = QColor::fromRgbF(0.25F, 0.67F, 0.98F);
const QColor kPaleRed = QColor::fromRgbF(1, 0, 0, 0.4F);

enum class Handles { None, Eight, Ends };
struct Kind {
    const char* id;
    Handles handles;
    FocusMarks::Look look;
    double borderWidth; // 0 for none
};
constexpr Kind kKinds[] = {
    {"square", Handles::Eight, FocusMarks::Look::Circles, 0},
    {"eillpse", Handles::Eight, FocusMarks::Look::Circles, kLineWidth},
    {"arrow", Handles::Ends, FocusMarks::Look::Circles, 0},
    {"customLine", Handles::None, FocusMarks::Look::Circles, kLineWidth},
    {"light", Handles::None, FocusMarks::Look::Circles, kLineWidth},
    {"line", Handles::Ends, FocusMarks::Look::Circles, 0},
    {"text", Handles::Eight, FocusMarks::Look::Squares, kLineWidth},
    {"mosic", Handles::Eight, FocusMarks::Look::Squares, kThinLine},
    {"blur", Handles::Eight, FocusMarks::Look::Squares, kThinLine},
};

const Kind* kindOf(const QString& id)
{
    for (const Kind& kind : kKinds)
        if (id == QLatin1String(kind.id))
            return &kind;
    return nullptr;
}

bool isMarked(const EntityRecord& record)
{
    if (record.text)
        return record.focusOn;
    return (record.focusOn || record.needBorder) && record.hasPoints();
}

std::vector<ZRPoint> handlesOf(const EntityRecord& record, Handles kind)
{
    std::vector<ZRPoint> points;
    if (kind == Handles::Eight)
        for (int direction = kTopLeft; direction <= kBottomRight; ++direction)
            points.push_back(HandleRules::handlePoint(record.bounds, direction));
    if (kind == Handles::Ends)
        points = {record.start(), record.end()};
    return points;
}

QPen pen(const QColor& color, double width)
{
    return {color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

QPen dashedPen(double width)
{
    QPen dashed(kBlue, width, Qt::CustomDashLine, Qt::FlatCap);
    dashed.setDashPattern({kDash / width, kDash / width});
    dashed.setDashOffset(kDashPhase / width);
    return dashed;
}

QRectF qt(ZRRect r)
{
    return {r.x, r.y, r.width, r.height};
}

}

FocusMarks FocusMarks::of(const EntityRecord& record)
{
    const Kind* kind = kindOf(record.idName);
    if (!kind || !isMarked(record))
        return {};
    FocusMarks marks;
    marks.look = kind->look;
    marks.handles = handlesOf(record, kind->handles);
    marks.borderWidth = kind->borderWidth;
    if (kind->borderWidth > 0)
        marks.border = record.bounds;
    if (!record.textCursor)
        return marks;
    marks.text = record.text;
    marks.textCursor = *record.textCursor;
    marks.textCorner = TextRules::textCorner(record.bounds);
    marks.textColor = record.drawColor;
    return marks;
}

void FocusMarks::paint(QPainter& painter, const QTransform& toPixels) const
{
    painter.save();
    painter.setTransform(toPixels, true);
    if (look == Look::Circles)
        paintCircles(painter);
    else if (border)
        paintSquares(painter);
    painter.restore();
    if (text)
        paintText(painter, toPixels);
}

std::vector<ZRRect> FocusMarks::bounds() const
{
    std::vector<ZRRect> all;
    for (const ZRPoint handle : handles)
        all.push_back(handleRect(handle).grown(kLineWidth / 2));
    if (text)
        all.push_back(border->grown(text->size().height / 2)); // letters may reach beyond their line
    if (!border)
        return all;
    const ZRRect r = border->normalized();
    for (const ZRRect side : {ZRRect{r.x, r.y, r.width, 0}, ZRRect{r.x, r.maxY(), r.width, 0},
             ZRRect{r.x, r.y, 0, r.height}, ZRRect{r.maxX(), r.y, 0, r.height}})
        all.push_back(side.grown(kLineWidth / 2));
    return all;
}

ZRRect FocusMarks::handleRect(ZRPoint middle) const
{
    if (look == Look::Circles)
        return HandleRules::handleSquare(middle);
    return ZRRect{middle.x, middle.y, 0, 0}.grown(kSquareSize / 2);
}

void FocusMarks::paintCircles(QPainter& painter) const
{
    painter.setRenderHint(QPainter::Antialiasing);
    if (border) {
        painter.setPen(pen(kPaleRed, borderWidth));
        painter.drawRect(qt(*border));
    }
    painter.setPen(pen(Qt::red, kLineWidth));
    painter.setBrush(Qt::white);
    for (const ZRPoint handle : handles)
        painter.drawEllipse(qt(handleRect(handle)));
}

void FocusMarks::paintSquares(QPainter& painter) const
{
    painter.setPen(dashedPen(borderWidth));
    painter.drawRect(qt(*border));
    painter.setPen(QPen(kBlue, kThinLine));
    for (const ZRPoint handle : handles)
        painter.drawRect(qt(handleRect(handle)));
}

void FocusMarks::paintText(QPainter& painter, const QTransform& toPixels) const
{
    if (textCursor.selection.length > 0)
        text->paintSelected(painter, toPixels, textCorner, textCursor.selection);
    else
        text->paintCaret(painter, toPixels, textCorner, textCursor.caret, textColor);
}
