#include "platform/x11/NativeStatusItemHost.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QDBusVariant>

namespace {

const QString kBusName = QStringLiteral("lumora-status-item");
const QString kWatcher = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString kWatcherPath = QStringLiteral("/StatusNotifierWatcher");

QDBusMessage questionForHost()
{
    QDBusMessage question = QDBusMessage::createMethodCall(
        kWatcher, kWatcherPath, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    question << kWatcher << QStringLiteral("IsStatusNotifierHostRegistered");
    question.setAutoStartService(false);
    return question;
}

bool isYes(const QDBusMessage& answer)
{
    return answer.type() == QDBusMessage::ReplyMessage &&
           answer.arguments().value(0).value<QDBusVariant>().variant().toBool();
}

bool isSilence(const QDBusMessage& answer)
{
    const QDBusError error(answer);
    return error.type() == QDBusError::NoReply || error.type() == QDBusError::Timeout ||
           error.type() == QDBusError::TimedOut;
}

}

NativeStatusItemHost::NativeStatusItemHost(std::shared_ptr<XConnection> connection)
    : m_x(std::move(connection))
{
    m_connecting.setExpiryTimeout(0); // no thread lingers, so none wakes up later
}

NativeStatusItemHost::~NativeStatusItemHost()
{
    m_connecting.waitForDone();
    stopWatching();
}

void NativeStatusItemHost::watch()
{
    if (std::exchange(m_isWatching, true))
        return;
    m_traySelection = m_x->atom("_NET_SYSTEM_TRAY_S0");
    m_x->addListener(this);
    m_connecting.start([this] {
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, kBusName);
        QMetaObject::invokeMethod(
            this, [this] { busIsThere(); }, Qt::QueuedConnection);
    });
}

void NativeStatusItemHost::busIsThere()
{
    const QDBusConnection bus(kBusName);
    if (!bus.isConnected()) {
        settleForTray();
        return;
    }
    m_bus = bus;
    m_questions = new QObject(this);
    auto* services =
        new QDBusServiceWatcher(kWatcher, bus, QDBusServiceWatcher::WatchForRegistration, m_questions);
    connect(services, &QDBusServiceWatcher::serviceRegistered, this, [this] { askNotifier(); });
    // From whomever: to name the sender would mean to wait for the bus.
    m_bus->connect(QString(), kWatcherPath, kWatcher, QStringLiteral("StatusNotifierHostRegistered"), this,
        SLOT(askNotifier()));
    askNotifier();
}

void NativeStatusItemHost::askNotifier()
{
    if (!m_isWatching)
        return;
    auto* call = new QDBusPendingCallWatcher(m_bus->asyncCall(questionForHost()), m_questions);
    connect(call, &QDBusPendingCallWatcher::finished, this, [this, call] {
        call->deleteLater();
        notifierAnswered(call->reply());
    });
}

void NativeStatusItemHost::notifierAnswered(const QDBusMessage& answer)
{
    if (isYes(answer))
        found();
    else if (!isSilence(answer))
        settleForTray();
}

void NativeStatusItemHost::settleForTray()
{
    m_hasNoNotifier = true;
    if (hasTray())
        found();
}

bool NativeStatusItemHost::hasTray() const
{
    const auto cookie = xcb_get_selection_owner(m_x->get(), m_traySelection);
    XReply<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(m_x->get(), cookie, nullptr));
    return reply && reply->owner != XCB_NONE;
}

// A tray tells everybody when it has come.
void NativeStatusItemHost::handleEvent(const xcb_generic_event_t& event)
{
    if (typeOf(event) != XCB_CLIENT_MESSAGE || !m_hasNoNotifier)
        return;
    const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(event);
    if (message.window == m_x->root() && message.data.data32[1] == m_traySelection)
        QMetaObject::invokeMethod(
            this, [this] { settleForTray(); }, Qt::QueuedConnection);
}

void NativeStatusItemHost::found()
{
    if (!m_isWatching)
        return;
    stopWatching();
    if (onFound)
        onFound();
}

void NativeStatusItemHost::stopWatching()
{
    if (!std::exchange(m_isWatching, false))
        return;
    m_x->removeListener(this);
    if (m_questions)
        m_questions->deleteLater();
    m_bus.reset();
    QDBusConnection::disconnectFromBus(kBusName);
}
