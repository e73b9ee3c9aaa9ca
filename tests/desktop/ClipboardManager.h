#pragma once

#include "tests/desktop/XClient.h"

#include <QByteArrayList>
#include <QMap>

// A program that keeps what another one has on the clipboard when that one ends. It works only while work()
// is called.
class ClipboardManager {
public:
    // The desktop has no other manager.
    explicit ClipboardManager(const QString& displayName);

    // Handles what has arrived.
    void work();
    // Whether everything that a program wanted kept has been fetched.
    bool hasKept() const { return m_isComplete; }
    // The types in the order in which they were offered, and what was fetched of them.
    QByteArrayList types() const { return m_types; }
    QByteArray kept(const QByteArray& type) const { return m_kept.value(type); }

private:
    void startKeeping(const xcb_selection_request_event_t& request);
    void take(const xcb_selection_notify_event_t& answer);
    void takeTypes();
    void fetchNext();
    void fetch(xcb_atom_t type);
    void answerRequest();
    QByteArray takeProperty();
    QByteArray nameOf(xcb_atom_t atom) const;

    XClient m_client;
    const xcb_window_t m_window;
    const xcb_atom_t m_manager, m_clipboard, m_targets, m_saveTargets, m_property;
    xcb_selection_request_event_t m_request{};
    std::vector<xcb_atom_t> m_waiting; // the last one is fetched next
    QByteArrayList m_types;
    QMap<QByteArray, QByteArray> m_kept;
    bool m_isComplete = false;
};
