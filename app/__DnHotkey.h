#pragma once

#include "platform/HotKeys.h"

#include <functional>

// One registered hot key: live from its making to its end, unless the desktop refused it.
class __DnHotkey {
public:
    using Action = std::function<void(const QString& hotKey)>;

    // Where `hotKeys` is null the key is only kept for the record and grabs nothing.
    __DnHotkey(quint32 hotkeyID, quint32 keyRef, quint32 modifiers, Action action, HotKeys* hotKeys);
    ~__DnHotkey();
    __DnHotkey(const __DnHotkey&) = delete;
    __DnHotkey& operator=(const __DnHotkey&) = delete;

    // The hot-key string it was bound with.
    const QString& hotkey() const { return m_hotkey; }
    void setHotkey(const QString& hotkey) { m_hotkey = hotkey; }
    // Why the desktop refused it; empty while it is live.
    const QString& refusal() const { return m_refusal; }
    void setRefusal(const QString& reason) { m_refusal = reason; }

    void invoke() const;

private:
    const quint32 m_id;
    const Action m_action;
    HotKeys* const m_hotKeys;
    QString m_hotkey;
    QString m_refusal;
};
