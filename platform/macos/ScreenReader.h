#pragma once

#include "platform/Frame.h"
#include "platform/macos/ScreenSource.h"

#include <chrono>
#include <memory>

// Freezes displays: waits for the system so long and no longer, tries a second time where the first reading
// failed or fits the display no more, and asks the user for the permission at the first refused capture.
class ScreenReader {
public:
    // How long one of the two attempts may take.
    explicit ScreenReader(std::unique_ptr<ScreenSource> source,
        std::chrono::milliseconds limit = std::chrono::milliseconds(1500));

    void prepare();
    // Null when the screen cannot be read; `reason`, where given, then says why.
    std::shared_ptr<const Frame> freeze(const DisplayRecord& display, QString* reason);

private:
    bool isPermitted();
    ScreenSource::Answer read(const DisplayRecord& display);

    const std::unique_ptr<ScreenSource> m_source;
    const std::chrono::milliseconds m_limit;
    bool m_hasAsked = false;
};
