#include "editor/ZRArrow.h"

ZRArrow::ZRArrow()
{
    setLineWidth(6);
    setGraffitViewID(QStringLiteral("arrow"));
}
