#include "capture/PointerTools.h"

#include "capture/FreezeNotice.h"
#include "capture/ToolScreen.h"
#include "capture/ZRColorWindow.h"
#include "commonutils/CommLog.h"
#include "output/ZRLocalNotificationCenter.h"
#include "settings/AppSettings.h"

#include <QTimer>

#include <algorithm>

namespace {

constexpr int kUncoverMs = 50; // what other programs take to draw an uncovered window

}

PointerTools::PointerTools(Platform& platform)
    : m_platform(platform)
{
}

PointerTools::~PointerTools() = default;

void PointerTools::start(ScreenShotTool tool, const DisplayRecord& display)
{
    m_tool = tool;
    m_isRunning = true;
    ++m_number;
    AppSettings::updateLastRunningAndActiveApp();
    whenUncovered(*this, [this, display, number = m_number] {
        if (m_isRunning && number == m_number)
            openOn(display);
    });
}

// A window on another display goes only when this one has the keyboard, so that no key reaches anybody else
// in between.
void PointerTools::openOn(const DisplayRecord& display)
{
    QString reason = QStringLiteral("there is no display");
    auto frame = display.isValid() ? m_platform.windowServer->freeze(display, &reason) : nullptr;
    if (!frame) {
        fail(reason);
        return tellOfFailedFreeze(reason);
    }
    auto before = std::move(m_distanceWindow);
    loadWindow(std::move(frame), before ? before->measurement() : Measurement{});
    m_distanceWindow->makeKeyAndOrderFront();
    m_platform.inputGrab->grabKeyboard(*m_distanceWindow->windowHandle());
    ScreenCoverWindow::discard(std::move(before));
    if (m_isRunning) // the keyboard may have been refused
        showWindow();
}

void PointerTools::loadWindow(std::shared_ptr<const Frame> frame, const Measurement& measurement)
{
    m_distanceWindow = ZRScreenShotDistanceWindow::loadForNib(frame->display());
    m_distanceWindow->setFrame(std::move(frame));
    m_distanceWindow->setShotToolsType(m_tool);
    m_distanceWindow->setMeasurement(measurement);
    m_distanceWindow->setScreenshotManager(this);
    if (const auto pointer = m_platform.displays->pointer())
        m_distanceWindow->loadSubView(m_distanceWindow->currenScreen().localPoint(*pointer));
}

void PointerTools::showWindow()
{
    m_distanceWindow->showFrame(*m_platform.windowServer);
    m_platform.inputGrab->grabPointer(*m_distanceWindow->windowHandle());
    m_platform.frontKeeper->keepInFront(*m_distanceWindow->windowHandle());
    if (onDisplay)
        onDisplay(m_distanceWindow->currenScreen());
}

void PointerTools::followPointer()
{
    const auto screen = ToolScreen::screenUnderPointer();
    if (m_distanceWindow && screen && *screen != m_distanceWindow->currenScreen())
        openOn(*screen);
}

void PointerTools::checkDisplay()
{
    if (!m_distanceWindow)
        return;
    const auto displays = m_platform.displays->all();
    if (std::find(displays.begin(), displays.end(), m_distanceWindow->currenScreen()) != displays.end())
        return;
    CommLog::log(QStringLiteral("the tool's display changed, the tool ends"));
    cancel();
}

void PointerTools::pick(QRgb colour)
{
    if (!m_distanceWindow)
        return;
    const DisplayRecord display = m_distanceWindow->currenScreen();
    end({colour, {}}, false);
    showColour(colour, display);
}

void PointerTools::showColour(QRgb colour, const DisplayRecord& display)
{
    if (!m_colorWindow)
        m_colorWindow = ZRColorWindow::loadForNib();
    m_colorWindow->setColorPanelWithColor(colour);
    m_colorWindow->showOn(display);
}

void PointerTools::cancel()
{
    end({}, false);
}

void PointerTools::cancelByKey()
{
    end({}, true);
}

void PointerTools::fail(const QString& reason)
{
    if (m_isRunning)
        CommLog::log(QStringLiteral("the tool cannot go on: %1").arg(reason));
    end({std::nullopt, reason}, false);
}

void PointerTools::end(const ToolOutcome& outcome, bool isByKey)
{
    if (!std::exchange(m_isRunning, false))
        return;
    AppSettings::restoreLastRunningAndActiveApp(); // before the keyboard is free: no key goes astray
    m_platform.inputGrab->releasePointer();
    m_platform.frontKeeper->release();
    if (isByKey)
        m_platform.inputGrab->releaseWithKey();
    else
        m_platform.inputGrab->release();
    if (m_distanceWindow)
        windowHasGone();
    ScreenCoverWindow::discard(std::move(m_distanceWindow));
    ZRLocalNotificationCenter::defaultLocalNotificationCenter().comeBack();
    if (onEnded)
        onEnded(outcome);
}

void PointerTools::windowHasGone()
{
    m_uncovered.setRemainingTime(kUncoverMs);
}

void PointerTools::whenUncovered(const QObject& context, std::function<void()> act)
{
    if (ZRLocalNotificationCenter::defaultLocalNotificationCenter().leaveScreen())
        windowHasGone();
    const qint64 left = m_uncovered.remainingTime();
    if (left <= 0)
        act();
    else
        QTimer::singleShot(int(left), &context, std::move(act));
}
