#pragma once

#include <QString>

#include <functional>

// Hot keys that are bound and let go by their hot-key string ("cmd 1", "backspace"). Main thread only.
class NamedHotKeys {
public:
    virtual ~NamedHotKeys() = default;

    virtual void registerHotKeyMonitorWithKeyName(const QString& keyName, std::function<void()> action) = 0;
    // An unknown name does nothing.
    virtual void unregisterHotKeyMonitorWithKeyName(const QString& keyName) = 0;
};
