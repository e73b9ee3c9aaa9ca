#pragma once

#include "capture/ToolOutcome.h"
#include "capture/ZRScreenShotDistanceWindow.h"
#include "platform/Platform.h"

#include <QDeadlineTimer>
#include <QObject>

#include <functional>
#include <memory>

class ZRColorWindow;

// Runs the measuring tool and the colour tool, one at a time, from their start until the desktop is the
// user's again, and keeps the colour window that a pick opens.
class PointerTools : public QObject {
public:
    // Borrows the platform, which must outlive it.
    explicit PointerTools(Platform& platform);
    ~PointerTools() override;

    // The tool on a display, with the application that is active now to come back afterwards. None may run.
    void start(ScreenShotTool tool, const DisplayRecord& display);
    bool isRunning() const { return m_isRunning; }
    const ZRScreenShotDistanceWindow* distanceWindow() const { return m_distanceWindow.get(); }
    // Null before the first pick.
    ZRColorWindow* colorWindow() const { return m_colorWindow.get(); }

    // Each does nothing while no tool runs.
    void pick(QRgb colour);
    void cancel();
    // The key is still down: until it comes up it is nobody else's.
    void cancelByKey();
    void fail(const QString& reason);
    // To the display that holds the pointer now, if it is another one.
    void followPointer();
    // To be called when the displays have changed.
    void checkDisplay();

    // A window of ours has just left the screen.
    void windowHasGone();
    // Takes the notices off the screen until a capture or a tool ends, and calls `act` once the windows that
    // notices, a tool or such a window covered have drawn themselves again: at once where none was just
    // covered. Not at all when `context` is gone by then.
    void whenUncovered(const QObject& context, std::function<void()> act);

    // A display on which a tool is now shown.
    std::function<void(const DisplayRecord&)> onDisplay;
    // Every tool that started is answered here, once.
    std::function<void(const ToolOutcome&)> onEnded;

private:
    void openOn(const DisplayRecord& display);
    void loadWindow(std::shared_ptr<const Frame> frame, const Measurement& measurement);
    void showWindow();
    void showColour(QRgb colour, const DisplayRecord& display);
    void end(const ToolOutcome& outcome, bool isByKey);

    Platform& m_platform;
    ScreenShotTool m_tool = ScreenShotTool::Distance;
    bool m_isRunning = false;
    quint64 m_number = 0; // of the tool, so that a late step is never taken in another one
    std::unique_ptr<ZRScreenShotDistanceWindow> m_distanceWindow;
    std::unique_ptr<ZRColorWindow> m_colorWindow;
    QDeadlineTimer m_uncovered; // when the desktop is itself again
};
