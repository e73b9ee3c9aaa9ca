#include "capture/RegionDrag.h"

#include "capture/RegionRules.h"

void RegionDrag::press(ZRPoint location)
{
    m_isPressed = true;
    m_lastLocation = location;
}

void RegionDrag::takeHold(ZRPoint point, int handle)
{
    mRegionBeginPoint = point;
    mDirection = unsigned(handle);
}

bool RegionDrag::isByHandle() const
{
    return mDirection != RegionRules::kBody;
}

bool RegionDrag::holds(ZRRect region) const
{
    return isByHandle() || RegionRules::isWithinReach(region, mRegionBeginPoint);
}

ZRRect RegionDrag::spanned(ZRPoint to, double scale) const
{
    return RegionRules::snapped(RegionRules::spanned(mRegionBeginPoint, to), scale);
}

ZRRect RegionDrag::pulled(ZRRect region, ZRPoint to, ZRSize overlay, double scale)
{
    const auto dx = static_cast<float>(to.x - mRegionBeginPoint.x);
    const auto dy = static_cast<float>(to.y - mRegionBeginPoint.y);
    mRegionBeginPoint = to;
    return RegionRules::snapped(isByHandle() ? RegionRules::pulledByHandle(region, handle(), dx, dy)
                                             : RegionRules::moved(region, dx, dy, overlay),
        scale);
}
