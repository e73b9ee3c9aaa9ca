#include "platform/macos/NativeStatusItemHost.h"

#include <utility>

void NativeStatusItemHost::watch()
{
    if (std::exchange(m_isWatching, true))
        return;
    const auto tell = [this] {
        if (onFound)
            onFound();
    };
    QMetaObject::invokeMethod(&m_context, tell, Qt::QueuedConnection);
}
