#include "editor/ZRLine.h"

ZRLine::ZRLine()
{
    setLineWidth(3);
    setGraffitViewID(QStringLiteral("line"));
}
