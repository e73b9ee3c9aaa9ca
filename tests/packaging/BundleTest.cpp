#include "settings/AppSettings.h"
#include "settings/PropertyList.h"

#include <QFile>

#include <gtest/gtest.h>

namespace {

QVariantMap listIn(const QString& name)
{
    QFile file(QStringLiteral(SOURCE_FOLDER "/packaging/macos/") + name);
    QString reason;
    const auto list = file.open(QIODevice::ReadOnly) ? PropertyList::parsedDictionary(file.readAll(), &reason)
                                                     : std::nullopt;
    EXPECT_TRUE(list) << qPrintable(name + QStringLiteral(": ") + reason);
    return list.value_or(QVariantMap());
}

}

TEST(MacBundle, IsAMenuBarProgramOfOurName)
{
    const QVariantMap info = listIn(QStringLiteral("Info.plist.in"));
    const QVariantMap expected{
        {QStringLiteral("CFBundleIdentifier"), AppSettings::AppBundleId()},
        {QStringLiteral("CFBundleDisplayName"), AppSettings::AppIdentify()},
        {QStringLiteral("CFBundleName"), AppSettings::AppIdentify()},
        {QStringLiteral("CFBundleExecutable"), QStringLiteral("lumora-screenshot")},
        {QStringLiteral("CFBundlePackageType"), QStringLiteral("APPL")},
        {QStringLiteral("CFBundleShortVersionString"), QStringLiteral("${PROJECT_VERSION}")},
        {QStringLiteral("LSMinimumSystemVersion"), QStringLiteral("12.0")},
        {QStringLiteral("LSUIElement"), true},
        {QStringLiteral("NSHighResolutionCapable"), true},
    };
    for (auto it = expected.begin(); it != expected.end(); ++it)
        EXPECT_EQ(info.value(it.key()), it.value()) << qPrintable(it.key());
}

TEST(MacBundle, SaysWhatEachPermissionIsFor)
{
    const QVariantMap info = listIn(QStringLiteral("Info.plist.in"));
    for (const char* what : {"ScreenCapture", "DesktopFolder", "DocumentsFolder", "DownloadsFolder",
             "NetworkVolumes", "RemovableVolumes", "LocalNetwork"}) {
        const QString key = QStringLiteral("NS%1UsageDescription").arg(QLatin1String(what));
        EXPECT_TRUE(info.value(key).toString().endsWith(QLatin1Char('.'))) << qPrintable(key);
    }
}

TEST(MacBundle, AsksForNoMoreThanItNeeds)
{
    EXPECT_EQ(listIn(QStringLiteral("direct.entitlements")), QVariantMap());
    const QVariantMap sandbox = listIn(QStringLiteral("sandbox.entitlements"));
    QStringList yes;
    for (auto it = sandbox.begin(); it != sandbox.end(); ++it)
        if (it.value() == QVariant(true))
            yes.append(QString(it.key()).remove(QStringLiteral("com.apple.security.")));
    EXPECT_EQ(yes, (QStringList{QStringLiteral("app-sandbox"), QStringLiteral("assets.pictures.read-write"),
                       QStringLiteral("files.bookmarks.app-scope"),
                       QStringLiteral("files.user-selected.read-write"), QStringLiteral("network.client")}));
    EXPECT_EQ(
        sandbox.value(QStringLiteral("com.apple.security.temporary-exception.shared-preference.read-only")),
        QVariantList{AppSettings::AppOldBundleId()});
}
