#pragma once

#include "platform/Displays.h"

#include <QTimer>

// Displays that are read when somebody asks for them and kept until the desktop tells of a change. A burst of
// such notices is announced once, and only where it changed something.
class KeptDisplays : public Displays {
public:
    std::vector<DisplayRecord> all() const override;

protected:
    KeptDisplays();

    // The displays as they are now; empty when they cannot be read, which keeps the ones read before.
    virtual std::optional<std::vector<DisplayRecord>> read() const = 0;
    // To be called when the desktop can be asked: what is there now is nothing to announce.
    void begin();
    // To be called when something may have changed.
    void markStale();
    // Lives as long as the displays, for connections.
    QObject& context() { return m_settled; }

private:
    void announceChange();

    QTimer m_settled; // the last of a burst of changes has passed
    std::vector<DisplayRecord> m_announced;
    mutable bool m_stale = true;
    mutable std::vector<DisplayRecord> m_displays;
};
