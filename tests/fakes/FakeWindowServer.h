#pragma once

#include "platform/WindowServer.h"

// Freezes a picture in which every pixel tells its place.
class FakeWindowServer final : public WindowServer {
public:
    std::vector<WindowRecord> onScreenWindows() const override { return windows; }
    std::optional<WindowRecord> activeWindow() const override { return active; }
    void prepare(const DisplayRecord&) override { ++preparations; }
    std::shared_ptr<const Frame> freeze(const DisplayRecord& display, QString* reason) override
    {
        ++freezes;
        if (!refusal.isEmpty() && reason)
            *reason = refusal;
        return refusal.isEmpty() ? std::make_shared<const Frame>(display, picture(display)) : nullptr;
    }
    bool present(const Frame&, const QWindow&, const Dimming& dimming) override
    {
        ++presentations;
        lastDimming = dimming;
        return canPresent;
    }

    bool blendsWindows() const override { return false; }

    // Red and green count the pixel's column and row, blue the display.
    static QRgb pixel(int id, int x, int y) { return qRgb(x & 0xff, y & 0xff, id & 0xff); }
    static QImage picture(const DisplayRecord& display)
    {
        QImage image(display.pixels.size(), QImage::Format_RGB32);
        for (int y = 0; y < image.height(); ++y) {
            auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
            for (int x = 0; x < image.width(); ++x)
                row[x] = pixel(display.id, x, y);
        }
        return image;
    }

    std::vector<WindowRecord> windows;
    std::optional<WindowRecord> active;
    QString refusal; // not empty: nothing can be frozen, for this reason
    bool canPresent = false;
    int preparations = 0;
    int freezes = 0;
    int presentations = 0;
    Dimming lastDimming;
};
