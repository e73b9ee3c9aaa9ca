#include "editor/ZRSquare.h"

#include "editor/HitRules.h"
#include "editor/ShapeRules.h"

ZRSquare::ZRSquare()
{
    setLineWidth(3);
    setGraffitViewID(QStringLiteral("square"));
}

ZRRect ZRSquare::sizeToFit()
{
    const DragPoints& points = dragPoints();
    setVctualRect(ShapeRules::spanned(getPointWithIndex(0), getPointWithIndex(points.size() - 1)));
    return vctualRect();
}

bool ZRSquare::isClickOn(ZRPoint point)
{
    if (vctualRect().width == 0 && vctualRect().height == 0)
        return false; // a click made it, nothing is to be seen
    resizeDirection = getResizeDirection(point);
    return resizeDirection != kNoHandle || HitRules::hitsBorder(vctualRect(), lineWidth(), point);
}
