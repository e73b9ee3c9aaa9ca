#include "customui/ZRHoverButton2.h"

void ZRHoverButton2::setKeyEquivalent(const QString& key)
{
    m_keyEquivalent = key.toLower();
}

bool ZRHoverButton2::performKeyEquivalent(const QString& key, quint32 modifiers)
{
    if (key.isEmpty() || key.toLower() != m_keyEquivalent || modifiers != m_keyEquivalentModifierMask)
        return false;
    sendAction();
    return true;
}
