#include "capture/WindowRules.h"

#include <algorithm>

namespace {

double area(const WindowRecord& window)
{
    return double(window.pixels.width()) * window.pixels.height();
}

}

std::vector<WindowRecord> WindowRules::sortedByArea(std::vector<WindowRecord> windows)
{
    std::stable_sort(windows.begin(), windows.end(),
        [](const WindowRecord& a, const WindowRecord& b) { return area(a) < area(b); });
    return windows;
}

bool WindowRules::isRecognisable(const WindowRecord& window)
{
    return window.owner != QLatin1String("Dock") && int(window.alpha) != 0 &&
           window.name != QLatin1String("Backstop Menubar");
}

ZRRect WindowRules::overlayRect(const WindowRecord& window, const DisplayRecord& display)
{
    return display.localRect(window.pixels.translated(-display.pixels.topLeft()));
}

std::vector<ZRRect> WindowRules::candidates(
    const std::vector<WindowRecord>& windows, const DisplayRecord& display)
{
    std::vector<ZRRect> rects;
    for (const WindowRecord& window : windows) {
        if (!isRecognisable(window))
            continue;
        const QRect visible = window.pixels.intersected(display.pixels);
        if (!visible.isEmpty())
            rects.push_back(display.localRect(visible.translated(-display.pixels.topLeft())));
    }
    return rects;
}

std::optional<ZRRect> WindowRules::recognised(const std::vector<ZRRect>& candidates, ZRPoint point)
{
    const auto it = std::find_if(
        candidates.begin(), candidates.end(), [point](ZRRect rect) { return rect.contains(point); });
    return it == candidates.end() ? std::nullopt : std::optional(*it);
}
