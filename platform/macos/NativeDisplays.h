#pragma once

#include "platform/KeptDisplays.h"

#include <AppKit/AppKit.h>

// The system's screens, in its order.
class NativeDisplays final : public KeptDisplays {
public:
    NativeDisplays();
    ~NativeDisplays() override;

    std::optional<QPoint> pointer() const override;

private:
    std::optional<std::vector<DisplayRecord>> read() const override;

    id m_observer = nil;
};
