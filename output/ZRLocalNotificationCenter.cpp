#include "output/ZRLocalNotificationCenter.h"

#include "commonutils/NotificationCenter.h"
#include "output/NotificationRules.h"
#include "output/ZRBasicLocalNotification.h"
#include "output/ZRCustomLocalNotification.h"
#include "output/ZRCustomNotificationWindow.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <utility>

namespace {

std::unique_ptr<ZRLocalNotificationCenter>& ownCenter()
{
    static std::unique_ptr<ZRLocalNotificationCenter> center;
    return center;
}

}

ZRLocalNotificationCenter& ZRLocalNotificationCenter::defaultLocalNotificationCenter()
{
    if (!ownCenter()) {
        ownCenter() = std::make_unique<ZRLocalNotificationCenter>(std::make_unique<NoticeClock>());
        ownCenter()->isSilent = qgetenv("LUMORA_NOTICES") == "off"; // for scripts
        qAddPostRoutine([] { ownCenter().reset(); }); // windows must not outlive the application object
    }
    return *ownCenter();
}

ZRLocalNotificationCenter::ZRLocalNotificationCenter(std::unique_ptr<NoticeClock> clock)
    : m_clock(std::move(clock))
{
    NotificationCenter::defaultCenter().addObserver(*this, QString::fromUtf16(ZRNotificationWindow::kEnded),
        [this](const QVariantMap& object) { notificationEnd(object); });
    connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, [this] { watchMainScreen(); });
    watchMainScreen();
}

ZRLocalNotificationCenter::~ZRLocalNotificationCenter() = default;

void ZRLocalNotificationCenter::deliverZRNotification(std::unique_ptr<ZRBasicLocalNotification> notification)
{
    ZRBasicLocalNotification* content = notification.release();
    auto window = std::make_unique<ZRNotificationWindow>(*m_clock, content, asksForBlending());
    window->onClick = [content] { content->click(); };
    deliver(std::move(window));
}

void ZRLocalNotificationCenter::deliverZRCustomNotification(
    std::unique_ptr<ZRCustomLocalNotification> notification)
{
    deliver(
        std::make_unique<ZRCustomNotificationWindow>(*m_clock, notification.release(), asksForBlending()));
}

void ZRLocalNotificationCenter::deliver(std::unique_ptr<ZRNotificationWindow> window)
{
    if (isSilent)
        return;
    if (m_isAway)
        m_waiting.push_back(std::move(window));
    else
        show(std::move(window));
}

void ZRLocalNotificationCenter::show(std::unique_ptr<ZRNotificationWindow> window)
{
    for (const auto& other : m_windows)
        other->movedDownDelay(NotificationRules::kBeforeOthersMs, window->height());
    if (m_windows.empty())
        window->start();
    else
        window->startWithDelay(NotificationRules::kBeforeOthersMs);
    m_windows.push_back(std::move(window));
}

// Called by the window itself: it goes when that is over.
void ZRLocalNotificationCenter::notificationEnd(const QVariantMap& object)
{
    const auto* ended = object.value(QString::fromUtf16(ZRNotificationWindow::kWindowKey)).value<QObject*>();
    const auto found = std::find_if(
        m_windows.begin(), m_windows.end(), [ended](const auto& window) { return window.get() == ended; });
    if (found == m_windows.end())
        return;
    (*found)->hide();
    m_gone.push_back(std::move(*found));
    m_windows.erase(found);
    QMetaObject::invokeMethod(
        this, [this] { m_gone.clear(); }, Qt::QueuedConnection);
}

bool ZRLocalNotificationCenter::leaveScreen()
{
    if (std::exchange(m_isAway, true))
        return false;
    m_clock->standStill();
    for (const auto& window : m_windows)
        window->leaveScreen();
    return !m_windows.empty();
}

void ZRLocalNotificationCenter::comeBack()
{
    if (!std::exchange(m_isAway, false))
        return;
    m_clock->goOn();
    for (const auto& window : m_windows)
        window->comeBack();
    for (auto& window : std::exchange(m_waiting, {}))
        show(std::move(window));
}

void ZRLocalNotificationCenter::watchMainScreen()
{
    disconnect(m_screenWatch);
    if (const QScreen* screen = QGuiApplication::primaryScreen())
        m_screenWatch = connect(screen, &QScreen::geometryChanged, this, [this] { watchMainScreen(); });
    for (const auto& window : m_windows)
        window->screenChanged();
}
