#include "platform/x11/NativeWorkspace.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QFileInfo>
#include <QProcess>

namespace {

const QString kBusName = QStringLiteral("lumora-file-manager");
constexpr int kFileManagerMs = 5000; // it may have to be started first
constexpr uint32_t kFromPager = 2;   // the user's own wish; a window manager does not argue with it

bool openWithDesktop(const QUrl& url)
{
    return QProcess::startDetached(QStringLiteral("xdg-open"), {url.toString(QUrl::FullyEncoded)});
}

// Waits for the file manager's answer; false where none took the file.
bool showInFileManager(const QUrl& file)
{
    QDBusMessage request = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.FileManager1"),
        QStringLiteral("/org/freedesktop/FileManager1"), QStringLiteral("org.freedesktop.FileManager1"),
        QStringLiteral("ShowItems"));
    request << QStringList(file.toString(QUrl::FullyEncoded)) << QString();
    const QDBusMessage answer = QDBusConnection::connectToBus(QDBusConnection::SessionBus, kBusName)
                                    .call(request, QDBus::Block, kFileManagerMs);
    QDBusConnection::disconnectFromBus(kBusName);
    return answer.type() == QDBusMessage::ReplyMessage;
}

xcb_get_property_cookie_t askForWindow(const XConnection& x, xcb_window_t window, xcb_atom_t name)
{
    return xcb_get_property(x.get(), false, window, name, XCB_ATOM_WINDOW, 0, 1);
}

xcb_window_t answeredWindow(const XConnection& x, xcb_get_property_cookie_t cookie)
{
    XReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(x.get(), cookie, nullptr));
    if (!reply || xcb_get_property_value_length(reply.get()) < int(sizeof(xcb_window_t)))
        return XCB_NONE;
    return *static_cast<const xcb_window_t*>(xcb_get_property_value(reply.get()));
}

}

NativeWorkspace::NativeWorkspace(std::shared_ptr<XConnection> connection)
    : m_x(std::move(connection))
    , m_activeWindow(m_x->atom("_NET_ACTIVE_WINDOW"))
    , m_wmCheck(m_x->atom("_NET_SUPPORTING_WM_CHECK"))
{
    m_revealing.setMaxThreadCount(1);
    m_revealing.setExpiryTimeout(0); // no thread lingers, so none wakes up later
}

NativeWorkspace::~NativeWorkspace()
{
    m_revealing.waitForDone();
}

ActiveApplication NativeWorkspace::activeApplication() const
{
    const auto active = askForWindow(*m_x, m_x->root(), m_activeWindow);
    const auto focus = xcb_get_input_focus(m_x->get());
    ActiveApplication application;
    application.window = answeredWindow(*m_x, active);
    XReply<xcb_get_input_focus_reply_t> reply(xcb_get_input_focus_reply(m_x->get(), focus, nullptr));
    application.focus = reply ? reply->focus : xcb_window_t(XCB_NONE);
    return application;
}

// The focus goes back at once, so that no key is lost while the window manager takes its time to raise the
// window.
void NativeWorkspace::activate(const ActiveApplication& application)
{
    if (application.focus) // an event's time may be older than the last change of focus, and then be ignored
        m_x->discard(xcb_set_input_focus_checked(
            m_x->get(), XCB_INPUT_FOCUS_PARENT, xcb_window_t(application.focus), XCB_CURRENT_TIME));
    if (application.window && hasWindowManager())
        askWindowManager(xcb_window_t(application.window));
    xcb_flush(m_x->get());
}

bool NativeWorkspace::openLink(const QUrl& link)
{
    return link.isValid() && openWithDesktop(link);
}

bool NativeWorkspace::revealFile(const QString& path)
{
    const QFileInfo file(path);
    const QUrl folder = QUrl::fromLocalFile(file.absolutePath());
    if (!QFileInfo::exists(file.absolutePath()))
        return false;
    if (!file.exists())
        return openWithDesktop(folder);
    m_revealing.start([url = QUrl::fromLocalFile(file.absoluteFilePath()), folder] {
        if (!showInFileManager(url))
            openWithDesktop(folder);
    });
    return true;
}

// The window that a manager names must name itself: a manager that crashed leaves the root's property behind.
bool NativeWorkspace::hasWindowManager() const
{
    const xcb_window_t check = windowProperty(m_x->root(), m_wmCheck);
    return check != XCB_NONE && windowProperty(check, m_wmCheck) == check;
}

xcb_window_t NativeWorkspace::windowProperty(xcb_window_t window, xcb_atom_t name) const
{
    return answeredWindow(*m_x, askForWindow(*m_x, window, name));
}

void NativeWorkspace::askWindowManager(xcb_window_t window)
{
    xcb_client_message_event_t message = {};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = m_activeWindow;
    message.data.data32[0] = kFromPager;
    message.data.data32[1] = XCB_CURRENT_TIME;
    constexpr uint32_t kToManager = XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    m_x->discard(xcb_send_event_checked(
        m_x->get(), false, m_x->root(), kToManager, reinterpret_cast<const char*>(&message)));
}
