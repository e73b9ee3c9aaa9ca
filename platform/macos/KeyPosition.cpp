#include "platform/KeyPosition.h"

// Qt hands the virtual key code on as it came. An event that no key made has no scan code; code 0 is a key.
std::optional<quint32> keyPosition(const QKeyEvent& event)
{
    return event.nativeScanCode() == 0 ? std::nullopt : std::optional(event.nativeVirtualKey());
}

// Qt's Control is the Command key here, as in every shortcut of the system.
Qt::KeyboardModifier commandModifier()
{
    return Qt::ControlModifier;
}

Qt::KeyboardModifier controlModifier()
{
    return Qt::MetaModifier;
}
