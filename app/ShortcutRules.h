#pragma once

#include <QString>
#include <Qt>

// What can be recorded as a shortcut and how it is written. Flags are a sum of the four below.
namespace ShortcutRules {

constexpr quint32 kShift = 0x20000;
constexpr quint32 kControl = 0x40000;
constexpr quint32 kOption = 0x80000;
constexpr quint32 kCommand = 0x100000;

// The text of the key at a macOS virtual key code, in lower case; empty when it cannot be recorded. Kept: the
// semicolon's key is "k" and page-down's "f2", while K's and F2's own keys cannot be recorded; "[" and "]"
// can, although no hot key has such a word.
QString keyText(quint32 keyCode);
quint32 modifierFlags(Qt::KeyboardModifiers held);
// The flags' symbols: control, option, shift, command.
QString symbols(quint32 flags);
// "ctrl alt shift cmd", those that are in the flags, then the key's text as it is.
QString hotKeyString(const QString& keyText, quint32 flags);
// "cmd 1" as "Cmd+1".
QString capitalized(const QString& hotKey);

}
