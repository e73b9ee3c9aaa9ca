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
    std::optional<WindowRecord> activeWindow() const override;
    void prepare(const DisplayRecord& display) override;
    std::shared_ptr<const Frame> freeze(const DisplayRecord& display, QString* reason) override;
    bool present(const Frame& frame, const QWindow& window, const Dimming& dimming) override;
    bool blendsWindows() const override;

private:
    void cutToDisplay(const QWindow& window, const DisplayRecord& display) const;
    QImage takeSpare(QSize size);
    bool readOverConnection(QRect rootPixels, QImage& into) const;

    std::shared_ptr<XConnection> m_x;
    const NativeDisplays& m_displays;
    const PixelLayout m_layout;
    StripTransfer m_strips;
    QImage m_spare; // for the next frame, its memory in use already; null when there is none
    XWindowList m_windows;
};
