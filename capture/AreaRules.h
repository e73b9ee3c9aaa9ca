#pragma once

#include "capture/CaptureOrder.h"

#include <QStringView>

#include <optional>
#include <vector>

// Parts of the screen by name: "640x480+100+50", in the notation that X programs share. Rectangles are device
// pixels in the space of DisplayRecord::pixels unless said otherwise.
namespace AreaRules {

// A rectangle of the virtual screen as it was written.
struct Geometry {
    QSize size;
    QPoint offset;            // from the edges below
    bool isFromRight = false; // "-X": between the right edges
    bool isFromBottom = false;

    friend bool operator==(const Geometry&, const Geometry&) = default;
};

// Empty for anything but "WxH+X+Y", where each + may be a -.
std::optional<Geometry> parsed(QStringView text);
QRect placed(const Geometry& geometry, QRect virtualScreen);
// The rectangle as parsed() reads it, of pixels counted from anywhere.
QString text(QRect pixels);

// The part of a rectangle on the display that holds most of it; empty when it is beside all displays.
std::optional<CaptureArea> onMainDisplay(QRect pixels, const std::vector<DisplayRecord>& displays);
// A display by its number, from 1, or by its name.
std::optional<DisplayRecord> displayNamed(const QString& name, const std::vector<DisplayRecord>& displays);
// One line that tells the user which displays there are.
QString list(const std::vector<DisplayRecord>& displays, QRect virtualScreen);

// An area as a text, and back where its display is still there and large enough.
QString stored(const CaptureArea& area);
std::optional<CaptureArea> restored(const QString& text, const std::vector<DisplayRecord>& displays);

}
