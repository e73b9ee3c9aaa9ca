#include "app/EventMonitor.h"

#include "app/DnHotkeyManager.h"
#include "capture/ToolScreen.h"
#include "commonutils/CommLog.h"
#include "commonutils/NotificationCenter.h"
#include "settings/AppSettings.h"
#include "settings/NamedHotKeys.h"

#include <QHash>

#include <memory>
#include <utility>

namespace {

struct State {
    HotKeys* hotKeys = nullptr;
    MouseMonitor* mouse = nullptr;
    std::unique_ptr<DnHotkeyManager> manager;
    quint32 regionId = 0;
    quint32 fullId = 0;
    QHash<QString, quint32> namedIds;
    EventMonitor::Action captureAction;
    bool isResting = false;
};

State& state()
{
    static State current;
    return current;
}

// What the settings floor asks for by name.
class NamedKeys final : public NamedHotKeys {
public:
    void registerHotKeyMonitorWithKeyName(const QString& keyName, std::function<void()> action) override
    {
        EventMonitor::registerHotKeyMonitorWithKeyName(keyName, [action](const QString&) { action(); });
    }
    void unregisterHotKeyMonitorWithKeyName(const QString& keyName) override
    {
        EventMonitor::unregisterHotKeyMonitorWithKeyName(keyName);
    }
};

NamedKeys& namedKeys()
{
    static NamedKeys keys;
    return keys;
}

quint32 boundUnlessEmpty(const QString& hotKey, const EventMonitor::Action& action)
{
    return hotKey.isEmpty() ? 0 : state().manager->bind(hotKey, action);
}

void unbind(quint32& id)
{
    if (const quint32 bound = std::exchange(id, 0))
        state().manager->unbind(bound);
}

void postMouseAction(MouseMonitor::Action action)
{
    const ZRPoint location = ToolScreen::mouseLocation().value_or(ZRPoint{});
    NotificationCenter::defaultCenter().post(QStringLiteral("eventMonitorCallBackRegister"),
        {{QStringLiteral("eventType"), int(action)}, {QStringLiteral("eventLocationX"), float(location.x)},
            {QStringLiteral("eventLocationY"), float(location.y)}});
}

}

void EventMonitor::install(HotKeys* hotKeys, MouseMonitor* mouse)
{
    unregisterHotKeyMonitor();
    state().captureAction = nullptr;
    state().isResting = false;
    state().hotKeys = hotKeys;
    if (MouseMonitor* before = std::exchange(state().mouse, mouse))
        before->onAction = nullptr;
    AppSettings::install(hotKeys ? &namedKeys() : nullptr);
}

void EventMonitor::registerHotKeyMonitorWithAction(const Action& action)
{
    unregisterHotKeyMonitor();
    State& s = state();
    s.captureAction = action;
    if (!s.hotKeys || s.isResting)
        return;
    s.manager = std::make_unique<DnHotkeyManager>(*s.hotKeys);
    s.regionId = boundUnlessEmpty(AppSettings::regionScreenShotHotKey(), action);
    s.fullId = boundUnlessEmpty(AppSettings::fullScreenShotHotKey(), action);
}

void EventMonitor::unregisterHotKeyMonitor()
{
    State& s = state();
    if (!s.manager)
        return;
    unbind(s.regionId);
    unbind(s.fullId);
    s.manager.reset();
    s.namedIds.clear();
}

void EventMonitor::setResting(bool isResting)
{
    State& s = state();
    if (std::exchange(s.isResting, isResting) == isResting)
        return;
    if (isResting)
        unregisterHotKeyMonitor();
    else if (s.captureAction)
        registerHotKeyMonitorWithAction(Action(s.captureAction));
}

void EventMonitor::registerHotKeyMonitorWithKeyName(const QString& hotKey, const Action& action)
{
    State& s = state();
    s.namedIds[hotKey] = s.manager ? s.manager->bindForRecord(hotKey, action) : 0;
}

void EventMonitor::bindWhileItCan(const QString& hotKey, const Action& action)
{
    State& s = state();
    s.namedIds[hotKey] = s.manager ? s.manager->bindQuietly(hotKey, action) : 0;
}

void EventMonitor::unregisterHotKeyMonitorWithKeyName(const QString& hotKey)
{
    State& s = state();
    if (!s.manager || hotKey.isEmpty())
        return;
    if (hotKey == AppSettings::regionScreenShotHotKey())
        unbind(s.regionId);
    else if (hotKey == AppSettings::fullScreenShotHotKey())
        unbind(s.fullId);
    else if (quint32 id = s.namedIds.take(hotKey))
        unbind(id);
}

void EventMonitor::startEventMonitor()
{
    stopEventMonitor();
    MouseMonitor* mouse = state().mouse;
    if (!mouse)
        return;
    mouse->onAction = postMouseAction;
    if (!mouse->start())
        CommLog::log(QStringLiteral("the desktop does not tell what the mouse does"));
}

void EventMonitor::stopEventMonitor()
{
    unregisterHotKeyMonitorWithKeyName(QStringLiteral("backspace"));
}

QString EventMonitor::regionRefusal()
{
    return state().manager ? state().manager->refusal(state().regionId) : QString();
}

QString EventMonitor::fullRefusal()
{
    return state().manager ? state().manager->refusal(state().fullId) : QString();
}

QStringList EventMonitor::refusals()
{
    return state().manager ? state().manager->refusals() : QStringList{};
}
