#pragma once

#include "platform/Displays.h"

// Displays that a test plugs in and out. Starts with one of 800 x 600 pixels at scale 1.
class FakeDisplays final : public Displays {
public:
    FakeDisplays() { displays.push_back(display(1, QRect(0, 0, 800, 600), 1)); }

    std::vector<DisplayRecord> all() const override { return displays; }
    std::optional<QPoint> pointer() const override { return pointerPixel; }

    // `pixels` as in DisplayRecord; the frame stands as it would with `firstHeight` points on the first
    // display.
    static DisplayRecord display(int id, QRect pixels, double scale, double firstHeight = 600)
    {
        const double height = pixels.height() / scale;
        return {id, QStringLiteral("Display %1").arg(id), pixels, scale,
            ZRRect{double(pixels.x()), firstHeight - pixels.y() - height, pixels.width() / scale, height}};
    }
    void unplug(int id)
    {
        std::erase_if(displays, [id](const DisplayRecord& d) { return d.id == id; });
        if (onChange)
            onChange();
    }

    std::vector<DisplayRecord> displays;
    std::optional<QPoint> pointerPixel = QPoint(400, 300);
};
