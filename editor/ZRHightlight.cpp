#include "editor/ZRHightlight.h"

ZRHightlight::ZRHightlight()
{
    setLineWidth(6);
    setGraffitViewID(QStringLiteral("light"));
}
