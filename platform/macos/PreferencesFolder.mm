#include "platform/Platform.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <Foundation/Foundation.h>

namespace {

NSDictionary* systemsValues(const QString& domain)
{
    NSString* name = domain.toNSString();
    CFDictionaryRef values = CFPreferencesCopyMultiple(
        nullptr, (__bridge CFStringRef)name, kCFPreferencesCurrentUser, kCFPreferencesAnyHost);
    return CFBridgingRelease(values);
}

// A domain that cannot be written is one without settings; the defaults stand in for it.
void bringOver(const QString& domain, const QString& path)
{
    NSDictionary* values = systemsValues(domain);
    if (values.count == 0)
        return;
    [values writeToURL:[NSURL fileURLWithPath:path.toNSString()] error:nil];
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
}

}

// Not the system's own preferences folder: a process of the system keeps its files in memory and writes them
// back, with what the frameworks store under this program's name, over whatever stands there by then.
QString preferencesFolder(const QStringList& domains)
{
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    const QString folder = data + QLatin1Char('/') + domains.front();
    QDir().mkpath(folder);
    for (const QString& domain : domains) {
        const QString path = QStringLiteral("%1/%2.plist").arg(folder, domain);
        if (!QFile::exists(path))
            bringOver(domain, path);
    }
    return folder;
}
