#include "capture/CaptureScreens.h"

#include "capture/ToolScreen.h"
#include "commonutils/CommLog.h"
#include "settings/AppSettings.h"

#include <algorithm>

DisplayRecord CaptureScreens::current()
{
    if (!m_current)
        m_current = ToolScreen::getFirstScreen();
    return m_current.value_or(DisplayRecord{});
}

std::optional<ScreenInfo> CaptureScreens::first()
{
    if (!m_first)
        m_first = ToolScreen::getScreenInfoWithScreen(ToolScreen::getFirstScreen());
    return m_first;
}

void CaptureScreens::chooseUnderPointer()
{
    if (const auto screen = ToolScreen::screenUnderPointer()) {
        setCurrent(*screen);
        const ZRRect f = screen->frame;
        CommLog::log(QString::asprintf(
            "Start Screen Shot Current Main Screen frame (%f,%f,%f,%f)", f.x, f.y, f.width, f.height));
    }
    m_first = ToolScreen::getScreenInfoWithScreen(ToolScreen::getFirstScreen());
}

void CaptureScreens::store(const DisplayRecord& shown) const
{
    AppSettings::setCurrentScreenInfo(ScreenInfo(shown));
    AppSettings::setFistScreenInfo(m_first);
}

void CaptureScreens::forgetStored() const
{
    AppSettings::setCurrentScreenInfo(std::nullopt);
}

void CaptureScreens::keepAmong(const std::vector<DisplayRecord>& displays)
{
    if (m_current && std::find(displays.begin(), displays.end(), *m_current) == displays.end())
        m_current.reset();
}
