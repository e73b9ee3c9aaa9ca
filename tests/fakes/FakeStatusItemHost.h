#pragma once

#include "platform/StatusItemHost.h"

// A desktop whose tray a test brings.
class FakeStatusItemHost final : public StatusItemHost {
public:
    void watch() override { isWatched = true; }
    bool tintsItems() const override { return false; }
    void bringTray()
    {
        if (isWatched && onFound)
            onFound();
    }

    bool isWatched = false;
};
