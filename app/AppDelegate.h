#pragma once

#include "app/StartWindowDelegate.h"
#include "app/StatusbarActions.h"
#include "app/ZRScreenShotStatusbar.h"
#include "capture/ZRScreenShotManager.h"
#include "commonutils/CommUpdate.h"
#include "platform/Platform.h"

#include <QObject>
#include <QThreadPool>

#include <functional>
#include <memory>
#include <span>

class AboutWindow;
class PreferencesWindow;

// Owns the capture manager, the status bar and the program's own windows, runs the launch and the termination
// as lists of named steps, and starts a capture when a hot key or a menu entry asks for one.
class AppDelegate : public QObject, private StatusbarActions, private StartWindowDelegate {
public:
    // Borrows the platform, which must outlive the delegate.
    explicit AppDelegate(Platform& platform);
    ~AppDelegate() override;

    void applicationDidFinishLaunching();
    // Ends a running capture, gives the former application back its place, then ends the program.
    void terminate() override;
    void applicationWillTerminate();

    // The second half of the launch: from here on hot keys, menu and verbs work.
    void begin();
    bool hasBegun() const { return m_hasBegun; }
    // Lets the start window go at once; nothing when there is none.
    void endGreeting();
    // Called once, at the end of begin().
    std::function<void()> onBegun;

    // Called with the hot-key string that fired.
    void hotKeyDown(const QString& hotKey);
    // A capture, at once where no menu of ours shows; nothing happens while another one runs.
    void startCapture(const CaptureOrder& order);
    void startTool(ScreenShotTool tool);
    // Opens the last capture again; nothing happens while another one runs.
    void reopenLastCapture() override { reopenLastCapture({}); }
    void reopenLastCapture(const CaptureTarget& target);
    // The status menu, at the pointer; false while a capture or a tool runs or a modal window shows.
    bool openMenu();
    void showAbout() override;
    void closeAboutWindow();
    // All texts that show, in the current language.
    void changeText();

    ZRScreenShotManager& screenShotManager() { return mScreenShotManager; }
    const WindowServer& windowServer() const { return *m_platform.windowServer; }

private:
    struct Step {
        const char* name; // in the log
        void (AppDelegate::*run)();
    };
    void runSteps(std::span<const Step> steps);

    void setToolTipDelay();
    void registerDefaults();
    void settleChannel();
    void initCommUtils();
    void updateLangMenu();
    void checkDefaultPicturesSavePath();
    void initStatusbar();
    void _initUpdate();
    void offerLeftOverUploads();
    void LogScreens();
    void showStartWindow();
    void startAccessingSaveFolder();
    void observeNotifications();
    void fillStatusMenu();
    void initContext();
    void addhotKey();

    void windowWillStop(ZRStartWindow& window) override;
    void windowWillClose() override;

    void needUpdateHotkeyBind();
    void needChangeClientLanguage();
    void settingsChangedByHand(const QStringList& keys);
    void logUpdate(const UpdateResult& result) const;

    void regionScreenShotFromSystembar() override;
    void fullScreenShotFromSystembar() override;
    void actionForStatusbbarDistance() override;
    void actionForStatusbarGetColor() override;
    void openVideoRecorderURL() override;
    void showPreferences() override;
    void actionForStatusbarShowFAQ() override;
    void actionForStatusbarShowSupport() override;
    void actionForStatusbarShowForum() override;
    void actionForStatusbarFeedback() override;
    void actionForStatusbarCheckUpdate() override;

    void startWithoutMenu(std::function<void()> start);
    void onceMenuIsGone(std::function<void()> start);
    void prepareCapture();
    void endTyping();
    void capture(const CaptureOrder& order);
    void useTool(ScreenShotTool tool);

    Platform& m_platform;
    CaptureJournal m_journal{CaptureJournal::standardFolder()};
    ZRScreenShotManager mScreenShotManager;
    ZRScreenShotStatusbar mScreenShotStatusbar;
    std::unique_ptr<AboutWindow> mAboutWindow;             // while it shows
    std::unique_ptr<PreferencesWindow> mPreferencesWindow; // from its first show on
    std::unique_ptr<ZRStartWindow> m_startWindow;          // while it shows
    bool isNextKey = false;                                // a hot key is being handled
    bool m_hasBegun = false;
    CommUpdate m_update;
    QThreadPool m_background;
};
