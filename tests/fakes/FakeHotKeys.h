#pragma once

#include "platform/HotKeys.h"

#include <map>

// Hot keys that a test presses.
class FakeHotKeys final : public HotKeys {
public:
    struct Key {
        quint32 keyCode = 0, modifiers = 0;
        friend bool operator==(Key, Key) = default;
    };

    QString registerHotKey(quint32 id, quint32 keyCode, quint32 modifiers) override
    {
        keys[id] = {keyCode, modifiers};
        return refusal;
    }
    void unregisterHotKey(quint32 id) override { keys.erase(id); }

    // Does nothing for an id that is not registered.
    void press(quint32 id)
    {
        if (keys.contains(id) && onPressed)
            onPressed(id);
    }

    std::map<quint32, Key> keys;
    QString refusal; // not empty: every registration is refused, for this reason
};
