#pragma once

#include "capture/MeasureRules.h"
#include "capture/PixelSample.h"
#include "capture/ScreenCoverWindow.h"

class PointerTools;
class ZRMagnifierView;
class ZRScreenshotCursorView;

// What such a window is for. Kept: the numbers.
enum class ScreenShotTool : unsigned { Distance = 0, Color = 1 };

// The window of the measuring tool and of the colour tool: covers one display with its frozen picture and
// follows the pointer with a cross and a magnifier. Each press begins a measurement of its own; a press and a
// release on the display pick the colour under the pointer.
class ZRScreenShotDistanceWindow : public ScreenCoverWindow {
public:
    // A window for a display, not shown yet and without a picture.
    static std::unique_ptr<ZRScreenShotDistanceWindow> loadForNib(const DisplayRecord& screen);

    const DisplayRecord& currenScreen() const { return screenDisplay(); }
    void setShotToolsType(ScreenShotTool type);
    ScreenShotTool shotToolsType() const { return _shotToolsType; }
    // Not owned.
    void setScreenshotManager(PointerTools* manager) { m_manager = manager; }

    // Kept: a measurement that came from another display goes on from the same numbers, but its cross stayed
    // behind; the next press begins anew.
    void setMeasurement(const Measurement& measurement) { m_measurement = measurement; }
    const Measurement& measurement() const { return m_measurement; }

    // Puts the picture on the shown window.
    void showFrame(WindowServer& server);
    // Follows the pointer to a place, in points of the window.
    void loadSubView(ZRPoint point);
    ZRMagnifierView& magnifier() const { return *magnifierView; }
    const ZRScreenshotCursorView& upCross() const { return *upCursouView; }

    void mouseDown(const ZRMouseEvent& event) override;
    void mouseUp(const ZRMouseEvent& event) override;
    void mouseDragged(const ZRMouseEvent& event) override;
    void mouseMoved(const ZRMouseEvent& event) override;
    void rightMouseDown(const ZRMouseEvent& event) override;
    void keyDown(const QKeyEvent& event) override;

private:
    void detach() override { m_manager = nullptr; }
    explicit ZRScreenShotDistanceWindow(const DisplayRecord& screen);
    void beginMeasurement(ZRPoint point);
    QRgb colourAt(ZRPoint point);

    ScreenShotTool _shotToolsType = ScreenShotTool::Distance;
    ZRMagnifierView* magnifierView = nullptr;
    ZRScreenshotCursorView* upCursouView = nullptr; // where the measurement began
    ZRScreenshotCursorView* cursouView = nullptr;   // where the pointer is
    Measurement m_measurement;
    PixelSample m_sample;
    PointerTools* m_manager = nullptr;
    bool m_isPressed = false; // a release belongs to the window that its press was on
};
