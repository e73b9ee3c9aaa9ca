#pragma once

#include "commonutils/CommAppInfo.h"
#include "platform/ScreenInfo.h"
#include "platform/Workspace.h"

#include <QByteArray>
#include <QColor>
#include <QImage>
#include <QPointF>
#include <QString>
#include <QStringList>
#include <QStringView>
#include <QVariant>

#include <functional>
#include <optional>
#include <span>

class LoginItem;
class NamedHotKeys;
class QScreen;

// The settings of the process's standard store by name, each on disk when its setter returns, and the facts
// and services that all floors ask for. Never instantiated. Main thread only. Without a store reads give the
// values for absent keys and writes do nothing.
class AppSettings {
public:
    AppSettings() = delete;

    // Registers the values of a property list for the keys that the user never set. A missing file registers
    // nothing; nor does a broken one, which is logged.
    static void initSettingInNeed(const QString& defaultsPath);
    // What the services below speak to; borrowed, null for "does nothing".
    static void install(Workspace* workspace, LoginItem* loginItem);
    static void install(NamedHotKeys* hotKeys);

    // Any key: the current domain, then the older identifier's, then the registered defaults. Other types are
    // converted as ValueRules has it.
    static QVariant getFromUserDefaultsObject(const QString& key);
    static QByteArray getFromUserDefaultsData(const QString& key);
    static bool getFromUserDefaultsBOOL(const QString& key);
    static qint64 getFromUserDefaultsInteger(const QString& key);
    static double getFromUserDefaultsDouble(const QString& key);
    static bool getFromUserDefaultsBOOL(const QString& key, bool defaultValue);
    static int getFromUserDefaultsInteger(const QString& key, int defaultValue);
    static void saveToUserDefaultsForKeyBOOLValue(const QString& key, bool value);
    static void saveToUserDefaultsForKeyIngeterValue(const QString& key, qint64 value);
    static void saveToUserDefaultsForKeyDoubleValue(const QString& key, double value);
    // An invalid value removes the key.
    static void saveToUserDefaultsForKeyObjectValue(const QString& key, const QVariant& value);

    // Hot-key strings, such as "cmd 1"; lower case when read; "" stands for none.
    static QString regionScreenShotHotKey();
    static void setRegionScreenShotHotKey(const QString& hotKey);
    static QString fullScreenShotHotKey();
    static void setFullScreenShotHotKey(const QString& hotKey);

    static bool isNeedShowStartWindowAgain();
    static void setNeedShowStartWindowAgain(bool isNeeded);
    static bool canUseWindowRecognize();
    static void setUseWindowRecognize(bool canUse);
    static bool isNeedShowUploadToCloudView();
    static void setIsNeedShowUploadToCloudView(bool isNeeded);
    static bool IsOpenScreenshotLinkAfterUpload();
    static void setIsOpenScreenshotLinkAfterUpload(bool isOpened);
    static bool getMosicModel();
    static void saveMosicModel(bool model);
    // Whether a mosaic tells nothing about what it hides.
    static bool isMosaicSecure();
    static void setMosaicSecure(bool isSecure);
    // Whether the last capture can be opened again; yes until the user says no.
    static bool isLastCaptureKept();
    static void setLastCaptureKept(bool isKept);
    // The region that was captured last, "WxH+X+Y@display"; empty before the first one.
    static QString lastRegion();
    static void setLastRegion(const QString& region);
    // The address that pictures are uploaded to; empty when none is set.
    static QString uploadEndpoint();
    static void setUploadEndpoint(const QString& address);
    static bool isNeedAppStartWhenComputerPowerOn();
    static void setNeedAppStartWhenComputerPowerOn(bool isNeeded);

    // The extension with its dot, in lower case.
    static QString screenshotType();
    static void setScreenshotType(const QString& type);
    // 8: device pixels; 16: points. Any other stored number reads as 8.
    static int imageQualityUserNeed();
    static void setImageQuality(int quality);
    static QString ClientLanguage();
    static void setClientLanguage(const QString& language);
    // Null when none was set.
    static QString getChannelProviderID();
    static void setChannelProviderID(const QString& channel);
    // The ids of the languages in the menu, in its order.
    static QStringList getLangMenu();
    static void setLangMenu(const QStringList& languageIds);
    // In memory only.
    static QString onlineLanguage();
    static void setOnlineLanguage(const QString& language);

    // The texts of the languages that were read, as XMLParser.h has it; null where there is none.
    static QString getXMLValueForKey(QStringView key, QStringView xmlIdentifier);
    static QString getXMLValueForkey(
        QStringView key, std::span<const QStringView> withSuperKeys, QStringView parserIdentifier);
    static QStringList getXMLValuesForKey(QStringView key, QStringView parserIdentifier);
    // The text of the current language, as "Comm:About". One that is missing is logged, once.
    static QString getXMLValueForKeywords(QStringView keywords);

    // The display being captured and the first display; nothing removes the record.
    static std::optional<ScreenInfo> getCurrentScreenInfo();
    static void setCurrentScreenInfo(const std::optional<ScreenInfo>& screen);
    static std::optional<ScreenInfo> getFistScreenInfo();
    static void setFistScreenInfo(const std::optional<ScreenInfo>& screen);

    static QString VersionCode();
    static int VersionCodeInt();
    static QString ClientVersion();
    static QString AppBundleId();
    static QString AppOldBundleId();
    static int AppVersionType();
    static QString AppVersionTypeString();
    static QString AppIdentify();
    static QString reportName();
    static int AppID();
    static bool appDebug();
    static QString appPath();
    // Null when there is none.
    static QScreen* firstScreen();

    // The facts above with the current language and the links of the settings.
    static CommAppInfo getCommAppInfo();
    static QString ClientName();
    static QString ClientCopyright();
    // Empty when none is configured.
    static QString forumURL();
    static QString onlineHelpURL();
    static QString FAQUrl();

    // "Screenshot" and the local time to the millisecond, without an extension.
    static QString screenshotName();
    // The folder that the user chose, else the default one, which is then made and remembered. A folder that
    // cannot be made is not remembered.
    static QString choosedScreenshotSavePath();
    static void setScreenshotSavePath(const QString& folder);
    static QString defaultChooseScreenshotSavePath();
    // Makes the default folder where there is none. Kept: a folder made so becomes the save folder, also
    // where the user had chosen another.
    static void checkDefaultPicturesSavePath();
    // The file that a capture of this moment goes to.
    static QString screenshotSavePath();

    // A failure is logged.
    static void registerAppLaunchWhenComputerPowerOn();
    static void unregisterAppLaunchWhenComputerPowerOn();

    // Remembers the application that is active now, in the place of one remembered before.
    static void updateLastRunningAndActiveApp();
    static ActiveApplication lastRunningAndActiveApp();
    // Brings the remembered application to the front and forgets it.
    static void restoreLastRunningAndActiveApp();

    // The last word of a hot-key string.
    static QString getKeyValueOfShortcut(const QString& shortcut);
    // The sum of 0x20000 shift, 0x40000 ctrl, 0x80000 alt and 0x100000 cmd for the words before the last.
    static quint32 getModifiterFlagsValueOfShortcut(const QString& shortcut);
    static void registerHotKeyMonitorWithKeyName(const QString& keyName, std::function<void()> action);
    static void unregisterHotKeyMonitorWithKeyName(const QString& keyName);

    // As LanguageCodes.h has it.
    static QString GetLangNameFromCode(const QString& code);
    // Lower-case hexadecimal of at least two digits.
    static QString ToHex(long value);
    // The pixel nearest to a location in image pixels, origin top-left, y down; colour components
    // premultiplied by alpha. Nothing outside the image.
    static std::optional<QColor> getPixelColorAtLocation(QPointF location, const QImage& withImage);
    // The picture in premultiplied ARGB; null, and a word on stderr, when there is none.
    static QImage createARGBBitmapContextFromImage(const QImage& image);
};
