#pragma once

#include "platform/MouseMonitor.h"

// A mouse that a test moves: tells what it does by calling onAction.
class FakeMouseMonitor final : public MouseMonitor {
public:
    bool start() override
    {
        ++starts;
        return true;
    }

    int starts = 0;
};
