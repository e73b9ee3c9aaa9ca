#include "geometry/ZRServerRect.h"

ZRRect flippedUp(ZRServerRect r, double height)
{
    return {r.x, height - r.y - r.height, r.width, r.height};
}

ZRServerRect flippedDown(ZRRect r, double height)
{
    return {r.x, height - r.y - r.height, r.width, r.height};
}
