#include "platform/x11/XModifiers.h"

#include <array>

namespace {

constexpr quint32 kCarbonCommand = 256;
constexpr quint32 kCarbonShift = 512;
constexpr quint32 kCarbonOption = 2048;
constexpr quint32 kCarbonControl = 4096;

constexpr int kFirstFreeModifier = 3; // after Shift, Lock and Control, whose meaning is fixed
constexpr int kModifiers = 8;

struct Role {
    uint16_t XModifiers::*mask;
    xcb_keysym_t left, right;
};
constexpr std::array<Role, 3> kRoles{{
    {&XModifiers::command, 0xffeb, 0xffec}, // Super_L, Super_R
    {&XModifiers::option, 0xffe9, 0xffea},  // Alt_L, Alt_R
    {&XModifiers::numLock, 0xff7f, 0xff7f}, // Num_Lock
}};

// The keysyms on each key and the keys of each modifier, as the server has them now.
class KeyboardTables {
public:
    explicit KeyboardTables(const XConnection& x)
    {
        const xcb_setup_t* setup = xcb_get_setup(x.get());
        if (!setup)
            return;
        m_firstKey = setup->min_keycode;
        const auto symbols =
            xcb_get_keyboard_mapping(x.get(), m_firstKey, setup->max_keycode - m_firstKey + 1);
        const auto modifiers = xcb_get_modifier_mapping(x.get());
        m_symbols.reset(xcb_get_keyboard_mapping_reply(x.get(), symbols, nullptr));
        m_modifiers.reset(xcb_get_modifier_mapping_reply(x.get(), modifiers, nullptr));
    }

    bool modifierHas(int modifier, const Role& role) const
    {
        if (!m_symbols || !m_modifiers)
            return false;
        const ptrdiff_t keys = m_modifiers->keycodes_per_modifier;
        const xcb_keycode_t* key = xcb_get_modifier_mapping_keycodes(m_modifiers.get()) + modifier * keys;
        for (ptrdiff_t i = 0; i < keys; ++i) {
            if (key[i] >= m_firstKey && keyHas(key[i], role))
                return true;
        }
        return false;
    }

private:
    bool keyHas(xcb_keycode_t key, const Role& role) const
    {
        const int count = m_symbols->keysyms_per_keycode;
        const int first = (key - m_firstKey) * count;
        const xcb_keysym_t* symbols = xcb_get_keyboard_mapping_keysyms(m_symbols.get());
        for (int i = first; i < first + count; ++i) {
            if (symbols[i] == role.left || symbols[i] == role.right)
                return true;
        }
        return false;
    }

    xcb_keycode_t m_firstKey = 0;
    XReply<xcb_get_keyboard_mapping_reply_t> m_symbols;
    XReply<xcb_get_modifier_mapping_reply_t> m_modifiers;
};

}

XModifiers XModifiers::read(const XConnection& connection)
{
    const KeyboardTables tables(connection);
    XModifiers result;
    for (const Role& role : kRoles) {
        for (int modifier = kModifiers - 1; modifier >= kFirstFreeModifier; --modifier) {
            if (tables.modifierHas(modifier, role))
                result.*role.mask = uint16_t(1 << modifier);
        }
    }
    return result;
}

uint16_t XModifiers::maskFor(quint32 carbonModifiers) const
{
    uint16_t mask = 0;
    if (carbonModifiers & kCarbonCommand)
        mask |= command;
    if (carbonModifiers & kCarbonShift)
        mask |= XCB_MOD_MASK_SHIFT;
    if (carbonModifiers & kCarbonOption)
        mask |= option;
    if (carbonModifiers & kCarbonControl)
        mask |= XCB_MOD_MASK_CONTROL;
    return mask;
}

uint16_t XModifiers::withoutLocks(uint16_t state) const
{
    return state & (XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_CONTROL | command | option);
}
