#pragma once

#include "platform/WindowServer.h"
#include "platform/macos/ScreenReader.h"

class NativeDisplays;

// Windows are told by the window server's list, pixels by a ScreenSource. Overlays paint their picture
// themselves.
class NativeWindowServer final : public WindowServer {
public:
    explicit NativeWindowServer(const NativeDisplays& displays);

    std::vector<WindowRecord> onScreenWindows() const override;
    std::optional<WindowRecord> activeWindow() const override;
    void prepare(const DisplayRecord& display) override;
    std::shared_ptr<const Frame> freeze(const DisplayRecord& display, QString* reason) override;
    bool present(const Frame& frame, const QWindow& window, const Dimming& dimming) override;
    bool blendsWindows() const override { return true; }

private:
    const NativeDisplays& m_displays;
    ScreenReader m_reader;
};
