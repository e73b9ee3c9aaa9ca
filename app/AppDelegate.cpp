#include "app/AppDelegate.h"

#include "app/EventMonitor.h"
#include "capture/ToolScreen.h"
#include "commonutils/CommLog.h"
#include "commonutils/NotificationCenter.h"
#include "settings/AppSettings.h"
#include "settings/SettingsKeys.h"
#include "settings/UserDefaults.h"

#include <QCoreApplication>
#include <QScopedValueRollback>
#include <QTimer>

namespace {

const QString kNeedUpdateHotKey = QStringLiteral("needUpdateHotKeyBindRegister");
constexpr int kToolTipDelayMs = 10;
constexpr int kSelfChosenChannel = 4; // the edition that keeps the channel it once had

}

AppDelegate::AppDelegate(Platform& platform)
    : m_platform(platform)
    , mScreenShotManager(platform)
{
    m_background.setMaxThreadCount(1);
    m_background.setExpiryTimeout(0); // no thread lingers, so none wakes up later
    ToolScreen::install(platform.displays.get());
    EventMonitor::install(platform.hotKeys.get());
    AppSettings::install(platform.workspace.get(), platform.loginItem.get());
}

AppDelegate::~AppDelegate()
{
    m_background.waitForDone();
    EventMonitor::install(nullptr);
    AppSettings::install(nullptr, nullptr);
    ToolScreen::install(nullptr);
}

void AppDelegate::applicationDidFinishLaunching()
{
    registerDefaults();
    settleChannel();
    checkDefaultPicturesSavePath();
    LogScreens();
    begin();
}

void AppDelegate::registerDefaults()
{
    AppSettings::saveToUserDefaultsForKeyIngeterValue(SettingsKeys::kToolTipDelay, kToolTipDelayMs);
    AppSettings::initSettingInNeed(QStringLiteral(":/UserDefaults.plist"));
}

void AppDelegate::settleChannel()
{
    if (AppSettings::AppVersionType() != kSelfChosenChannel)
        AppSettings::setChannelProviderID(AppSettings::AppVersionTypeString());
    else if (AppSettings::getChannelProviderID().isEmpty())
        AppSettings::setChannelProviderID(QStringLiteral("pro"));
    CommLog::log(QStringLiteral("App type :%1").arg(AppSettings::getChannelProviderID()));
}

// Asking for the folder creates it where it is the default one.
void AppDelegate::checkDefaultPicturesSavePath()
{
    AppSettings::choosedScreenshotSavePath();
}

void AppDelegate::LogScreens()
{
    m_background.start([infos = ToolScreen::screenInfos()] {
        CommLog::log(QStringLiteral("============Screen Info============"));
        for (const ScreenInfo& info : infos)
            CommLog::log(info.description());
        CommLog::log(QStringLiteral("==================================="));
    });
}

void AppDelegate::begin()
{
    NotificationCenter::defaultCenter().addObserver(
        *this, kNeedUpdateHotKey, [this](const QVariantMap&) { needUpdateHotkeyBind(); });
    if (UserDefaults* store = UserDefaults::standardUserDefaults())
        store->onExternalChange = [this](const QStringList& keys) { settingsChangedByHand(keys); };
    mScreenShotManager.initContext();
    addhotKey();
    m_hasBegun = true;
    if (onBegun)
        onBegun();
}

void AppDelegate::addhotKey()
{
    EventMonitor::registerHotKeyMonitorWithAction([this](const QString& hotKey) { hotKeyDown(hotKey); });
}

void AppDelegate::needUpdateHotkeyBind()
{
    addhotKey();
}

void AppDelegate::settingsChangedByHand(const QStringList& keys)
{
    if (keys.contains(QStringLiteral("hotkeyRegionScreenShot")) ||
        keys.contains(QStringLiteral("hotkeyFullScreenShot")))
        NotificationCenter::defaultCenter().post(kNeedUpdateHotKey);
}

void AppDelegate::hotKeyDown(const QString& hotKey)
{
    CommLog::log(QStringLiteral("key down --->%1").arg(hotKey));
    if (hotKey.size() < 2 || isNextKey)
        return;
    const QScopedValueRollback guard(isNextKey, true);
    if (mScreenShotManager.isCapturing())
        return;
    CommLog::log(QStringLiteral("start screenshot"));
    prepareCapture();
    mScreenShotManager.startScreenShot(hotKey);
}

void AppDelegate::prepareCapture()
{
    mScreenShotManager.initialize();
    if (const auto screen = ToolScreen::screenUnderPointer())
        mScreenShotManager.setCurrentScreen(*screen);
}

void AppDelegate::startCapture(bool isFullScreen)
{
    if (mScreenShotManager.isCapturing())
        return;
    prepareCapture();
    mScreenShotManager.startScreenShotIsFullScreen(isFullScreen);
}

void AppDelegate::regionScreenShotFromSystembar()
{
    QTimer::singleShot(0, this, [this] { startCapture(false); });
}

void AppDelegate::fullScreenShotFromSystembar()
{
    startCapture(true);
}

void AppDelegate::terminate()
{
    mScreenShotManager._cancelScreenshot(); // a visible overlay would refuse the end
    QTimer::singleShot(0, this, [] { QCoreApplication::quit(); });
}

void AppDelegate::applicationWillTerminate()
{
    if (!AppSettings::isNeedAppStartWhenComputerPowerOn())
        return;
    AppSettings::unregisterAppLaunchWhenComputerPowerOn();
    AppSettings::registerAppLaunchWhenComputerPowerOn();
}
