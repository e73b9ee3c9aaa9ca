#include "capture/FreezeNotice.h"

#include "capture/ZRScreenShotViewController.h"
#include "platform/WindowServer.h"
#include "settings/AppSettings.h"

void tellOfFailedFreeze(const QString& reason)
{
    const bool isForbidden = reason == FreezeRefusal::kNotPermitted;
    ZRScreenShotViewController::postLocalNotificationWithMessageTitle(
        AppSettings::getXMLValueForKeywords(u"Lumora:Capture:ScreenUnreadable"),
        isForbidden ? AppSettings::getXMLValueForKeywords(u"Lumora:Capture:NotPermitted") : QString());
}
