#pragma once

#include "platform/HotKeys.h"

#include <map>

#include <Carbon/Carbon.h>
#include <Foundation/Foundation.h>

// The event manager's hot keys. The system tells of no conflict with another program: the key then reaches
// both. Its own combinations are known and count as taken.
class NativeHotKeys final : public HotKeys {
public:
    NativeHotKeys();
    ~NativeHotKeys() override;

    QString registerHotKey(quint32 id, quint32 keyCode, quint32 modifiers) override;
    void unregisterHotKey(quint32 id) override;

private:
    struct Binding {
        quint32 keyCode = 0;
        quint32 modifiers = 0;
        EventHotKeyRef registered = nullptr; // null while refused
        QString refusal;
    };

    static OSStatus pressed(EventHandlerCallRef next, EventRef event, void* self);
    static void bind(quint32 id, Binding& binding);
    static void unbind(Binding& binding);
    void bindAgain();

    std::map<quint32, Binding> m_bindings;
    EventHandlerRef m_handler = nullptr;
    id m_observer = nil;
};
