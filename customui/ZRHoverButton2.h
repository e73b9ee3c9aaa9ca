#pragma once

#include "customui/ZRHoverButton.h"

// A hover button that a key stands for. The key is not listened for: whoever takes the keys of the window
// offers each to performKeyEquivalent().
class ZRHoverButton2 : public ZRHoverButton {
    Q_OBJECT

public:
    using ZRHoverButton::ZRHoverButton;

    // In lower case, such as "s"; empty for none.
    QString keyEquivalent() const { return m_keyEquivalent; }
    void setKeyEquivalent(const QString& key);
    // The sum of 0x20000 shift, 0x40000 ctrl, 0x80000 alt and 0x100000 cmd.
    quint32 keyEquivalentModifierMask() const { return m_keyEquivalentModifierMask; }
    void setKeyEquivalentModifierMask(quint32 mask) { m_keyEquivalentModifierMask = mask; }

    // Sends the action when the key is the button's own; answers whether it is.
    bool performKeyEquivalent(const QString& key, quint32 modifiers);

private:
    QString m_keyEquivalent;
    quint32 m_keyEquivalentModifierMask = 0;
};
