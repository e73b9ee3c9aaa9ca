#include "capture/ZRScreenShotManager.h"

#include "capture/ChromeRules.h"
#include "capture/FreezeNotice.h"
#include "capture/RegionRules.h"
#include "capture/ScreenShotBackView.h"
#include "capture/ToolScreen.h"
#include "capture/WindowRules.h"
#include "capture/ZRStaticScreenShotWindow.h"
#include "commonutils/CommLog.h"
#include "editor/ZRScreenShotSetting.h"
#include "editor/ZRScreenShotToolbarItem.h"
#include "output/ZRLocalNotificationCenter.h"
#include "settings/AppSettings.h"

#include <QTimer>

#include <algorithm>
#include <array>
#include <utility>

namespace {

constexpr int kClearDelayMs = 300; // after the end of a capture
constexpr int kMoveDelayMs = 50;   // before the overlay follows the pointer to another display

bool endsCapture(OverlayAction action)
{
    constexpr std::array kEndings{OverlayAction::Cancel, OverlayAction::Save, OverlayAction::Copy,
        OverlayAction::Pin, OverlayAction::Upload};
    return std::find(kEndings.begin(), kEndings.end(), action) != kEndings.end();
}

}

ZRScreenShotManager::ZRScreenShotManager(Platform& platform)
    : m_platform(platform)
    , m_tools(platform)
    , m_lastCapture(*platform.displays)
{
    mScreenShotController.setScreenshotManager(this);
    m_platform.frontKeeper->mayRaise = [this] {
        return !mGraffitManager || !mGraffitManager->isTextEdited();
    };
    m_platform.displays->onChange = [this] { displaysChanged(); };
    m_platform.inputGrab->onRefused = [this](const QString& reason) {
        failCapture(reason);
        m_tools.fail(reason);
    };
    m_tools.onDisplay = [this](const DisplayRecord& display) { showsToolOn(display); };
}

ZRScreenShotManager::~ZRScreenShotManager()
{
    m_platform.displays->onChange = nullptr;
    m_platform.inputGrab->onRefused = nullptr;
}

void ZRScreenShotManager::initContext()
{
    QTimer::singleShot(0, this, [this] { prepareOverlay(); });
}

void ZRScreenShotManager::initialize()
{
    if (onPreempt)
        onPreempt();
    m_tools.cancel();
    clear();
    createNewWindowInfoList();
    mScreenShotController.setScreenshotManager(this);
}

std::vector<WindowRecord> ZRScreenShotManager::GetWindowInfos() const
{
    return m_platform.windowServer->onScreenWindows();
}

void ZRScreenShotManager::createNewWindowInfoList()
{
    windowInfos = WindowRules::sortedByArea(GetWindowInfos());
}

void ZRScreenShotManager::startScreenShot(const QString& hotkey)
{
    startScreenShotIsFullScreen(hotkey != AppSettings::regionScreenShotHotKey());
}

void ZRScreenShotManager::startScreenShotIsFullScreen(bool isFullScreen)
{
    startScreenShotWithOrder({isFullScreen});
}

void ZRScreenShotManager::startScreenShotWithOrder(const CaptureOrder& order)
{
    _startScreenShot();
    m_target = order.target;
    m_tools.whenUncovered(*this, [this, order, capture = m_captureNumber] {
        if (m_isEnding || capture != m_captureNumber)
            return;
        if (order.area)
            startAreaScreenShot(order);
        else if (order.isFullScreen)
            _StartFullScreenShot();
        else
            _StartRegionScreenShot();
    });
}

void ZRScreenShotManager::startScreenShotDistance()
{
    startTool(ScreenShotTool::Distance);
}

void ZRScreenShotManager::startScreenShotGetColor()
{
    startTool(ScreenShotTool::Color);
}

void ZRScreenShotManager::startTool(ScreenShotTool tool)
{
    if (mIsCapturing)
        return;
    m_tools.cancel();
    m_screens.chooseUnderPointer();
    m_tools.start(tool, currentScreen());
}

void ZRScreenShotManager::showsToolOn(const DisplayRecord& display)
{
    setCurrentScreen(display);
    m_screens.store(display);
}

void ZRScreenShotManager::_startScreenShot()
{
    m_screens.chooseUnderPointer();
    mIsCapturing = true;
    m_isEnding = false;
    m_isEndedByKey = false;
    m_isMoving = false;
    m_drag.release();
    m_target = {};
    ++m_captureNumber;
}

void ZRScreenShotManager::_StartRegionScreenShot()
{
    AppSettings::updateLastRunningAndActiveApp();
    openOverlay();
}

// On the current display. An overlay on another one goes only when this one has the keyboard, so that no key
// reaches anybody else in between.
void ZRScreenShotManager::openOverlay()
{
    if (freezeCurrentScreen())
        showOverlay(nullptr);
}

// With the region and the annotations of `last`, where there is one.
void ZRScreenShotManager::showOverlay(const JournalEntry* last)
{
    std::unique_ptr<ZRStaticScreenShotWindow> before = initScreenShotEditorWindow();
    mScreenShotController.initialize();
    AppSettings::setUseWindowRecognize(true);
    if (last)
        showLastCapture(*last);
    else
        showChromeUnderPointer();
    updateCursor({});
    mScreenShotEditorWindow->makeKeyAndOrderFront();
    m_platform.inputGrab->grabKeyboard(*mScreenShotEditorWindow->windowHandle());
    ScreenCoverWindow::discard(std::move(before));
    if (m_isEnding) // the keyboard was refused
        return;
    mScreenShotEditorWindow->showFrame(*m_platform.windowServer, last != nullptr);
    if (!last && !m_platform.inputGrab->grabPointer(*mScreenShotEditorWindow->windowHandle()))
        CommLog::log(QStringLiteral("another program holds the pointer, the capture waits for it"));
    m_platform.frontKeeper->keepInFront(*mScreenShotEditorWindow->windowHandle());
    m_screens.store(m_frame->display());
}

void ZRScreenShotManager::reopenScreenShot(const CaptureTarget& target)
{
    _startScreenShot();
    m_target = target;
    ZRLocalNotificationCenter::defaultLocalNotificationCenter().leaveScreen();
    QString reason;
    const auto entry = m_lastCapture.entry(&reason);
    if (!entry)
        return failCapture(QStringLiteral("the last capture cannot be opened again: %1").arg(reason),
            u"Lumora:Capture:ReopenFailed");
    AppSettings::updateLastRunningAndActiveApp();
    setCurrentScreen(entry->display);
    m_frame = std::make_shared<const Frame>(entry->display, entry->picture);
    showOverlay(&*entry);
}

void ZRScreenShotManager::showLastCapture(const JournalEntry& entry)
{
    AppSettings::setUseWindowRecognize(false);
    mScreenShotController.updateSelectedRegionRect(entry.region);
    _endRegionSelect();
    mScreenShotController.showToolbar(true);
    if (!entry.annotations.isEmpty() && !mGraffitManager->restore(entry.annotations))
        CommLog::log(QStringLiteral("the annotations of the last capture cannot be read"));
    keepCapture();
}

void ZRScreenShotManager::keepCapture()
{
    if (m_frame && !m_isEnding && mScreenShotController.isRegionLocked() && mGraffitManager)
        m_lastCapture.keep(m_frame, mScreenShotController.regionRect(), *mGraffitManager);
}

// Maps no window and so disturbs nobody's focus.
void ZRScreenShotManager::_StartFullScreenShot()
{
    if (!freezeCurrentScreen())
        return;
    mScreenShotController.saveFullScreenToLocal();
    m_screens.store(m_frame->display());
    stopScreenShot();
}

// The same without choosing anything.
void ZRScreenShotManager::startAreaScreenShot(const CaptureOrder& order)
{
    QString reason;
    const auto area = order.area(&reason);
    if (!area)
        return failCapture(reason, {}, CaptureOutcome::Kind::NothingThere);
    setCurrentScreen(area->display);
    if (!freezeCurrentScreen())
        return;
    mScreenShotController.saveAreaToLocal(area->pixels);
    m_screens.store(m_frame->display());
    stopScreenShot();
}

bool ZRScreenShotManager::freezeCurrentScreen()
{
    QString reason = QStringLiteral("there is no display");
    const DisplayRecord display = currentScreen();
    m_frame = display.isValid() ? m_platform.windowServer->freeze(display, &reason) : nullptr;
    if (m_frame)
        return true;
    failCapture(reason);
    tellOfFailedFreeze(reason);
    return false;
}

void ZRScreenShotManager::failCapture(const QString& reason, QStringView noticeKey, CaptureOutcome::Kind kind)
{
    if (!mIsCapturing || m_isEnding)
        return;
    CommLog::log(QStringLiteral("the capture cannot go on: %1").arg(reason));
    beginEnding();
    stopScreenShot();
    if (!noticeKey.isEmpty())
        mScreenShotController.postLocalNotificationWithMessageTitle(
            AppSettings::getXMLValueForKeywords(noticeKey), {});
    reportOutcome(m_captureNumber, {kind, {}, reason});
}

// Makes the overlay of the frozen display and gives the one that was there before.
std::unique_ptr<ZRStaticScreenShotWindow> ZRScreenShotManager::initScreenShotEditorWindow()
{
    auto before = std::move(mScreenShotEditorWindow);
    if (m_preparedWindow && m_preparedWindow->screenDisplay() == m_frame->display())
        mScreenShotEditorWindow = std::move(m_preparedWindow);
    else
        mScreenShotEditorWindow = std::make_unique<ZRStaticScreenShotWindow>(m_frame->display());
    m_preparedWindow.reset();
    mScreenShotEditorWindow->setMManager(this);
    mScreenShotEditorWindow->setFrame(m_frame);
    mScreenShotController.setOverlay(*mScreenShotEditorWindow);
    mScreenShotController.updateSelectedRegionRect({});
    initGraffitManager();
    m_candidates = WindowRules::candidates(windowInfos, m_frame->display());
    m_windowWalk.reset();
    return before;
}

// Before the overlay that holds the old one's view goes.
void ZRScreenShotManager::initGraffitManager()
{
    mGraffitManager = std::make_unique<ZRGraffitManager>();
    mGraffitManager->setMainManager(this);
    mGraffitManager->onChange = [this] { keepCapture(); };
    mGraffitManager->onCursor = [this](Qt::CursorShape shape) { setCursor(shape); };
    mGraffitManager->addGraffitViewTo(*mScreenShotEditorWindow, {});
    mScreenShotEditorWindow->addGraffitView(*mGraffitManager->editorView());
}

void ZRScreenShotManager::prepareOverlay()
{
    const DisplayRecord display = currentScreen();
    if (mIsCapturing || !display.isValid())
        return;
    m_platform.windowServer->prepare(display);
    if (m_preparedWindow && m_preparedWindow->screenDisplay() == display)
        return;
    m_preparedWindow = std::make_unique<ZRStaticScreenShotWindow>(display);
    m_preparedWindow->prepareToolbars();
}

// A movement right before a press or a release may be left out where another one waits behind it, so both
// count as a movement of their own.
void ZRScreenShotManager::mouseDown(const ZRMouseEvent& event)
{
    if (m_isEnding || !mScreenShotEditorWindow->isOver(event.location))
        return;
    if (AppSettings::canUseWindowRecognize())
        _updateWindowInfoWithMouseLocation(event.location);
    m_drag.press(event.location);
    _beginRegionSelect(event.location);
    mScreenShotController.setIsDragView(false);
    if (mScreenShotController.isRegionLocked())
        mScreenShotController.updateCrossViewRect({}, false);
    updateCursor(event.location);
}

void ZRScreenShotManager::mouseUp(const ZRMouseEvent& event)
{
    if (m_isEnding || !m_drag.isPressed())
        return;
    if (event.location != m_drag.lastLocation())
        mouseDragged(event);
    m_drag.release();
    _endRegionSelect();
    if (mScreenShotController.isRegionLocked()) {
        mScreenShotController.setIsDragView(false);
        mScreenShotController.updateCrossViewRect({}, false);
        m_platform.inputGrab->releasePointer();
    }
    updateCursor(event.location);
}

void ZRScreenShotManager::mouseDragged(const ZRMouseEvent& event)
{
    if (m_isEnding || !m_drag.isPressed())
        return;
    m_drag.follow(event.location);
    const ZRPoint point = RegionRules::cutToOverlay(event.location, overlaySize().width);
    _updateDragPoint(point);
    if (mScreenShotController.isRegionLocked())
        return mScreenShotController.updateCrossViewRect({}, false);
    mScreenShotController.setIsDragView(false);
    showPointerAids(point);
}

void ZRScreenShotManager::mouseMoved(const ZRMouseEvent& event)
{
    if (m_isEnding)
        return;
    if (!mScreenShotController.isRegionLocked() && !mScreenShotEditorWindow->isOver(event.location)) {
        followPointer();
        return;
    }
    updateCursor(event.location);
    if (mScreenShotController.isRegionLocked())
        mScreenShotController.updateCrossViewRect({}, false);
    else
        showPointerAids(event.location);
    if (AppSettings::canUseWindowRecognize())
        _updateWindowInfoWithMouseLocation(event.location);
}

// The pixel that the pointer points at begins at its location and lies right of and below it.
ZRPoint ZRScreenShotManager::middleOfPixel(ZRPoint corner) const
{
    const double half = 0.5 / m_frame->display().scale;
    return {corner.x + half, corner.y - half};
}

void ZRScreenShotManager::_updateWindowInfoWithMouseLocation(ZRPoint point)
{
    if (mScreenShotController.isUseGraffitInNeed())
        return;
    if (const auto window = m_windowWalk.meant(m_candidates, middleOfPixel(point)))
        mScreenShotController.updateSelectedRegionRect(*window);
}

void ZRScreenShotManager::showChromeUnderPointer()
{
    const auto pointer = m_platform.displays->pointer();
    if (!pointer || !m_frame->display().holds(*pointer))
        return;
    const ZRPoint point = m_frame->display().localPoint(*pointer);
    showPointerAids(point);
    _updateWindowInfoWithMouseLocation(point);
}

void ZRScreenShotManager::showPointerAids(ZRPoint point)
{
    mScreenShotController.updateCurrentMagnifierRect(point, true);
    mScreenShotController.updateCrossViewRect(point, true);
}

void ZRScreenShotManager::followPointer()
{
    const auto screen = ToolScreen::screenUnderPointer();
    if (!screen || *screen == m_frame->display() || std::exchange(m_isMoving, true))
        return;
    QTimer::singleShot(kMoveDelayMs, this, [this, capture = m_captureNumber] {
        if (capture == m_captureNumber && !m_isEnding)
            moveToDisplayUnderPointer();
    });
}

void ZRScreenShotManager::moveToDisplayUnderPointer()
{
    m_isMoving = false;
    const auto screen = ToolScreen::screenUnderPointer();
    if (!screen || *screen == m_frame->display() || m_drag.isPressed() ||
        mScreenShotController.isRegionLocked())
        return;
    setCurrentScreen(*screen);
    openOverlay();
}

void ZRScreenShotManager::rightMouseDown(const ZRMouseEvent&)
{
    _cancelScreenshot();
}

void ZRScreenShotManager::scrollWheel(const ZRMouseEvent& event, int angle)
{
    if (m_isEnding || !AppSettings::canUseWindowRecognize() ||
        !mScreenShotEditorWindow->isOver(event.location))
        return;
    m_windowWalk.turn(m_candidates, middleOfPixel(event.location), angle);
    _updateWindowInfoWithMouseLocation(event.location);
}

void ZRScreenShotManager::keyDown(const QKeyEvent& event)
{
    if (m_isEnding)
        return;
    const OverlayAction action = overlayAction(event);
    if (event.isAutoRepeat() && endsCapture(action))
        return; // the key may have ended the edit of a text and still be down
    m_isEndedByKey = true;
    switch (action) {
    case OverlayAction::Cancel:
        _cancelScreenshot();
        break;
    case OverlayAction::Save:
        mScreenShotController.saveRegionShotToLocalFromhotKey();
        break;
    case OverlayAction::Copy:
        mScreenShotController.saveToPasteboardFromhotKey();
        break;
    case OverlayAction::Pin:
        mScreenShotController.screenshotShowImageWindow();
        break;
    case OverlayAction::Upload:
        mScreenShotController.uploadRegionScreenshotToCloudFromhotKey();
        break;
    case OverlayAction::CopyColour:
        mScreenShotController.copyMagnifiedColour();
        break;
    case OverlayAction::Undo:
    case OverlayAction::Redo:
    case OverlayAction::Delete:
        edit(action);
        break;
    case OverlayAction::TakeWholeDisplay:
        mScreenShotController.changeTheScreenshotRegionToFullScreen();
        break;
    case OverlayAction::None:
        pressToolByKey(event);
        moveRegionByKey(event);
        break;
    }
    m_isEndedByKey = m_isEndedByKey && m_isEnding;
}

void ZRScreenShotManager::pressToolByKey(const QKeyEvent& event)
{
    if (const auto digit = toolDigit(event); digit && !event.isAutoRepeat())
        mScreenShotController.pressTool(*digit);
}

void ZRScreenShotManager::edit(OverlayAction action)
{
    if (action == OverlayAction::Undo)
        undoDrawView();
    else if (action == OverlayAction::Redo)
        goForwardDrawView();
    else
        deleteFromBackSpace();
    keepCapture();
}

QImage ZRScreenShotManager::getCurrentImageFromTheRegion(ZRRect rect) const
{
    return m_frame ? m_frame->crop(m_frame->display().localPixels(rect)) : QImage();
}

ZREditorView* ZRScreenShotManager::editorAt(ZRPoint location) const
{
    const bool isOverRegion = mScreenShotController.regionRect().contains(middleOfPixel(location));
    if (m_isEnding || !mGraffitManager || !mScreenShotController.isUseGraffitInNeed() || !isOverRegion)
        return nullptr;
    return mGraffitManager->editorView();
}

void ZRScreenShotManager::changeSelectedItem()
{
    const ZRScreenShotToolbarItem* item = ZRScreenShotSetting::selectedScreenshotToolbarItem();
    updateGraffitID(item ? item->controlID() : QString());
}

void ZRScreenShotManager::cancelEdite()
{
    m_drag.letGo();
    clearFocusOnGraffitView();
    updateGraffitID({});
}

void ZRScreenShotManager::changeTheScreenshotRegionToFullScreen()
{
    ZRScreenShotSetting::clear();
    initGraffitManager();
    adaptGraffitView();
}

void ZRScreenShotManager::updateGraffitID(const QString& id)
{
    if (mGraffitManager)
        mGraffitManager->updateGraffitID(id);
}

QImage ZRScreenShotManager::annotatedImage(const QRect& pixels) const
{
    return mGraffitManager ? mGraffitManager->composed(pixels) : QImage();
}

void ZRScreenShotManager::changeLineWidth()
{
    if (mGraffitManager)
        mGraffitManager->setLineWidth(ZRScreenShotSetting::selectedLineWidth());
    keepCapture();
}

void ZRScreenShotManager::changeDrawColor()
{
    if (mGraffitManager)
        mGraffitManager->setCurColor(ZRScreenShotSetting::selectedColor());
    keepCapture();
}

void ZRScreenShotManager::changeTextFont()
{
    if (mGraffitManager)
        mGraffitManager->setCurFont(ZRScreenShotSetting::selectedFont());
    keepCapture();
}

bool ZRScreenShotManager::isCanRevoke() const
{
    return mGraffitManager && mGraffitManager->isCanRevoke();
}

void ZRScreenShotManager::goBackDrawView()
{
    if (mGraffitManager)
        mGraffitManager->goBackDrawView();
    keepCapture();
}

void ZRScreenShotManager::undoDrawView()
{
    if (mGraffitManager)
        mGraffitManager->undoDrawView();
}

void ZRScreenShotManager::goForwardDrawView()
{
    if (mGraffitManager)
        mGraffitManager->goForwardDrawView();
}

void ZRScreenShotManager::deleteFromBackSpace()
{
    if (mGraffitManager)
        mGraffitManager->deleteGraffitFromBackSpace();
}

void ZRScreenShotManager::clearFocusOnGraffitView()
{
    if (mGraffitManager)
        mGraffitManager->clearFocusOnGraffitView();
}

void ZRScreenShotManager::_beginRegionSelect(ZRPoint point)
{
    AppSettings::setUseWindowRecognize(false);
    if (mScreenShotController.isUseGraffitInNeed())
        return;
    m_drag.takeHold(point, mScreenShotController.pointInResizeRect(point));
    if (m_drag.isByHandle())
        mScreenShotController.regionLock();
}

void ZRScreenShotManager::_updateDragPoint(ZRPoint point)
{
    if (mScreenShotController.isUseGraffitInNeed())
        return;
    const double scale = m_frame->display().scale;
    if (!mScreenShotController.isRegionLocked())
        return mScreenShotController.updateSelectedRegionRect(m_drag.spanned(point, scale));
    const ZRRect region = mScreenShotController.regionRect();
    if (!m_drag.holds(region))
        return;
    mScreenShotController.showToolbar(false);
    if (m_drag.isByHandle())
        mScreenShotController.setIsDragView(true);
    mScreenShotController.updateSelectedRegionRect(m_drag.pulled(region, point, overlaySize(), scale));
    adaptGraffitView();
    if (m_drag.isByHandle())
        mScreenShotController.updateCurrentMagnifierRect(point, true);
}

// A fixed region goes, or grows, by one device pixel.
void ZRScreenShotManager::moveRegionByKey(const QKeyEvent& event)
{
    const auto step = arrowStep(event);
    if (!step || !mScreenShotController.isRegionLocked() || mScreenShotController.isUseGraffitInNeed() ||
        m_drag.isPressed())
        return;
    const DisplayRecord& display = m_frame->display();
    const QRect region = display.localPixels(mScreenShotController.regionRect());
    const auto changed = step->isResize ? RegionRules::stretched : RegionRules::nudged;
    mScreenShotController.updateSelectedRegionRect(
        display.localRect(changed(region, step->by, display.pixels.size())));
    mScreenShotController.showToolbar(true);
    adaptGraffitView();
    keepCapture();
}

void ZRScreenShotManager::adaptGraffitView()
{
    if (mGraffitManager)
        mGraffitManager->updateGraffitView(mScreenShotController.regionRect().normalized());
}

ZRSize ZRScreenShotManager::overlaySize() const
{
    const DisplayRecord& display = m_frame->display();
    return display.localRect({QPoint(0, 0), display.pixels.size()}).size();
}

void ZRScreenShotManager::_endRegionSelect()
{
    mScreenShotController.regionLock();
    if (mScreenShotController.isResizingRegion())
        mScreenShotController.resizeRegionUnLock();
    adaptGraffitView();
    keepCapture();
}

void ZRScreenShotManager::updateCursor(ZRPoint point)
{
    if (mScreenShotEditorWindow)
        setCursor(pointerShape(point));
}

void ZRScreenShotManager::setCursor(Qt::CursorShape shape)
{
    if (mScreenShotEditorWindow->cursor().shape() != shape)
        mScreenShotEditorWindow->setCursor(shape);
}

// The pointer's shape is a function of the state: none while the crosshair shows, afterwards what a press at
// the point would do, or does.
Qt::CursorShape ZRScreenShotManager::pointerShape(ZRPoint point) const
{
    if (!mScreenShotController.isRegionLocked())
        return Qt::BlankCursor;
    if (mScreenShotController.isUseGraffitInNeed())
        return Qt::ArrowCursor;
    const ZRRect region = mScreenShotController.regionRect();
    if (m_drag.isPressed())
        return ChromeRules::pointerShape(m_drag.handle(), m_drag.holds(region));
    return ChromeRules::pointerShape(
        mScreenShotController.pointInResizeRect(point), RegionRules::isWithinReach(region, point));
}

void ZRScreenShotManager::stopScreenShot()
{
    ZRScreenShotSetting::clear();
    AppSettings::restoreLastRunningAndActiveApp(); // before the keyboard is free: no key goes astray
    scheduleClear();
    releaseInput();
    closeScreenShotWindow();
    ZRLocalNotificationCenter::defaultLocalNotificationCenter().comeBack();
    m_frame.reset();
    m_screens.forgetStored();
    CommLog::log(QStringLiteral("stop screenShot"));
}

// A timer of an older capture must not clear a newer one.
void ZRScreenShotManager::scheduleClear()
{
    QTimer::singleShot(kClearDelayMs, this, [this, capture = m_captureNumber] {
        if (capture == m_captureNumber && m_isEnding)
            clear();
    });
}

void ZRScreenShotManager::releaseInput()
{
    m_platform.frontKeeper->release();
    m_platform.inputGrab->releasePointer();
    if (m_isEndedByKey)
        m_platform.inputGrab->releaseWithKey();
    else
        m_platform.inputGrab->release();
}

void ZRScreenShotManager::_cancelScreenshot()
{
    if (onPreempt)
        onPreempt();
    m_tools.cancel();
    if (mIsCapturing && !m_isEnding)
        mScreenShotController.cancelRegionScreenShot();
}

void ZRScreenShotManager::closeScreenShotWindow()
{
    mGraffitManager.reset();
    ScreenCoverWindow::discard(std::move(mScreenShotEditorWindow));
}

void ZRScreenShotManager::clear()
{
    mHotKey.clear();
    closeScreenShotWindow();
    mIsCapturing = false;
    mScreenShotController.clear();
    m_drag = {};
    initContext();
}

void ZRScreenShotManager::revealFile(const QString& path)
{
    if (!m_platform.workspace->revealFile(path))
        CommLog::log(QStringLiteral("the file cannot be shown, nor its folder: %1"), path);
}

void ZRScreenShotManager::reportOutcome(quint64 capture, const CaptureOutcome& outcome)
{
    if (onFinished)
        onFinished(capture, outcome);
}

// A capture whose display went away or changed cannot show its frame any more.
void ZRScreenShotManager::displaysChanged()
{
    const auto displays = m_platform.displays->all();
    const auto isThere = [&displays](const DisplayRecord& display) {
        return std::find(displays.begin(), displays.end(), display) != displays.end();
    };
    if (m_frame && mIsCapturing && !m_isEnding && !isThere(m_frame->display())) {
        CommLog::log(QStringLiteral("the captured display changed, the capture ends"));
        _cancelScreenshot();
    }
    m_screens.keepAmong(displays);
    if (m_preparedWindow && !isThere(m_preparedWindow->screenDisplay()))
        m_preparedWindow.reset();
    m_tools.checkDisplay();
    if (!mIsCapturing)
        initContext();
}
