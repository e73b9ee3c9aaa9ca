#include "app/Countdown.h"

#include "app/CountdownPanel.h"
#include "app/EventMonitor.h"

#include <utility>

namespace {

constexpr int kSecondMs = 1000;
const QString kCancelKey = QStringLiteral("esc");

}

Countdown::Countdown()
{
    m_second.setSingleShot(true);
    m_second.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m_second, &QTimer::timeout, &m_second, [this] { tick(); });
}

Countdown::~Countdown() = default;

void Countdown::start(
    int seconds, const DisplayRecord& display, std::function<void()> act, std::function<void()> cancelled)
{
    m_act = std::move(act);
    m_cancelled = std::move(cancelled);
    m_left = seconds;
    m_panel = std::make_unique<CountdownPanel>();
    m_panel->onClick = [this] { cancel(); };
    m_panel->showSeconds(m_left);
    m_panel->showOn(display);
    EventMonitor::bindWhileItCan(kCancelKey, [this](const QString&) { cancel(); });
    m_second.start(kSecondMs);
}

void Countdown::tick()
{
    if (--m_left > 0) {
        m_panel->showSeconds(m_left);
        m_second.start(kSecondMs);
        return;
    }
    leave();
    std::exchange(m_act, nullptr)();
}

void Countdown::cancel()
{
    if (!isRunning())
        return;
    leave();
    std::exchange(m_cancelled, nullptr)();
}

// A click of its own may be what ends the panel.
void Countdown::leave()
{
    m_second.stop();
    EventMonitor::unregisterHotKeyMonitorWithKeyName(kCancelKey);
    m_panel->hide();
    m_panel.release()->deleteLater();
    if (onGone)
        onGone();
}
