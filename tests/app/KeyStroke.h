#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

// Keys by their positions, as the keyboard sends them.
namespace KeyStroke {

struct Position {
    quint32 scanCode;
    Qt::Key key;
};
constexpr Position kDigit5{14, Qt::Key_5};
constexpr Position kK{45, Qt::Key_K};
constexpr Position kSemicolon{47, Qt::Key_Semicolon};
constexpr Position kEscape{9, Qt::Key_Escape};
constexpr Position kTab{23, Qt::Key_Tab};
constexpr Position kSuper{133, Qt::Key_Meta};
constexpr Position kControl{37, Qt::Key_Control};

// True when the widget passed the event on.
inline bool send(
    QWidget& widget, QEvent::Type type, Position key, Qt::KeyboardModifiers held, bool isRepeat = false)
{
    QKeyEvent event(type, key.key, held, key.scanCode, 0, 0, QString(), isRepeat);
    QApplication::sendEvent(&widget, &event);
    return !event.isAccepted();
}
inline bool press(QWidget& widget, Position key, Qt::KeyboardModifiers held = {})
{
    return send(widget, QEvent::KeyPress, key, held);
}
inline bool release(QWidget& widget, Position key, Qt::KeyboardModifiers held = {})
{
    return send(widget, QEvent::KeyRelease, key, held);
}

}
