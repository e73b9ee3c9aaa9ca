#include "editor/FocusMarks.h"

#include "editor/HandleRules.h"

namespace {

constexpr double kLineWidth = 2; // points

enum class Handles { None, Eight, Ends };
struct Look {
    const char* id;
    Handles handles;
    bool hasBorder;
};
constexpr Look kLooks[] = {
    {"square", Handles::Eight, false},
    {"eillpse", Handles::Eight, true},
    {"arrow", Handles::Ends, false},
    {"customLine", Handles::None, true},
    {"light", Handles::None, true},
    {"line", Handles::Ends, false},
};

const Look* lookOf(const QString& id)
{
    for (const Look& look : kLooks)
        if (id == QLatin1String(look.id))
            return &look;
    return nullptr;
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

QPen pen(const QColor& color)
{
    return {color, kLineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

QRectF qt(ZRRect r)
{
    return {r.x, r.y, r.width, r.height};
}

}

FocusMarks FocusMarks::of(const EntityRecord& record)
{
    const Look* look = lookOf(record.idName);
    if (!look || !record.focusOn || !record.hasPoints())
        return {};
    return {handlesOf(record, look->handles),
        look->hasBorder ? std::optional(record.bounds) : std::optional<ZRRect>()};
}

void FocusMarks::paint(QPainter& painter) const
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    if (border) {
        painter.setPen(pen(QColor::fromRgbF(1, 0, 0, 0.4F)));
        painter.drawRect(qt(*border));
    }
    painter.setPen(pen(Qt::red));
    painter.setBrush(Qt::white);
    for (const ZRPoint handle : handles)
        painter.drawEllipse(qt(HandleRules::handleSquare(handle)));
}

std::vector<ZRRect> FocusMarks::bounds() const
{
    std::vector<ZRRect> all;
    for (const ZRPoint handle : handles)
        all.push_back(HandleRules::handleSquare(handle).grown(kLineWidth / 2));
    if (!border)
        return all;
    const ZRRect r = border->normalized();
    for (const ZRRect side : {ZRRect{r.x, r.y, r.width, 0}, ZRRect{r.x, r.maxY(), r.width, 0},
             ZRRect{r.x, r.y, 0, r.height}, ZRRect{r.maxX(), r.y, 0, r.height}})
        all.push_back(side.grown(kLineWidth / 2));
    return all;
}
