#pragma once

#include "output/CaptureJournal.h"
#include "platform/Displays.h"

class ZRGraffitManager;

// What is kept of a capture, so that it can be opened again.
class LastCapture {
public:
    // Borrows the displays, which must outlive it.
    explicit LastCapture(const Displays& displays);
    // Where it is kept, borrowed; null for nowhere.
    void setJournal(CaptureJournal* journal) { m_journal = journal; }

    // On the display that it was made on or, where that has gone, on one that is as large; without a result
    // `reason` says why.
    std::optional<JournalEntry> entry(QString* reason) const;
    // Takes the place of what was kept before; where the user wants nothing kept, that goes. `region` in
    // points of the frame's display.
    void keep(const std::shared_ptr<const Frame>& frame, ZRRect region, const ZRGraffitManager& annotations);

private:
    std::optional<DisplayRecord> displayLike(const DisplayRecord& display) const;

    const Displays& m_displays;
    CaptureJournal* m_journal = nullptr;
};
