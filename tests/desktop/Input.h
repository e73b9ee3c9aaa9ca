#pragma once

#include "tests/desktop/XClient.h"

#include <vector>

// Positions on the keyboard, as the server numbers them: they mean the same on every layout.
enum class Key : quint8 {
    Escape = 9,
    Digit1 = 10,
    Digit2 = 11,
    Digit9 = 18,
    BackSpace = 22,
    Tab = 23,
    Q = 24,
    U = 30,
    P = 33,
    Return = 36,
    Control = 37,
    A = 38,
    S = 39,
    D = 40,
    Shift = 50,
    Z = 52,
    C = 54,
    Alt = 64,
    Space = 65,
    Up = 111,
    Left = 113,
    Right = 114,
    Down = 116,
    Super = 133,
};

enum class Button : quint8 { Left = 1, Middle = 2, Right = 3, WheelUp = 4, WheelDown = 5 };

// Real keys and a real mouse: what it sends comes out of the server as from a device. Whatever is still down
// goes up when the object goes.
class Input {
public:
    explicit Input(const XClient& client);
    ~Input();

    void press(Key key);
    void release(Key key);
    // Lifts whatever is still down.
    void releaseAll();
    // Down in the given order, up in the reverse one.
    void chord(const std::vector<Key>& keys);

    // One after the other.
    void type(const std::vector<Key>& keys);

    void moveTo(QPoint point);
    void press(Button button);
    void release(Button button);
    void click(Button button);
    // Goes there and clicks with the left button.
    void clickAt(QPoint point);
    // Press, a few steps on the way, release.
    void drag(QPoint from, QPoint to);
    // From the rectangle's first pixel to the one beyond its last.
    void drag(QRect rect) { drag(rect.topLeft(), rect.bottomRight() + QPoint(1, 1)); }

private:
    void send(quint8 type, quint8 detail, QPoint point = {});

    const XClient& m_client;
    std::vector<Key> m_keysDown;
    std::vector<Button> m_buttonsDown;
};
