#include "editor/ZREillpse.h"

#include "editor/HitRules.h"
#include "editor/ShapeRules.h"

ZREillpse::ZREillpse()
{
    setLineWidth(3);
    setGraffitViewID(QStringLiteral("eillpse"));
}

ZRRect ZREillpse::sizeToFit()
{
    const DragPoints& points = dragPoints();
    setVctualRect(ShapeRules::spanned(getPointWithIndex(0), getPointWithIndex(points.size() - 1)));
    return vctualRect();
}

bool ZREillpse::isClickOn(ZRPoint point)
{
    if (isFocusOn()) {
        resizeDirection = getResizeDirection(point);
        if (resizeDirection != kNoHandle)
            return true;
    }
    if (!HitRules::hitsEllipse(vctualRect(), lineWidth(), point))
        return false;
    resizeDirection = getResizeDirection(point);
    return true;
}
