#include "platform/macos/WindowListRules.h"

#include "platform/macos/DisplayRules.h"

namespace {

ZRRect asRect(const ZRServerRect& r)
{
    return {r.x, r.y, r.width, r.height};
}

// Points from the display's top-left corner become its device pixels; edges go to the nearest one.
QRect pixelsOn(const DisplayRecord& display, const ZRRect& local)
{
    const double height = display.frame.height;
    const QRect pixels =
        display.localPixels(flippedUp({local.x, local.y, local.width, local.height}, height));
    return pixels.translated(display.pixels.topLeft());
}

}

std::vector<WindowRecord> recordsOf(
    const std::vector<ListedWindow>& windows, const std::vector<DisplayRecord>& displays)
{
    std::vector<WindowRecord> records;
    for (const ListedWindow& window : windows) {
        for (const DisplayRecord& display : displays) {
            const ZRServerRect d = serverRect(display, displays.front());
            const ZRRect shared = asRect(window.bounds).intersected(asRect(d));
            if (!shared.isEmpty())
                records.push_back({pixelsOn(display, shared.translated(-d.x, -d.y)), window.owner,
                    window.name, window.alpha});
        }
    }
    return records;
}
