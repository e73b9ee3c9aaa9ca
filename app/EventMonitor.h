#pragma once

#include "app/__DnHotkey.h"
#include "platform/MouseMonitor.h"

#include <QStringList>

// The two capture hot keys and the extra named keys of the process, and what the mouse does anywhere.
// Class-level; needs install() first, without it nothing is ever bound. Ids are 0 while nothing is bound, and
// 0 unbinds nothing.
class EventMonitor {
public:
    using Action = __DnHotkey::Action;
    EventMonitor() = delete;

    // Borrowed; null forgets and unbinds everything.
    static void install(HotKeys* hotKeys, MouseMonitor* mouse = nullptr);

    // Binds the hot keys of the settings, in place of all that was bound before.
    static void registerHotKeyMonitorWithAction(const Action& action);
    static void unregisterHotKeyMonitor();
    // While they rest nothing is bound; the hot keys of the settings come back with the last action.
    static void setResting(bool isResting);
    static void registerHotKeyMonitorWithKeyName(const QString& hotKey, const Action& action);
    // A named key that the desktop gives us wherever it is pressed; without a word where it refuses it.
    static void bindWhileItCan(const QString& hotKey, const Action& action);
    static void unregisterHotKeyMonitorWithKeyName(const QString& hotKey);

    // From here on each action of the mouse is posted as "eventMonitorCallBackRegister" with the numbers
    // "eventType", "eventLocationX" and "eventLocationY": points, origin bottom-left of the first display.
    static void startEventMonitor();
    // Kept: unregisters the named key "backspace" only; the mouse is still listened to.
    static void stopEventMonitor();

    // Why the desktop refused a capture's hot key; empty while it is live, and when there is none.
    static QString regionRefusal();
    static QString fullRefusal();
    // A line a hot key that the desktop refused.
    static QStringList refusals();
};
