#pragma once

#include <QString>

#include <functional>

// The refusals that a user can do something about, as the end of a sentence; there are others.
namespace HotKeyRefusal {
inline const QString kTaken = QStringLiteral("is taken by another program");
inline const QString kNoKey = QStringLiteral("is on no key of this keyboard");
inline const QString kUsedTwice = QStringLiteral("is used twice");
}

// System-wide hot keys. A key is a position on the keyboard, named by its macOS virtual key code; modifiers
// are a sum of the Carbon masks (256 command, 512 shift, 2048 option, 4096 control). Main thread only.
class HotKeys {
public:
    virtual ~HotKeys() = default;

    // Makes the combination call onPressed with `id`. Empty when it is live; otherwise the reason, and the id
    // is kept and tried again after each change of the keyboard.
    virtual QString registerHotKey(quint32 id, quint32 keyCode, quint32 modifiers) = 0;
    // An unknown id does nothing.
    virtual void unregisterHotKey(quint32 id) = 0;

    // Once a press; repeats of a held key are not presses.
    std::function<void(quint32 id)> onPressed;
    // A key became live (empty reason) or was lost (the reason) because the keyboard changed.
    std::function<void(quint32 id, const QString& reason)> onStateChange;
};
