#pragma once

#include <QString>

class ZRShortcutRecorderControl;

// Who hears what a shortcut field recorded.
class ShortcutRecordDelegate {
public:
    virtual ~ShortcutRecordDelegate() = default;

    // `keyValue` in upper case, flags as ShortcutRules.h has them; both empty when the field was cleared.
    virtual void shortcutRecordDidDone(
        ZRShortcutRecorderControl& control, const QString& keyValue, quint32 modifierFlagsValue) = 0;
    // The field was left without a shortcut.
    virtual void shortcutRecordDidCancel(ZRShortcutRecorderControl& control) = 0;
};
