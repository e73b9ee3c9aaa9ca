#include "platform/macos/HotKeyRules.h"

#include "platform/HotKeys.h"

#include <algorithm>

QString HotKeyRules::refusalOf(int status)
{
    switch (status) {
    case kDone:
        return {};
    case kExists:
        return HotKeyRefusal::kTaken;
    case kInvalid:
        return HotKeyRefusal::kNoKey;
    case kRefused:
        return QStringLiteral("needs Command or Control on this version of macOS");
    default:
        return QStringLiteral("was refused by the system (%1)").arg(status);
    }
}

bool HotKeyRules::isSystemKey(const std::vector<SystemKey>& keys, quint32 keyCode, quint32 modifiers)
{
    return std::any_of(keys.begin(), keys.end(), [&](const SystemKey& key) {
        return key.isEnabled && key.keyCode == keyCode && key.modifiers == modifiers;
    });
}
