#include "capture/LastCapture.h"

#include "editor/ZRGraffitManager.h"
#include "settings/AppSettings.h"

#include <algorithm>

namespace {

// Where an area is hidden for good, the picture with all annotations painted is kept instead of what is below
// them.
JournalEntry entryOf(
    const std::shared_ptr<const Frame>& frame, ZRRect region, const ZRGraffitManager& annotations)
{
    const DisplayRecord& display = frame->display();
    if (AppSettings::isMosaicSecure() && annotations.hasMosaic())
        return {display, annotations.composed(frame->image().rect()), region, {}};
    return {display, frame->image(), region, annotations.archived(), frame};
}

}

LastCapture::LastCapture(const Displays& displays)
    : m_displays(displays)
{
}

std::optional<JournalEntry> LastCapture::entry(QString* reason) const
{
    *reason = QStringLiteral("no capture is kept");
    auto entry = m_journal ? m_journal->last(reason) : std::nullopt;
    if (!entry)
        return std::nullopt;
    const auto display = displayLike(entry->display);
    *reason = QStringLiteral("no display is like the one that it was made on");
    if (!display)
        return std::nullopt;
    entry->display = *display;
    return entry;
}

std::optional<DisplayRecord> LastCapture::displayLike(const DisplayRecord& display) const
{
    const auto displays = m_displays.all();
    const auto isAlike = [&display](const DisplayRecord& other) {
        return other.pixels.size() == display.pixels.size() && other.scale == display.scale;
    };
    auto found = std::find(displays.begin(), displays.end(), display);
    if (found == displays.end())
        found = std::find_if(displays.begin(), displays.end(), isAlike);
    return found == displays.end() ? std::nullopt : std::optional(*found);
}

void LastCapture::keep(
    const std::shared_ptr<const Frame>& frame, ZRRect region, const ZRGraffitManager& annotations)
{
    if (!m_journal)
        return;
    if (AppSettings::isLastCaptureKept())
        m_journal->keep(entryOf(frame, region, annotations));
    else if (m_journal->hasEntry())
        m_journal->forget();
}
