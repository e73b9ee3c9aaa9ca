#pragma once

#include "platform/MouseMonitor.h"

#include <AppKit/AppKit.h>

// Listens to other programs' events and to our own.
class NativeMouseMonitor final : public MouseMonitor {
public:
    ~NativeMouseMonitor() override;

    bool start() override;

private:
    void tell(NSEvent* event) const;

    id m_others = nil;
    id m_own = nil;
};
