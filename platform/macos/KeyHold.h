#pragma once

#include <QTimer>

#include <functional>

// The time between the end of what a key ended and that key's release, two seconds at most. Who wants to hand
// the keyboard to another program waits for it. Main thread only.
class KeyHold {
public:
    KeyHold();

    // Ends at once when the key is up. `isDown` is asked at every release.
    void begin(std::function<bool()> isDown);
    void keyReleased();
    void end();
    bool isHeld() const { return m_isDown != nullptr; }
    // Now, or at the end; a later one takes the place of one that waits.
    void whenOver(std::function<void()> action);

    // When a hold that has begun ends, before what waits for it.
    std::function<void()> onEnd;

private:
    std::function<bool()> m_isDown; // null while nothing is held
    std::function<void()> m_waiting;
    QTimer m_limit;
};
