#include "settings/AppSettings.h"

#include "commonutils/CommLog.h"
#include "platform/LoginItem.h"
#include "settings/LanguageCodes.h"
#include "settings/NamedHotKeys.h"
#include "settings/PropertyList.h"
#include "settings/SettingsKeys.h"
#include "settings/UserDefaults.h"
#include "settings/ValueRules.h"
#include "settings/ZRParserManager.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QStandardPaths>

#include <array>
#include <cmath>
#include <cstdio>
#include <utility>
#include <vector>

using namespace SettingsKeys;

namespace {

constexpr int kEdition = 7;
constexpr int kEditionWithoutAutoLaunch = 2;
constexpr int kBestResolution = 8;
constexpr int kNominalResolution = 16;

struct Modifier {
    QLatin1String word;
    quint32 flag;
};
constexpr std::array<Modifier, 4> kModifiers{{
    {QLatin1String("ctrl"), 0x40000},
    {QLatin1String("alt"), 0x80000},
    {QLatin1String("shift"), 0x20000},
    {QLatin1String("cmd"), 0x100000},
}};

struct Link {
    const QString* key;
    QString CommAppInfo::*field;
};
constexpr std::array<Link, 8> kLinks{{
    {&kHomeLink, &CommAppInfo::homeURL},
    {&kSupportLink, &CommAppInfo::supportURL},
    {&kFAQLink, &CommAppInfo::FAQURL},
    {&kForumLink, &CommAppInfo::forumURL},
    {&kProductLink, &CommAppInfo::productURL},
    {&kVideoRecorderLink, &CommAppInfo::videoRecorderURL},
    {&kFeedbackLink, &CommAppInfo::feedbackURL},
    {&kUpdateLink, &CommAppInfo::updateURL},
}};

Workspace* s_workspace = nullptr;
LoginItem* s_loginItem = nullptr;
NamedHotKeys* s_hotKeys = nullptr;
ActiveApplication s_lastActive;
QString s_onlineLanguage;

std::optional<QString> storedText(const QString& key)
{
    return ValueRules::formatted(AppSettings::getFromUserDefaultsObject(key));
}

void storeText(const QString& key, const QString& text)
{
    AppSettings::saveToUserDefaultsForKeyObjectValue(key, text);
}

// Archived values are kept as data that holds a property list of its own.
QVariant storedArchive(const QString& key)
{
    const QByteArray archive = AppSettings::getFromUserDefaultsData(key);
    QString reason;
    return archive.isEmpty() ? QVariant() : PropertyList::parsed(archive, &reason).value_or(QVariant());
}

void storeArchive(const QString& key, const QVariant& value)
{
    AppSettings::saveToUserDefaultsForKeyObjectValue(key, PropertyList::binary(value));
}

std::optional<ScreenInfo> storedScreen(const QString& key)
{
    return ScreenInfo::decoded(storedArchive(key).toMap());
}

void logMissingText(QStringView keywords, const QString& language)
{
    struct Text {
        QString language, keywords;
    };
    static std::vector<Text> logged;
    for (const Text& text : logged)
        if (text.language == language && text.keywords == keywords)
            return;
    logged.push_back({language, keywords.toString()});
    CommLog::log(QStringLiteral("the language %1 has no text for \"%2\""), language, logged.back().keywords);
}

void storeScreen(const QString& key, const std::optional<ScreenInfo>& screen)
{
    if (screen)
        storeArchive(key, screen->encoded());
    else
        AppSettings::saveToUserDefaultsForKeyObjectValue(key, QVariant());
}

}

void AppSettings::initSettingInNeed(const QString& defaultsPath)
{
    UserDefaults* store = UserDefaults::standardUserDefaults();
    QFile file(defaultsPath);
    if (!store || !file.open(QIODevice::ReadOnly))
        return;
    QString reason;
    const auto values = PropertyList::parsedDictionary(file.read(PropertyList::kLargest + 1), &reason);
    if (values)
        store->registerDefaults(*values);
    else
        CommLog::log(QStringLiteral("default settings %1 cannot be read: %2"), defaultsPath, reason);
}

void AppSettings::install(Workspace* workspace, LoginItem* loginItem)
{
    s_workspace = workspace;
    s_loginItem = loginItem;
}

void AppSettings::install(NamedHotKeys* hotKeys)
{
    s_hotKeys = hotKeys;
}

QVariant AppSettings::getFromUserDefaultsObject(const QString& key)
{
    const UserDefaults* store = UserDefaults::standardUserDefaults();
    if (!store)
        return {};
    if (QVariant current = store->getObject(key, AppBundleId()); current.isValid())
        return current;
    QVariant older = store->getObject(key, AppOldBundleId());
    return older.isValid() ? older : store->objectForKey(key);
}

QByteArray AppSettings::getFromUserDefaultsData(const QString& key)
{
    return ValueRules::dataValue(getFromUserDefaultsObject(key));
}

bool AppSettings::getFromUserDefaultsBOOL(const QString& key)
{
    return ValueRules::boolValue(getFromUserDefaultsObject(key));
}

qint64 AppSettings::getFromUserDefaultsInteger(const QString& key)
{
    return ValueRules::integerValue(getFromUserDefaultsObject(key));
}

double AppSettings::getFromUserDefaultsDouble(const QString& key)
{
    return ValueRules::doubleValue(getFromUserDefaultsObject(key));
}

// Kept: these two go by the value's text, so a real number between -1 and 1 is false.
bool AppSettings::getFromUserDefaultsBOOL(const QString& key, bool defaultValue)
{
    const std::optional<QString> text = storedText(key);
    return text ? ValueRules::boolValue(*text) : defaultValue;
}

int AppSettings::getFromUserDefaultsInteger(const QString& key, int defaultValue)
{
    const std::optional<QString> text = storedText(key);
    return text ? ValueRules::intValue(*text) : defaultValue;
}

void AppSettings::saveToUserDefaultsForKeyBOOLValue(const QString& key, bool value)
{
    saveToUserDefaultsForKeyObjectValue(key, value);
}

void AppSettings::saveToUserDefaultsForKeyIngeterValue(const QString& key, qint64 value)
{
    saveToUserDefaultsForKeyObjectValue(key, value);
}

void AppSettings::saveToUserDefaultsForKeyDoubleValue(const QString& key, double value)
{
    saveToUserDefaultsForKeyObjectValue(key, value);
}

void AppSettings::saveToUserDefaultsForKeyObjectValue(const QString& key, const QVariant& value)
{
    if (UserDefaults* store = UserDefaults::standardUserDefaults())
        store->setObject(value, key);
}

QString AppSettings::regionScreenShotHotKey()
{
    return storedText(kRegionHotKey).value_or(QStringLiteral("cmd 1")).toLower();
}

void AppSettings::setRegionScreenShotHotKey(const QString& hotKey)
{
    storeText(kRegionHotKey, hotKey);
}

QString AppSettings::fullScreenShotHotKey()
{
    return storedText(kFullScreenHotKey).value_or(QStringLiteral("cmd 2")).toLower();
}

void AppSettings::setFullScreenShotHotKey(const QString& hotKey)
{
    storeText(kFullScreenHotKey, hotKey);
}

bool AppSettings::isNeedShowStartWindowAgain()
{
    return getFromUserDefaultsBOOL(kShowStartWindow);
}

void AppSettings::setNeedShowStartWindowAgain(bool isNeeded)
{
    saveToUserDefaultsForKeyBOOLValue(kShowStartWindow, isNeeded);
}

bool AppSettings::canUseWindowRecognize()
{
    return getFromUserDefaultsBOOL(kWindowRecognize);
}

void AppSettings::setUseWindowRecognize(bool canUse)
{
    saveToUserDefaultsForKeyBOOLValue(kWindowRecognize, canUse);
}

bool AppSettings::isNeedShowUploadToCloudView()
{
    return getFromUserDefaultsBOOL(kShowUploadView);
}

void AppSettings::setIsNeedShowUploadToCloudView(bool isNeeded)
{
    saveToUserDefaultsForKeyBOOLValue(kShowUploadView, isNeeded);
}

bool AppSettings::IsOpenScreenshotLinkAfterUpload()
{
    return getFromUserDefaultsBOOL(kOpenLink, true);
}

void AppSettings::setIsOpenScreenshotLinkAfterUpload(bool isOpened)
{
    saveToUserDefaultsForKeyBOOLValue(kOpenLink, isOpened);
}

bool AppSettings::getMosicModel()
{
    return getFromUserDefaultsBOOL(kMosaicMode, true);
}

void AppSettings::saveMosicModel(bool model)
{
    saveToUserDefaultsForKeyBOOLValue(kMosaicMode, model);
}

bool AppSettings::isMosaicSecure()
{
    return getFromUserDefaultsBOOL(kMosaicSecure);
}

void AppSettings::setMosaicSecure(bool isSecure)
{
    saveToUserDefaultsForKeyBOOLValue(kMosaicSecure, isSecure);
}

bool AppSettings::isLastCaptureKept()
{
    return getFromUserDefaultsBOOL(kKeepLastCapture, true);
}

void AppSettings::setLastCaptureKept(bool isKept)
{
    saveToUserDefaultsForKeyBOOLValue(kKeepLastCapture, isKept);
}

QString AppSettings::lastRegion()
{
    return storedText(kLastRegion).value_or(QString());
}

void AppSettings::setLastRegion(const QString& region)
{
    storeText(kLastRegion, region);
}

QString AppSettings::uploadEndpoint()
{
    return storedText(kUploadEndpoint).value_or(QString());
}

void AppSettings::setUploadEndpoint(const QString& address)
{
    storeText(kUploadEndpoint, address);
}

bool AppSettings::isNeedAppStartWhenComputerPowerOn()
{
    return AppVersionType() != kEditionWithoutAutoLaunch && getFromUserDefaultsBOOL(kAutoLaunch);
}

void AppSettings::setNeedAppStartWhenComputerPowerOn(bool isNeeded)
{
    saveToUserDefaultsForKeyBOOLValue(kAutoLaunch, isNeeded);
}

QString AppSettings::screenshotType()
{
    return storedText(kScreenshotType).value_or(QStringLiteral(".png")).toLower();
}

void AppSettings::setScreenshotType(const QString& type)
{
    storeText(kScreenshotType, type.toLower());
}

int AppSettings::imageQualityUserNeed()
{
    return getFromUserDefaultsInteger(kImageQuality) == kNominalResolution ? kNominalResolution
                                                                           : kBestResolution;
}

void AppSettings::setImageQuality(int quality)
{
    saveToUserDefaultsForKeyIngeterValue(kImageQuality, quality);
}

QString AppSettings::ClientLanguage()
{
    const QVariant language = getFromUserDefaultsObject(kClientLanguage);
    return language.typeId() == QMetaType::QString ? language.toString() : QStringLiteral("English");
}

void AppSettings::setClientLanguage(const QString& language)
{
    storeText(kClientLanguage, language);
}

QString AppSettings::getChannelProviderID()
{
    return storedText(kChannelProvider).value_or(QString());
}

void AppSettings::setChannelProviderID(const QString& channel)
{
    storeText(kChannelProvider, channel);
}

QStringList AppSettings::getLangMenu()
{
    return storedArchive(kLanguageMenu).toStringList();
}

void AppSettings::setLangMenu(const QStringList& languageIds)
{
    storeArchive(kLanguageMenu, languageIds);
}

QString AppSettings::onlineLanguage()
{
    return s_onlineLanguage;
}

void AppSettings::setOnlineLanguage(const QString& language)
{
    s_onlineLanguage = language;
}

QString AppSettings::getXMLValueForKey(QStringView key, QStringView xmlIdentifier)
{
    return ZRParserManager::getValueForKey(key, xmlIdentifier);
}

QString AppSettings::getXMLValueForkey(
    QStringView key, std::span<const QStringView> withSuperKeys, QStringView parserIdentifier)
{
    return ZRParserManager::getValueForkey(key, withSuperKeys, parserIdentifier);
}

QStringList AppSettings::getXMLValuesForKey(QStringView key, QStringView parserIdentifier)
{
    return ZRParserManager::getValuesForKey(key, parserIdentifier);
}

QString AppSettings::getXMLValueForKeywords(QStringView keywords)
{
    const QString language = ClientLanguage();
    QString text = ZRParserManager::getValueForKeywords(keywords, language);
    if (text.isNull())
        logMissingText(keywords, language);
    return text;
}

std::optional<ScreenInfo> AppSettings::getCurrentScreenInfo()
{
    return storedScreen(kCurrentScreen);
}

void AppSettings::setCurrentScreenInfo(const std::optional<ScreenInfo>& screen)
{
    storeScreen(kCurrentScreen, screen);
}

std::optional<ScreenInfo> AppSettings::getFistScreenInfo()
{
    return storedScreen(kFirstScreen);
}

void AppSettings::setFistScreenInfo(const std::optional<ScreenInfo>& screen)
{
    storeScreen(kFirstScreen, screen);
}

QString AppSettings::VersionCode()
{
    return QStringLiteral("123");
}

int AppSettings::VersionCodeInt()
{
    return 123;
}

QString AppSettings::ClientVersion()
{
    return QStringLiteral("v" LUMORA_VERSION " (Build 20/11/2020)");
}

QString AppSettings::AppBundleId()
{
    return QStringLiteral("com.Lumora.Screenshot");
}

QString AppSettings::AppOldBundleId()
{
    return QStringLiteral("com.Lumora.Snapfree");
}

int AppSettings::AppVersionType()
{
    return kEdition;
}

QString AppSettings::AppVersionTypeString()
{
    return AppVersionType() == kEdition ? QStringLiteral("saas-screenshot") : QStringLiteral("saas");
}

QString AppSettings::AppIdentify()
{
    return QStringLiteral("Lumora Mac Screenshot");
}

QString AppSettings::reportName()
{
    return AppIdentify();
}

int AppSettings::AppID()
{
    return 52;
}

bool AppSettings::appDebug()
{
    return false;
}

QString AppSettings::appPath()
{
    return QCoreApplication::applicationFilePath();
}

QScreen* AppSettings::firstScreen()
{
    return QGuiApplication::screens().value(0);
}

CommAppInfo AppSettings::getCommAppInfo()
{
    CommAppInfo info;
    info.appID = AppID();
    info.appLanguage = ClientLanguage();
    info.appType = AppVersionTypeString();
    info.appVersion = ClientVersion();
    info.appIcon = QStringLiteral("Icon256x256");
    info.appIdentifier = AppBundleId();
    info.appLocalizedName = AppIdentify();
    for (const Link& link : kLinks)
        info.*link.field = storedText(*link.key).value_or(QString()).trimmed();
    return info;
}

QString AppSettings::ClientName()
{
    return getCommAppInfo().appLocalizedName;
}

QString AppSettings::ClientCopyright()
{
    return getXMLValueForKeywords(u"Lumora:About:Copyright");
}

QString AppSettings::forumURL()
{
    return getCommAppInfo().forumURL;
}

QString AppSettings::onlineHelpURL()
{
    return getCommAppInfo().supportURL;
}

QString AppSettings::FAQUrl()
{
    return getCommAppInfo().FAQURL;
}

QString AppSettings::screenshotName()
{
    const QDateTime now = QDateTime::currentDateTime();
    return QStringLiteral("Screenshot ") + now.toString(QStringLiteral("yyyy-MM-dd_HH-mm-ss-zzz"));
}

QString AppSettings::choosedScreenshotSavePath()
{
    QString chosen = storedText(kSavePath).value_or(QString());
    if (!chosen.isEmpty())
        return chosen;
    checkDefaultPicturesSavePath();
    return defaultChooseScreenshotSavePath();
}

void AppSettings::setScreenshotSavePath(const QString& folder)
{
    storeText(kSavePath, folder);
}

QString AppSettings::defaultChooseScreenshotSavePath()
{
    return QStandardPaths::writableLocation(QStandardPaths::PicturesLocation) + QLatin1Char('/') +
           AppIdentify();
}

void AppSettings::checkDefaultPicturesSavePath()
{
    const QString folder = defaultChooseScreenshotSavePath();
    if (!QFile::exists(folder) && QDir().mkpath(folder))
        setScreenshotSavePath(folder);
}

QString AppSettings::screenshotSavePath()
{
    return QDir(choosedScreenshotSavePath()).filePath(screenshotName() + screenshotType());
}

void AppSettings::registerAppLaunchWhenComputerPowerOn()
{
    if (s_loginItem && !s_loginItem->registerItem())
        CommLog::log(QStringLiteral("the program cannot be added to those that start at login"));
}

void AppSettings::unregisterAppLaunchWhenComputerPowerOn()
{
    if (s_loginItem && !s_loginItem->unregisterItem())
        CommLog::log(QStringLiteral("the program cannot be removed from those that start at login"));
}

void AppSettings::updateLastRunningAndActiveApp()
{
    s_lastActive = s_workspace ? s_workspace->activeApplication() : ActiveApplication{};
}

ActiveApplication AppSettings::lastRunningAndActiveApp()
{
    return s_lastActive;
}

void AppSettings::restoreLastRunningAndActiveApp()
{
    const ActiveApplication remembered = std::exchange(s_lastActive, {});
    if (s_workspace && remembered.isKnown())
        s_workspace->activate(remembered);
}

QString AppSettings::getKeyValueOfShortcut(const QString& shortcut)
{
    return shortcut.split(QLatin1Char(' ')).last();
}

quint32 AppSettings::getModifiterFlagsValueOfShortcut(const QString& shortcut)
{
    QStringList words = shortcut.split(QLatin1Char(' '));
    words.removeLast();
    quint32 flags = 0;
    for (const Modifier& modifier : kModifiers)
        if (words.contains(modifier.word))
            flags |= modifier.flag;
    return flags;
}

void AppSettings::registerHotKeyMonitorWithKeyName(const QString& keyName, std::function<void()> action)
{
    if (s_hotKeys)
        s_hotKeys->registerHotKeyMonitorWithKeyName(keyName, std::move(action));
}

void AppSettings::unregisterHotKeyMonitorWithKeyName(const QString& keyName)
{
    if (s_hotKeys)
        s_hotKeys->unregisterHotKeyMonitorWithKeyName(keyName);
}

QString AppSettings::GetLangNameFromCode(const QString& code)
{
    return languageNameFromCode(code);
}

QString AppSettings::ToHex(long value)
{
    return QString::asprintf("%02lx", static_cast<unsigned long>(value));
}

std::optional<QColor> AppSettings::getPixelColorAtLocation(QPointF location, const QImage& withImage)
{
    const double x = std::round(location.x()), y = std::round(location.y());
    if (!(x >= 0 && y >= 0 && x < withImage.width() && y < withImage.height()))
        return std::nullopt;
    const QImage pixel =
        createARGBBitmapContextFromImage(withImage.copy(static_cast<int>(x), static_cast<int>(y), 1, 1));
    if (pixel.isNull())
        return std::nullopt;
    return QColor::fromRgba(*reinterpret_cast<const QRgb*>(pixel.constScanLine(0)));
}

QImage AppSettings::createARGBBitmapContextFromImage(const QImage& image)
{
    QImage context = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    if (context.isNull())
        std::fputs("Context not created!\n", stderr);
    return context;
}
