#include "app/__DnHotkey.h"

__DnHotkey::__DnHotkey(quint32 hotkeyID, quint32 keyRef, quint32 modifiers, Action action, HotKeys* hotKeys)
    : m_id(hotkeyID)
    , m_action(std::move(action))
    , m_hotKeys(hotKeys)
{
    if (m_hotKeys)
        m_refusal = m_hotKeys->registerHotKey(m_id, keyRef, modifiers);
}

__DnHotkey::~__DnHotkey()
{
    if (m_hotKeys)
        m_hotKeys->unregisterHotKey(m_id);
}

void __DnHotkey::invoke() const
{
    if (m_action)
        m_action(m_hotkey);
}
