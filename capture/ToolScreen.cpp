#include "capture/ToolScreen.h"

#include "commonutils/CommLog.h"

#include <QGuiApplication>

#include <algorithm>

namespace {

const Displays* g_displays = nullptr;

template <typename Predicate>
std::optional<DisplayRecord> firstScreenWhere(Predicate matches)
{
    for (const DisplayRecord& display : ToolScreen::screens())
        if (matches(display))
            return display;
    return std::nullopt;
}

std::optional<DisplayRecord> mainScreen()
{
    return firstScreenWhere([](const DisplayRecord&) { return true; });
}

}

void ToolScreen::install(const Displays* displays)
{
    g_displays = displays;
}

std::vector<DisplayRecord> ToolScreen::screens()
{
    return g_displays ? g_displays->all() : std::vector<DisplayRecord>{};
}

QRect ToolScreen::virtualScreen()
{
    return g_displays ? g_displays->virtualScreen() : QRect();
}

int ToolScreen::numberOfScreens()
{
    return int(screens().size());
}

std::optional<ScreenInfo> ToolScreen::getMainScreenInfo()
{
    auto info = getScreenInfoWithScreen(mainScreen());
    if (info) {
        const ZRRect f = info->GetScreenFrame();
        CommLog::log(QString::asprintf("frame x :%f y :%f w:%f h:%f", f.x, f.y, f.width, f.height));
    }
    return info;
}

std::vector<ScreenInfo> ToolScreen::screenInfos()
{
    std::vector<ScreenInfo> infos;
    for (const DisplayRecord& display : screens())
        infos.emplace_back(display);
    return infos;
}

std::optional<ScreenInfo> ToolScreen::getScreenInfoWithScreen(const std::optional<DisplayRecord>& screen)
{
    return screen ? std::optional(ScreenInfo(*screen)) : std::nullopt;
}

std::optional<ScreenInfo> ToolScreen::getScreenInfoWithRect(ZRRect rect)
{
    return getScreenInfoWithScreen(firstScreenWhere(
        [rect](const DisplayRecord& d) { return !d.frame.intersected(rect.normalized()).isEmpty(); }));
}

std::optional<ScreenInfo> ToolScreen::getScreenInfoWithPoint(ZRPoint point)
{
    const ZRPoint p{point.x, std::max(0.0, point.y)};
    return getScreenInfoWithScreen(
        firstScreenWhere([p](const DisplayRecord& d) { return d.frame.contains(p); }));
}

std::optional<DisplayRecord> ToolScreen::getFirstScreen()
{
    const auto atZero = firstScreenWhere([](const DisplayRecord& d) { return d.frame.x == 0.0; });
    return atZero ? atZero : mainScreen();
}

std::optional<DisplayRecord> ToolScreen::getScreenWithWindowDisplayId(int displayId)
{
    return firstScreenWhere([displayId](const DisplayRecord& d) { return d.id == displayId; });
}

std::optional<DisplayRecord> ToolScreen::screenUnderPointer()
{
    const auto pointer = g_displays ? g_displays->pointer() : std::nullopt;
    if (!pointer)
        return std::nullopt;
    return firstScreenWhere([&pointer](const DisplayRecord& d) { return d.holds(*pointer); });
}

std::optional<ZRPoint> ToolScreen::mouseLocation()
{
    const auto screen = screenUnderPointer();
    const auto pointer = g_displays ? g_displays->pointer() : std::nullopt;
    if (!screen || !pointer)
        return std::nullopt;
    const ZRPoint local = screen->localPoint(*pointer);
    return ZRPoint{screen->frame.x + local.x, screen->frame.y + local.y};
}

QScreen* ToolScreen::qtScreen(const DisplayRecord& display)
{
    const auto all = QGuiApplication::screens();
    const auto it = std::find_if(
        all.begin(), all.end(), [&display](const QScreen* screen) { return screen->name() == display.name; });
    return it == all.end() ? nullptr : *it;
}
