#include "platform/KeyPosition.h"

#include "platform/x11/KeyPositions.h"

std::optional<quint32> keyPosition(const QKeyEvent& event)
{
    return virtualKeyCodeAt(xcb_keycode_t(event.nativeScanCode()));
}

Qt::KeyboardModifier commandModifier()
{
    return Qt::MetaModifier;
}

Qt::KeyboardModifier controlModifier()
{
    return Qt::ControlModifier;
}
