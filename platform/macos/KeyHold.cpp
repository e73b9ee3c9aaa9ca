#include "platform/macos/KeyHold.h"

#include <utility>

namespace {

constexpr int kLimitMs = 2000;

}

KeyHold::KeyHold()
{
    m_limit.setSingleShot(true);
    m_limit.setInterval(kLimitMs);
    QObject::connect(&m_limit, &QTimer::timeout, &m_limit, [this] { end(); });
}

void KeyHold::begin(std::function<bool()> isDown)
{
    m_isDown = std::move(isDown);
    m_limit.start();
    keyReleased();
}

// A held key's repeats come as presses alone, but another key may come up before it.
void KeyHold::keyReleased()
{
    if (m_isDown && !m_isDown())
        end();
}

void KeyHold::end()
{
    m_limit.stop();
    const bool wasHeld = std::exchange(m_isDown, nullptr) != nullptr;
    if (wasHeld && onEnd)
        onEnd();
    if (const auto action = std::exchange(m_waiting, nullptr))
        action();
}

void KeyHold::whenOver(std::function<void()> action)
{
    if (isHeld())
        m_waiting = std::move(action);
    else
        action();
}
