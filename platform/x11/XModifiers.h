#pragma once

#include "platform/x11/XConnection.h"

#include <QtGlobal>

// Which of the server's eight modifiers the modifier keys are on this keyboard, as masks of an event's state.
struct XModifiers {
    uint16_t command = XCB_MOD_MASK_4; // the Super keys
    uint16_t option = XCB_MOD_MASK_1;  // the Alt keys
    uint16_t numLock = 0;              // 0 without that key
    // Asks the server; what it does not tell stays as above.
    static XModifiers read(const XConnection& connection);

    // The mask for a sum of the Carbon modifier values; bits of no modifier are left out.
    uint16_t maskFor(quint32 carbonModifiers) const;
    // An event's state without the locks, the buttons and the keyboard group.
    uint16_t withoutLocks(uint16_t state) const;

    friend bool operator==(const XModifiers&, const XModifiers&) = default;
};
