#pragma once

#include "platform/WindowServer.h"
#include "platform/x11/StripTransfer.h"
#include "platform/x11/XWindowList.h"

class NativeDisplays;

// Reads the root window and writes the overlay's pixels through shared memory; where the server shares none
// it reads over the connection and writes nothing.
class NativeWindowServer final : public WindowServer {
public:
    NativeWindowServer(std::shared_ptr<XConnection> connection, const NativeDisplays& displays);

    std::vector<WindowRecord> onScreenWindows() const override;
    std::shared_ptr<const Frame> freeze(const DisplayRecord& display, QString* reason) override;
    bool present(const Frame& frame, const QWindow& window, const Dimming& dimming) override;

private:
    QImage readOverConnection(QRect rootPixels) const;

    std::shared_ptr<XConnection> m_x;
    const NativeDisplays& m_displays;
    const PixelLayout m_layout;
    StripTransfer m_strips;
    XWindowList m_windows;
};
