#include "editor/ZRRandomLine.h"

#include "editor/HitRules.h"
#include "editor/ShapeRules.h"

ZRRandomLine::ZRRandomLine()
{
    setLineWidth(3);
    setGraffitViewID(QStringLiteral("customLine"));
}

ZRRect ZRRandomLine::sizeToFit()
{
    setVctualRect(ShapeRules::strokeRect(pointExtent(), lineWidth()));
    return vctualRect();
}

bool ZRRandomLine::isClickOn(ZRPoint point)
{
    return HitRules::hitsStroke(dragPoints(), pointExtent(), lineWidth(), point);
}

void ZRRandomLine::moveBy(ZRPoint step)
{
    movePoints(step.x, step.y);
    sizeToFit();
}
