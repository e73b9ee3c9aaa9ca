#pragma once

#include "platform/StatusItemHost.h"

#include <QObject>

// The menu bar, which is always there.
class NativeStatusItemHost final : public StatusItemHost {
public:
    void watch() override;
    bool tintsItems() const override { return true; } // the menu bar is light or dark

private:
    QObject m_context; // of the call that waits in the event loop
    bool m_isWatching = false;
};
