#pragma once

#include <QtGlobal>

#include <optional>

#include <xcb/xcb.h>

// The X keycode of the key that stands where a macOS virtual key code says. Both count positions, not
// letters, so the keyboard's layout does not matter. Empty for a code without a key.
std::optional<xcb_keycode_t> keycodeAtPosition(quint32 virtualKeyCode);
// The inverse: the virtual key code of a keycode's position, empty for one that has none.
std::optional<quint32> virtualKeyCodeAt(xcb_keycode_t keycode);
