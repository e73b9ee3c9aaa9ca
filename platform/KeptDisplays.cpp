#include "platform/KeptDisplays.h"

namespace {

constexpr int kSettleMs = 100; // one change of a monitor comes as several notices

}

KeptDisplays::KeptDisplays()
{
    m_settled.setSingleShot(true);
    m_settled.setInterval(kSettleMs);
    QObject::connect(&m_settled, &QTimer::timeout, &m_settled, [this] { announceChange(); });
}

std::vector<DisplayRecord> KeptDisplays::all() const
{
    if (!m_stale)
        return m_displays;
    if (auto displays = read()) {
        m_displays = std::move(*displays);
        m_stale = false;
    }
    return m_displays;
}

void KeptDisplays::begin()
{
    m_announced = all();
}

void KeptDisplays::markStale()
{
    m_stale = true;
    m_settled.start();
}

// Qt may have taken the change over after the first look at it.
void KeptDisplays::announceChange()
{
    m_stale = true;
    if (all() == m_announced)
        return;
    m_announced = m_displays;
    if (onChange)
        onChange();
}
