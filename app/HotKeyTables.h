#pragma once

#include <QKeyEvent>
#include <QString>

#include <optional>

// The words of a hot-key string. Words are lower case.
namespace HotKeyTables {

// The Carbon mask of a modifier word: 256 command, 512 shift, 2048 option, 4096 control.
std::optional<quint32> modifier(const QString& word);
// The macOS virtual key code of a key word.
std::optional<quint32> keyCode(const QString& word);

struct Chord {
    quint32 keyCode = 0;
    quint32 modifiers = 0;
    friend bool operator==(Chord, Chord) = default;
};
// A hot-key string, such as "cmd 1", in either case: words between single spaces, unknown words ignored, the
// last key word wins. Kept: modifier values are added, so a modifier named twice becomes another one, and a
// string without a key word means key code 0, the "a" key.
Chord parsed(const QString& hotKey);
// What a key event's key and its modifiers would be called; empty for a key without a position.
std::optional<Chord> pressed(const QKeyEvent& event);

}
