#include "app/AppDelegate.h"

#include "app/AboutWindow.h"
#include "app/DnHotkeyManager.h"
#include "app/EventMonitor.h"
#include "app/HotKeyNotice.h"
#include "app/PreferencesWindow.h"
#include "app/ZRStartWindow.h"
#include "capture/ToolScreen.h"
#include "commonutils/CommFeedback.h"
#include "commonutils/CommLog.h"
#include "commonutils/CommUtils.h"
#include "commonutils/NotificationCenter.h"
#include "output/ZRLocalNotificationCenter.h"
#include "output/ZRScreenshotUploadManager.h"
#include "settings/AppSettings.h"
#include "settings/LanguageCatalogue.h"
#include "settings/SettingsKeys.h"
#include "settings/UserDefaults.h"
#include "settings/ZRBookmark.h"

#include <QCoreApplication>
#include <QLocale>
#include <QScopedValueRollback>
#include <QTimer>

#include <algorithm>

namespace {

const QString kNeedUpdateHotKey = QStringLiteral("needUpdateHotKeyBindRegister");
const QString kNeedChangeLanguage = QStringLiteral("needChangeClientLanguageRegister");
constexpr int kToolTipDelayMs = 10;
constexpr int kSelfChosenChannel = 4; // the edition that keeps the channel it once had
constexpr int kRepaintMs = 50;        // until the windows below a menu that went have painted themselves

bool changesHotKeys(const QString& key)
{
    return key == QLatin1String("hotkeyRegionScreenShot") || key == QLatin1String("hotkeyFullScreenShot");
}

bool changesAppInfo(const QString& key)
{
    return key == QLatin1String("clientLang") || key.startsWith(QLatin1String("link"));
}

}

AppDelegate::AppDelegate(Platform& platform)
    : m_platform(platform)
    , mScreenShotManager(platform)
    , mScreenShotStatusbar(*platform.statusItemHost, *this)
    , m_update(QStringLiteral(LUMORA_VERSION))
{
    m_background.setMaxThreadCount(1);
    m_background.setExpiryTimeout(0); // no thread lingers, so none wakes up later
    ToolScreen::install(platform.displays.get());
    EventMonitor::install(platform.hotKeys.get(), platform.mouseMonitor.get());
    AppSettings::install(platform.workspace.get(), platform.loginItem.get());
    ZRBookmark::defaultShareBookmark().install(platform.fileBookmarks.get());
    m_update.onResult = [this](const UpdateResult& result) { logUpdate(result); };
}

AppDelegate::~AppDelegate()
{
    ZRLocalNotificationCenter::defaultLocalNotificationCenter().isBlended = nullptr;
    m_background.waitForDone();
    EventMonitor::install(nullptr);
    ZRBookmark::defaultShareBookmark().install(nullptr);
    AppSettings::install(nullptr, nullptr);
    ToolScreen::install(nullptr);
}

void AppDelegate::runSteps(std::span<const Step> steps)
{
    for (const Step& step : steps) {
        CommLog::log(QStringLiteral("launch: %1").arg(QLatin1String(step.name)));
        (this->*step.run)();
    }
}

void AppDelegate::applicationDidFinishLaunching()
{
    static constexpr Step kSteps[] = {
        {"tool tips", &AppDelegate::setToolTipDelay},
        {"registered defaults", &AppDelegate::registerDefaults},
        {"channel", &AppDelegate::settleChannel},
        {"common utilities", &AppDelegate::initCommUtils},
        {"languages", &AppDelegate::updateLangMenu},
        {"save folder", &AppDelegate::checkDefaultPicturesSavePath},
        {"status bar", &AppDelegate::initStatusbar},
        {"update check", &AppDelegate::_initUpdate},
        {"display list", &AppDelegate::LogScreens},
        {"start window", &AppDelegate::showStartWindow},
        {"access to the save folder", &AppDelegate::startAccessingSaveFolder},
    };
    runSteps(kSteps);
}

void AppDelegate::begin()
{
    static constexpr Step kSteps[] = {
        {"notifications", &AppDelegate::observeNotifications},
        {"status menu", &AppDelegate::fillStatusMenu},
        {"capture manager", &AppDelegate::initContext},
        {"hot keys", &AppDelegate::addhotKey},
        {"left-over uploads", &AppDelegate::offerLeftOverUploads},
    };
    runSteps(kSteps);
    m_hasBegun = true;
    if (onBegun)
        onBegun();
}

void AppDelegate::setToolTipDelay()
{
    AppSettings::saveToUserDefaultsForKeyIngeterValue(SettingsKeys::kToolTipDelay, kToolTipDelayMs);
}

void AppDelegate::registerDefaults()
{
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

void AppDelegate::initCommUtils()
{
    CommUtils::initWithCommAppInfo(AppSettings::getCommAppInfo(), *m_platform.workspace);
}

void AppDelegate::updateLangMenu()
{
    LanguageCatalogue::updateLangMenu(LanguageCatalogue::folders());
    LanguageCatalogue::settleLanguage(QLocale::system().uiLanguages());
}

void AppDelegate::checkDefaultPicturesSavePath()
{
    AppSettings::checkDefaultPicturesSavePath();
}

void AppDelegate::initStatusbar()
{
    mScreenShotStatusbar.initialize();
}

void AppDelegate::_initUpdate()
{
    m_update.checkSilent(CommUtils::appInfo().updateURL);
}

void AppDelegate::offerLeftOverUploads()
{
    ZRScreenshotUploadManager::defaultManager().offerLeftOver();
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

void AppDelegate::showStartWindow()
{
    if (!AppSettings::isNeedShowStartWindowAgain())
        return begin();
    m_startWindow = ZRStartWindow::defaultStartWindow();
    m_startWindow->setEndRect(mScreenShotStatusbar.statusbarRect());
    m_startWindow->setDelegate(this);
    m_startWindow->start();
}

void AppDelegate::endGreeting()
{
    if (m_startWindow)
        m_startWindow->stop();
}

// By now the status item may have found its place.
void AppDelegate::windowWillStop(ZRStartWindow& window)
{
    window.setEndRect(mScreenShotStatusbar.statusbarRect());
}

// Called by the window's own event. A verb may wait for a capture, which must not have the window in it.
void AppDelegate::windowWillClose()
{
    m_startWindow.release()->deleteLater();
    onceMenuIsGone([this] { begin(); });
}

// Lasts until the program ends.
void AppDelegate::startAccessingSaveFolder()
{
    ZRBookmark::defaultShareBookmark().BookmarkStartAccessingSecurityScopedResourceWithFilePath(
        AppSettings::choosedScreenshotSavePath());
}

void AppDelegate::observeNotifications()
{
    NotificationCenter& center = NotificationCenter::defaultCenter();
    center.addObserver(*this, kNeedUpdateHotKey, [this](const QVariantMap&) { needUpdateHotkeyBind(); });
    center.addObserver(
        *this, kNeedChangeLanguage, [this](const QVariantMap&) { needChangeClientLanguage(); });
    center.addObserver(*this, QString::fromUtf16(DnHotkeyManager::kRefused), [](const QVariantMap& refused) {
        tellOfRefusedHotKey(refused.value(QString::fromUtf16(DnHotkeyManager::kRefusedKey)).toString(),
            refused.value(QString::fromUtf16(DnHotkeyManager::kReasonKey)).toString());
    });
    ZRLocalNotificationCenter::defaultLocalNotificationCenter().isBlended = [this] {
        return m_platform.windowServer->blendsWindows();
    };
    if (UserDefaults* store = UserDefaults::standardUserDefaults())
        store->onExternalChange = [this](const QStringList& keys) { settingsChangedByHand(keys); };
}

void AppDelegate::fillStatusMenu()
{
    mScreenShotStatusbar.setStatusbarMenu();
    mScreenShotStatusbar.changeHotKeyText();
    mScreenShotStatusbar.changeText();
}

void AppDelegate::initContext()
{
    mScreenShotManager.lastCapture().setJournal(&m_journal);
    mScreenShotManager.initContext();
    QTimer::singleShot(0, this, [this] { m_journal.watchAge(); });
}

void AppDelegate::addhotKey()
{
    EventMonitor::registerHotKeyMonitorWithAction([this](const QString& hotKey) { hotKeyDown(hotKey); });
}

void AppDelegate::needUpdateHotkeyBind()
{
    addhotKey();
    mScreenShotStatusbar.changeHotKeyText();
}

void AppDelegate::needChangeClientLanguage()
{
    CommUtils::setAppInfo(AppSettings::getCommAppInfo());
    changeText();
}

void AppDelegate::settingsChangedByHand(const QStringList& keys)
{
    if (mPreferencesWindow && mPreferencesWindow->isVisible())
        mPreferencesWindow->settingsChanged();
    if (std::any_of(keys.begin(), keys.end(), changesHotKeys))
        NotificationCenter::defaultCenter().post(kNeedUpdateHotKey);
    if (std::any_of(keys.begin(), keys.end(), changesAppInfo)) {
        LanguageCatalogue::settleLanguage(QLocale::system().uiLanguages());
        NotificationCenter::defaultCenter().post(kNeedChangeLanguage);
    }
}

void AppDelegate::changeText()
{
    mScreenShotStatusbar.changeText();
    mScreenShotManager.changeText();
    if (mAboutWindow)
        mAboutWindow->changeText(AboutTexts::current());
    if (mPreferencesWindow)
        mPreferencesWindow->changeText();
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
    endTyping();
    mScreenShotManager.initialize();
    if (const auto screen = ToolScreen::screenUnderPointer())
        mScreenShotManager.setCurrentScreen(*screen);
}

void AppDelegate::capture(const CaptureOrder& order)
{
    if (mScreenShotManager.isCapturing())
        return;
    prepareCapture();
    mScreenShotManager.startScreenShotWithOrder(order);
}

void AppDelegate::startCapture(const CaptureOrder& order)
{
    startWithoutMenu([this, order] { capture(order); });
}

void AppDelegate::startTool(ScreenShotTool tool)
{
    startWithoutMenu([this, tool] { useTool(tool); });
}

void AppDelegate::reopenLastCapture(const CaptureTarget& target)
{
    if (mScreenShotManager.isCapturing())
        return;
    mScreenShotStatusbar.closeMenu();
    mScreenShotManager.initialize();
    mScreenShotManager.reopenScreenShot(target);
}

void AppDelegate::startWithoutMenu(std::function<void()> start)
{
    if (mScreenShotStatusbar.closeMenu())
        onceMenuIsGone(std::move(start));
    else
        start();
}

void AppDelegate::useTool(ScreenShotTool tool)
{
    if (mScreenShotManager.isCapturing())
        return;
    endTyping();
    mScreenShotManager.initialize();
    if (tool == ScreenShotTool::Distance)
        mScreenShotManager.startScreenShotDistance();
    else
        mScreenShotManager.startScreenShotGetColor();
}

// A turn of the event loop takes the menu off the screen.
void AppDelegate::onceMenuIsGone(std::function<void()> start)
{
    QTimer::singleShot(0, this,
        [this, start = std::move(start)] { QTimer::singleShot(kRepaintMs, Qt::PreciseTimer, this, start); });
}

void AppDelegate::regionScreenShotFromSystembar()
{
    onceMenuIsGone([this] { capture({}); });
}

void AppDelegate::fullScreenShotFromSystembar()
{
    onceMenuIsGone([this] { capture({.isFullScreen = true}); });
}

void AppDelegate::actionForStatusbbarDistance()
{
    onceMenuIsGone([this] { useTool(ScreenShotTool::Distance); });
}

void AppDelegate::actionForStatusbarGetColor()
{
    onceMenuIsGone([this] { useTool(ScreenShotTool::Color); });
}

void AppDelegate::openVideoRecorderURL()
{
    CommUtils::OpenURL(CommUtils::appInfo().videoRecorderURL);
}

void AppDelegate::actionForStatusbarShowFAQ()
{
    CommUtils::OpenURL(CommUtils::appInfo().FAQURL);
}

void AppDelegate::actionForStatusbarShowSupport()
{
    CommUtils::OpenURL(CommUtils::appInfo().supportURL);
}

void AppDelegate::actionForStatusbarShowForum()
{
    CommUtils::OpenURL(CommUtils::appInfo().forumURL);
}

void AppDelegate::actionForStatusbarFeedback()
{
    CommFeedback::submit();
}

void AppDelegate::actionForStatusbarCheckUpdate()
{
    m_update.check(CommUtils::appInfo().updateURL);
}

void AppDelegate::logUpdate(const UpdateResult& result) const
{
    switch (result.kind) {
    case UpdateResult::Kind::UpToDate:
        CommLog::log(QStringLiteral("update check: %1 is the newest version"), result.version);
        break;
    case UpdateResult::Kind::Available:
        CommLog::log(QStringLiteral("update check: version %1 is out %2"), result.version, result.link);
        break;
    case UpdateResult::Kind::Failed:
        CommLog::log(QStringLiteral("update check: %1"), result.reason);
        break;
    }
}

bool AppDelegate::openMenu()
{
    const bool isBusy = mScreenShotManager.isCapturing() || mScreenShotManager.tools().isRunning();
    return !isBusy && mScreenShotStatusbar.openMenu();
}

void AppDelegate::showAbout()
{
    if (!mAboutWindow) {
        mAboutWindow = std::make_unique<AboutWindow>();
        mAboutWindow->onClose = [this] { closeAboutWindow(); };
        mAboutWindow->changeText(AboutTexts::current());
    }
    mAboutWindow->showAbout();
}

// Called by the window's own event: it goes when that has been handled.
void AppDelegate::closeAboutWindow()
{
    if (mAboutWindow)
        mAboutWindow.release()->deleteLater();
}

void AppDelegate::showPreferences()
{
    if (!mPreferencesWindow) {
        mPreferencesWindow = std::make_unique<PreferencesWindow>(*m_platform.workspace);
        mPreferencesWindow->setOnTyping([this] { mScreenShotStatusbar.changeHotKeyText(); });
    }
    mPreferencesWindow->showPreferences();
}

// A shortcut field has the keyboard, which a capture needs.
void AppDelegate::endTyping()
{
    if (mPreferencesWindow)
        mPreferencesWindow->exitTypeShortcut();
}

void AppDelegate::terminate()
{
    mScreenShotManager._cancelScreenshot();
    // No window is asked to close: an overlay would refuse, an alert would take that for an answer.
    QTimer::singleShot(0, this, [] { QCoreApplication::exit(); });
}

void AppDelegate::applicationWillTerminate()
{
    CommUtils::dispose();
    mScreenShotStatusbar.clear();
    if (!AppSettings::isNeedAppStartWhenComputerPowerOn())
        return;
    AppSettings::unregisterAppLaunchWhenComputerPowerOn();
    AppSettings::registerAppLaunchWhenComputerPowerOn();
}
