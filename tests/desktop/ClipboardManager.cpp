#include "tests/desktop/ClipboardManager.h"

#include <algorithm>

ClipboardManager::ClipboardManager(const QString& displayName)
    : m_client(displayName)
    , m_window(xcb_generate_id(m_client.connection()))
    , m_manager(m_client.atom("CLIPBOARD_MANAGER"))
    , m_clipboard(m_client.atom("CLIPBOARD"))
    , m_targets(m_client.atom("TARGETS"))
    , m_saveTargets(m_client.atom("SAVE_TARGETS"))
    , m_property(m_client.atom("LUMORA_TEST_KEPT"))
{
    xcb_create_window(m_client.connection(), XCB_COPY_FROM_PARENT, m_window, m_client.root(), -9, -9, 1, 1, 0,
        XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_set_selection_owner(m_client.connection(), m_window, m_manager, XCB_CURRENT_TIME);
    m_client.sync();
}

void ClipboardManager::work()
{
    while (const auto event = m_client.nextEvent()) {
        const auto& request = reinterpret_cast<const xcb_selection_request_event_t&>(*event);
        const int type = event->response_type & 0x7f;
        if (type == XCB_SELECTION_REQUEST && request.target == m_saveTargets)
            startKeeping(request);
        else if (type == XCB_SELECTION_NOTIFY)
            take(reinterpret_cast<const xcb_selection_notify_event_t&>(*event));
    }
}

void ClipboardManager::startKeeping(const xcb_selection_request_event_t& request)
{
    m_request = request;
    fetch(m_targets);
}

void ClipboardManager::take(const xcb_selection_notify_event_t& answer)
{
    if (answer.target == m_targets)
        takeTypes();
    else
        m_kept[nameOf(answer.target)] = answer.property == XCB_NONE ? QByteArray() : takeProperty();
    fetchNext();
}

// Of the list only what has contents: names of media types.
void ClipboardManager::takeTypes()
{
    const QByteArray atoms = takeProperty();
    const auto* first = reinterpret_cast<const xcb_atom_t*>(atoms.constData());
    std::copy_if(first, first + atoms.size() / sizeof(xcb_atom_t), std::back_inserter(m_waiting),
        [this](xcb_atom_t atom) { return nameOf(atom).contains('/'); });
    for (const xcb_atom_t atom : m_waiting)
        m_types.push_back(nameOf(atom));
    std::reverse(m_waiting.begin(), m_waiting.end());
}

void ClipboardManager::fetchNext()
{
    if (m_waiting.empty()) {
        answerRequest();
        return;
    }
    fetch(m_waiting.back());
    m_waiting.pop_back();
}

void ClipboardManager::fetch(xcb_atom_t type)
{
    xcb_convert_selection(m_client.connection(), m_window, m_clipboard, type, m_property, XCB_CURRENT_TIME);
    xcb_flush(m_client.connection());
}

void ClipboardManager::answerRequest()
{
    xcb_selection_notify_event_t answer{};
    answer.response_type = XCB_SELECTION_NOTIFY;
    answer.time = m_request.time;
    answer.requestor = m_request.requestor;
    answer.selection = m_request.selection;
    answer.target = m_request.target;
    answer.property = m_request.property;
    xcb_send_event(m_client.connection(), false, m_request.requestor, XCB_EVENT_MASK_NO_EVENT,
        reinterpret_cast<const char*>(&answer));
    m_client.sync();
    m_isComplete = true;
}

QByteArray ClipboardManager::takeProperty()
{
    return m_client.property(m_window, m_property, true);
}

QByteArray ClipboardManager::nameOf(xcb_atom_t atom) const
{
    const auto cookie = xcb_get_atom_name(m_client.connection(), atom);
    const XClient::Owned<xcb_get_atom_name_reply_t> reply(
        xcb_get_atom_name_reply(m_client.connection(), cookie, nullptr));
    return reply ? QByteArray(xcb_get_atom_name_name(reply.get()), xcb_get_atom_name_name_length(reply.get()))
                 : QByteArray();
}
