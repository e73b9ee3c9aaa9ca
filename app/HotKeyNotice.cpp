#include "app/HotKeyNotice.h"

#include "app/StatusbarRules.h"
#include "output/ZRBasicLocalNotification.h"
#include "output/ZRLocalNotificationCenter.h"
#include "platform/HotKeys.h"
#include "settings/AppSettings.h"

QString textOfRefusal(const QString& reason)
{
    if (reason == HotKeyRefusal::kTaken)
        return AppSettings::getXMLValueForKeywords(u"Lumora:HotKey:TakenByOther");
    if (reason == HotKeyRefusal::kNoKey)
        return AppSettings::getXMLValueForKeywords(u"Lumora:HotKey:NoKey");
    if (reason == HotKeyRefusal::kUsedTwice)
        return AppSettings::getXMLValueForKeywords(u"Lumora:HotKey:UsedTwice");
    return {};
}

void tellOfRefusedHotKey(const QString& hotKey, const QString& reason)
{
    const QString name = StatusbarRules::keyEquivalent(hotKey).toString(QKeySequence::NativeText);
    QString title = AppSettings::getXMLValueForKeywords(u"Lumora:HotKey:Refused");
    title.replace(QLatin1String("[#Hotkey#]"), name.isEmpty() ? hotKey : name);
    ZRLocalNotificationCenter::defaultLocalNotificationCenter().deliverZRNotification(
        std::make_unique<ZRBasicLocalNotification>(title, textOfRefusal(reason), QStringLiteral("logo")));
}
