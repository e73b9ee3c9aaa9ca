#pragma once

#include "capture/CaptureOrder.h"
#include "capture/CaptureOutcome.h"
#include "capture/CaptureScreens.h"
#include "capture/LastCapture.h"
#include "capture/OverlayKeys.h"
#include "capture/PointerTools.h"
#include "capture/RegionDrag.h"
#include "capture/WindowWalk.h"
#include "capture/ZRScreenShotViewController.h"
#include "customui/View.h"
#include "editor/ZRGraffitManager.h"
#include "platform/Platform.h"

#include <QKeyEvent>
#include <QObject>

#include <functional>
#include <memory>
#include <optional>

class ZRStaticScreenShotWindow;

// Runs a capture from the moment that a hot key or a menu entry fires until the overlay is gone: chooses the
// display, freezes it, shows the overlay, receives its events and tears everything down. One capture at a
// time, on one display. Event locations are overlay points. Lives as long as the program.
class ZRScreenShotManager : public QObject, public RegionImageSource {
public:
    // Borrows the platform, which must outlive the manager.
    explicit ZRScreenShotManager(Platform& platform);
    ~ZRScreenShotManager() override;

    // Makes an overlay in advance, so that the first capture finds one.
    void initContext();
    // Clean state and a fresh list of the windows on the screen, before a capture.
    void initialize();

    // A region capture when the text is the region hot key's, else a full-screen capture.
    void startScreenShot(const QString& hotkey);
    void startScreenShotIsFullScreen(bool isFullScreen);
    void startScreenShotWithOrder(const CaptureOrder& order);
    // The measuring tool and the colour tool, on the display under the pointer, in the place of one that
    // runs; nothing while a capture runs. A capture that starts ends them.
    void startScreenShotDistance();
    void startScreenShotGetColor();
    // Opens the last capture again, as the journal has it, on its display.
    void reopenScreenShot(const CaptureTarget& target = {});
    // Where the running capture's picture goes when it is saved.
    const CaptureTarget& target() const { return m_target; }
    // Called before any capture or tool starts, and when one is to be cancelled: whoever waits for a moment
    // to start one gives way.
    std::function<void()> onPreempt;
    LastCapture& lastCapture() { return m_lastCapture; }
    PointerTools& tools() { return m_tools; }
    // From the start of a capture until 0.3 s after its end.
    bool isCapturing() const { return mIsCapturing; }
    // Numbers the captures, so that a late answer is never taken for another capture's; 0 before the first.
    quint64 captureNumber() const { return m_captureNumber; }
    // Every capture that started is answered here, once.
    std::function<void(quint64 capture, const CaptureOutcome& outcome)> onFinished;

    void setScreenShotHotKey(const QString& hotKey) { mHotKey = hotKey; }
    void setCurrentScreen(const DisplayRecord& display) { m_screens.setCurrent(display); }
    // As CaptureScreens has them.
    DisplayRecord currentScreen() { return m_screens.current(); }
    std::optional<ScreenInfo> fistScreenInfo() { return m_screens.first(); }
    // What is on the screen now, front to back.
    std::vector<WindowRecord> GetWindowInfos() const;
    // The frozen display of the running capture; null outside of one.
    std::shared_ptr<const Frame> frame() const override { return m_frame; }
    QImage getCurrentImageFromTheRegion(ZRRect rect) const override;

    // The editor of the fixed region, while a tool is armed and a location of the overlay is over the region;
    // else null.
    ZREditorView* editorAt(ZRPoint location) const;
    // Arms the tool of the selected item.
    void changeSelectedItem();
    // No tool, no selected annotation.
    void cancelEdite();
    // New annotations over the region that has become the whole display.
    void changeTheScreenshotRegionToFullScreen();
    // Puts the texts of the present language on what is shown.
    void changeText() { mScreenShotController.changeText(); }
    ZRSize overlaySize() const; // points
    // The frozen pixels with the annotations; `pixels` of the display, inside it. Null without annotations.
    QImage annotatedImage(const QRect& pixels) const;
    // Hand the running capture's style on to its annotations.
    void changeLineWidth();
    void changeDrawColor();
    void changeTextFont();
    // The annotations' own operations; nothing outside of a region capture.
    bool isCanRevoke() const;
    void goBackDrawView();
    void undoDrawView();
    void goForwardDrawView();
    void deleteFromBackSpace();
    void clearFocusOnGraffitView();

    void mouseDown(const ZRMouseEvent& event);
    void mouseUp(const ZRMouseEvent& event);
    void mouseDragged(const ZRMouseEvent& event);
    void mouseMoved(const ZRMouseEvent& event);
    void rightMouseDown(const ZRMouseEvent& event);
    // `angle` in eighths of a degree.
    void scrollWheel(const ZRMouseEvent& event, int angle);
    void keyDown(const QKeyEvent& event);

    // From here on the capture takes no further input.
    void beginEnding() { m_isEnding = true; }
    // Ends the capture: the overlay goes, the former application comes back; 0.3 s later clear().
    void stopScreenShot();
    // Ends the running capture or tool.
    void _cancelScreenshot();
    void closeScreenShotWindow();
    void clear();
    // Shows a saved picture in the user's file manager.
    void revealFile(const QString& path);
    void reportOutcome(quint64 capture, const CaptureOutcome& outcome);

private:
    void createNewWindowInfoList();
    void startTool(ScreenShotTool tool);
    void showsToolOn(const DisplayRecord& display);
    void _startScreenShot();
    void _StartRegionScreenShot();
    void _StartFullScreenShot();
    void startAreaScreenShot(const CaptureOrder& order);
    bool freezeCurrentScreen();
    void failCapture(const QString& reason, QStringView noticeKey = {},
        CaptureOutcome::Kind kind = CaptureOutcome::Kind::Failed);
    void openOverlay();
    void showOverlay(const JournalEntry* last);
    void showLastCapture(const JournalEntry& entry);
    void keepCapture();
    std::unique_ptr<ZRStaticScreenShotWindow> initScreenShotEditorWindow();
    void prepareOverlay();
    void initGraffitManager();
    void adaptGraffitView();
    void edit(OverlayAction action);
    void updateGraffitID(const QString& id);
    void pressToolByKey(const QKeyEvent& event);

    void _updateWindowInfoWithMouseLocation(ZRPoint point);
    ZRPoint middleOfPixel(ZRPoint corner) const;
    void showChromeUnderPointer();
    void showPointerAids(ZRPoint point);
    void followPointer();
    void moveToDisplayUnderPointer();

    void _beginRegionSelect(ZRPoint point);
    void _updateDragPoint(ZRPoint point);
    void _endRegionSelect();
    void moveRegionByKey(const QKeyEvent& event);
    void updateCursor(ZRPoint point);
    void setCursor(Qt::CursorShape shape);
    Qt::CursorShape pointerShape(ZRPoint point) const;

    void releaseInput();
    void scheduleClear();
    void displaysChanged();

    Platform& m_platform;
    PointerTools m_tools;
    CaptureScreens m_screens;
    LastCapture m_lastCapture;
    std::unique_ptr<ZRGraffitManager> mGraffitManager; // the running region capture's
    CaptureTarget m_target;                            // of the running capture
    QString mHotKey;
    bool mIsCapturing = false;
    ZRScreenShotViewController mScreenShotController;
    RegionDrag m_drag;
    std::unique_ptr<ZRStaticScreenShotWindow> mScreenShotEditorWindow;
    std::vector<WindowRecord> windowInfos; // of the capture's beginning, the smallest first
    std::unique_ptr<ZRStaticScreenShotWindow> m_preparedWindow;
    std::shared_ptr<const Frame> m_frame;
    std::vector<ZRRect> m_candidates; // the windows that recognition may pick on the frozen display
    WindowWalk m_windowWalk;
    quint64 m_captureNumber = 0;
    bool m_isEnding = false;
    bool m_isMoving = false;     // the overlay is about to follow the pointer
    bool m_isEndedByKey = false; // the ending key is still down
};
