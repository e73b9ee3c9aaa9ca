#include "platform/x11/KeyPositions.h"

#include <algorithm>
#include <array>

namespace {

// The index is the virtual key code; keycodes are the kernel's key numbers plus 8; 0 where no key stands.
constexpr std::array<xcb_keycode_t, 127> kKeycodes{
    38, 39, 40, 41, 43, 42, 52, 53, 54, 55, // 0   a s d f h g z x c v
    0, 56, 24, 25, 26, 27, 29, 28, 10, 11,  // 10  - b q w e r y t 1 2
    12, 13, 15, 14, 21, 18, 16, 20, 17, 19, // 20  3 4 6 5 = 9 7 - 8 0
    35, 32, 30, 34, 31, 33, 36, 46, 44, 48, // 30  ] o u [ i p return l j '
    45, 47, 51, 59, 61, 57, 58, 60, 23, 65, // 40  k ; \ , / n m . tab space
    49, 22, 0, 9, 0, 0, 0, 0, 0, 0,         // 50  ` backspace - escape
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0,           // 60
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0,           // 70
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0,           // 80
    0, 0, 0, 0, 0, 0, 71, 72, 73, 69,       // 90  f5 f6 f7 f3
    74, 75, 0, 95, 0, 191, 0, 192, 0, 76,   // 100 f8 f9 - f11 - f13 - f14 - f10
    0, 96, 0, 193, 0, 0, 0, 0, 70, 0,       // 110 - f12 - f15 - - - - f4 -
    68, 117, 67, 113, 114, 116, 111,        // 120 f2 page-down f1 left right down up
};

}

std::optional<xcb_keycode_t> keycodeAtPosition(quint32 virtualKeyCode)
{
    if (virtualKeyCode >= kKeycodes.size() || kKeycodes[virtualKeyCode] == 0)
        return std::nullopt;
    return kKeycodes[virtualKeyCode];
}

std::optional<quint32> virtualKeyCodeAt(xcb_keycode_t keycode)
{
    const auto it = std::find(kKeycodes.begin(), kKeycodes.end(), keycode);
    if (keycode == 0 || it == kKeycodes.end())
        return std::nullopt;
    return quint32(it - kKeycodes.begin());
}
