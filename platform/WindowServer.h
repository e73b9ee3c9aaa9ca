#pragma once

#include "platform/Frame.h"
#include "platform/WindowRecord.h"

#include <QString>
#include <QWindow>

#include <memory>
#include <optional>
#include <vector>

// The one refusal of a freeze that a user can do something about; there are others.
namespace FreezeRefusal {
inline const QString kNotPermitted =
    QStringLiteral("the screen may not be recorded; allow Lumora Mac Screenshot in System Settings, "
                   "Privacy & Security, Screen Recording, then quit and open it again");
}

// A veil of black over a picture.
struct Dimming {
    double opacity = 0; // 0 to 1
    QRect bright;       // what stays free of it, in device pixels of the window
};

// What a capture asks of the desktop's window server. Main thread only. Nothing throws.
class WindowServer {
public:
    virtual ~WindowServer() = default;

    // What is on the screen now, front to back, our own windows included; empty when it cannot be told.
    virtual std::vector<WindowRecord> onScreenWindows() const = 0;
    // The one of them that the user works in: which the desktop calls active, else which has the keyboard.
    // Empty when there is none or it cannot be told.
    virtual std::optional<WindowRecord> activeWindow() const = 0;
    // Makes ready what the next freeze of this display needs, as far as that keeps no more than 20 MiB of
    // memory in use until then. For idle moments.
    virtual void prepare(const DisplayRecord& display) = 0;
    // The display as it is now, in its own device pixels. Null when the screen cannot be read; `reason` then
    // says why.
    virtual std::shared_ptr<const Frame> freeze(const DisplayRecord& display, QString* reason) = 0;
    // Puts the frame, dimmed, into a shown window that covers the frame's display, and makes the window cover
    // that display alone, to the pixel. False when it cannot put it there: the window must then paint the
    // picture itself.
    virtual bool present(const Frame& frame, const QWindow& window, const Dimming& dimming) = 0;
    // Whether translucent pixels of a window show what lies below it now.
    virtual bool blendsWindows() const = 0;
};
