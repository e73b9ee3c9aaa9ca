#pragma once

#include "platform/Displays.h"

#include <QTimer>

#include <AppKit/AppKit.h>

// The system's screens, in its order.
class NativeDisplays final : public Displays {
public:
    NativeDisplays();
    ~NativeDisplays() override;

    std::vector<DisplayRecord> all() const override;
    std::optional<QPoint> pointer() const override;

private:
    void markStale();
    void announceChange();

    id m_observer = nil;
    QTimer m_settled; // the last of a burst of changes has passed
    std::vector<DisplayRecord> m_announced;
    mutable bool m_stale = true;
    mutable std::vector<DisplayRecord> m_displays;
};
