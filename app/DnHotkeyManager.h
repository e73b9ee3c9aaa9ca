#pragma once

#include "app/__DnHotkey.h"

#include <QStringList>

#include <map>
#include <memory>

// Turns hot-key strings into registered hot keys and calls their actions. Ids count from 1 and are never
// handed out twice by one manager.
class DnHotkeyManager {
public:
    using Action = __DnHotkey::Action;

    // Borrows `hotKeys` and listens to it until the manager's end.
    explicit DnHotkeyManager(HotKeys& hotKeys);
    ~DnHotkeyManager();

    quint32 bind(const QString& hotKey, Action action);
    // Like bind(), telling nobody of a refusal.
    quint32 bindQuietly(const QString& hotKey, Action action);
    // Like bind(), without a grab: for a key that the overlay gets by itself.
    quint32 bindForRecord(const QString& hotKey, Action action);
    // An id that is not bound does nothing.
    void unbind(quint32 id);
    void _dispatch(quint32 id);

    // Why a hot key does not work; empty when it does, and for an id that is not bound.
    QString refusal(quint32 id) const;
    // A line a hot key that does not work, with the reason.
    QStringList refusals() const;

    // The notification of a hot key that the desktop refuses, or begins to refuse, with its string and
    // the reason.
    static constexpr char16_t kRefused[] = u"hotKeyRefused";
    static constexpr char16_t kRefusedKey[] = u"hotKey";
    static constexpr char16_t kReasonKey[] = u"reason";
    // The notification of a hot key that became live or was lost because the keyboard changed.
    static constexpr char16_t kStateChanged[] = u"hotKeyStateChanged";

private:
    quint32 keep(const QString& hotKey, Action action, HotKeys* hotKeys);
    void stateChanged(quint32 id, const QString& reason);

    HotKeys& m_hotKeys;
    std::map<quint32, std::unique_ptr<__DnHotkey>> m_bound;
    quint32 m_nextId = 1;
};
