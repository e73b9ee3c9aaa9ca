#pragma once

#include "platform/DisplayRecord.h"
#include "platform/ScreenInfo.h"

#include <optional>
#include <vector>

// The display that a capture or a tool runs on and the first display, with their records in the settings.
class CaptureScreens {
public:
    // The first display until one was set; not valid when there is none.
    DisplayRecord current();
    void setCurrent(const DisplayRecord& display) { m_current = display; }
    std::optional<ScreenInfo> first();

    // The display that holds the pointer becomes the current one; without one the current display stays.
    void chooseUnderPointer();
    // Writes the records, `shown` as the current display's. For when it is frozen and shown: the disk is not
    // on the way there.
    void store(const DisplayRecord& shown) const;
    // No display is captured any more.
    void forgetStored() const;
    // After a change of the displays: a current one that has gone is forgotten.
    void keepAmong(const std::vector<DisplayRecord>& displays);

private:
    std::optional<DisplayRecord> m_current;
    std::optional<ScreenInfo> m_first;
};
