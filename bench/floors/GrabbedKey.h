#pragma once

#include <xcb/xcb.h>

// A position on the keyboard with the modifiers that belong to it, taken for one connection wherever the
// focus is.
class GrabbedKey {
public:
    GrabbedKey(xcb_keycode_t position, uint16_t modifiers)
        : m_position(position)
        , m_modifiers(modifiers)
    {
    }

    // False when another program has it.
    bool grab(xcb_connection_t* connection) const;
    bool isPressedBy(const void* event) const;

private:
    xcb_keycode_t m_position;
    uint16_t m_modifiers;
};
