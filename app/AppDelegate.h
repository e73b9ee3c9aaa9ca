#pragma once

#include "capture/ZRScreenShotManager.h"
#include "platform/Platform.h"

#include <QObject>
#include <QThreadPool>

#include <functional>

// Owns the capture manager, runs the launch and the termination, and starts a capture when a hot key or a
// menu entry asks for one.
class AppDelegate : public QObject {
public:
    // Borrows the platform, which must outlive the delegate.
    explicit AppDelegate(Platform& platform);
    ~AppDelegate() override;

    void applicationDidFinishLaunching();
    // Ends a running capture, gives the former application back its place, then ends the program.
    void terminate();
    void applicationWillTerminate();

    // The second half of the launch: from here on hot keys and verbs work.
    void begin();
    bool hasBegun() const { return m_hasBegun; }
    // Called once, at the end of begin().
    std::function<void()> onBegun;

    // Called with the hot-key string that fired.
    void hotKeyDown(const QString& hotKey);
    // A capture at once; nothing happens while another one runs.
    void startCapture(bool isFullScreen);
    // The region capture waits one turn of the event loop, so that a menu which asked for it is gone.
    void regionScreenShotFromSystembar();
    void fullScreenShotFromSystembar();

    ZRScreenShotManager& screenShotManager() { return mScreenShotManager; }

private:
    void registerDefaults();
    void settleChannel();
    void checkDefaultPicturesSavePath();
    void LogScreens();
    void addhotKey();
    void needUpdateHotkeyBind();
    void settingsChangedByHand(const QStringList& keys);
    void prepareCapture();

    Platform& m_platform;
    ZRScreenShotManager mScreenShotManager;
    bool isNextKey = false; // a hot key is being handled
    bool m_hasBegun = false;
    QThreadPool m_background;
};
