#pragma once

#include "geometry/ZRRect.h"
#include "platform/Frame.h"

#include <memory>

// Where the editor gets the frozen display's pixels from.
class RegionImageSource {
public:
    virtual ~RegionImageSource() = default;
    // The running capture's; null outside of one.
    virtual std::shared_ptr<const Frame> frame() const = 0;
    // The frozen pixels of a rectangle of the overlay: points, origin at the display's bottom-left corner.
    // Cut at the display, null when nothing is left; may borrow the frame's pixels.
    virtual QImage getCurrentImageFromTheRegion(ZRRect rect) const = 0;
};
