#pragma once

#include "capture/ScreenCoverWindow.h"

class ScreenShotBackView;
class ZREditorView;
class ZRScreenShotGraffitToolbar;
class ZRScreenShotManager;
class ZRScreenShotShareToolbar;

// The overlay of a capture: hands every event to the manager. Its layers between the frozen picture and the
// event layer: the annotations, which are opaque where they are painted, and above them the view controller's
// view with mask, border and what must stay in sight. Above the event layer stand the toolbars and what opens
// from them; they get their events themselves.
class ZRStaticScreenShotWindow : public ScreenCoverWindow {
public:
    explicit ZRStaticScreenShotWindow(const DisplayRecord& display);

    ScreenShotBackView& backView() const { return *m_backView; }
    ZRScreenShotGraffitToolbar& graffitToolbar() const { return *m_graffitToolbar; }
    ZRScreenShotShareToolbar& shareToolbar() const { return *m_shareToolbar; }
    void setMManager(ZRScreenShotManager* manager) { mManager = manager; } // not owned
    ZRScreenShotManager* getMManager() const { return mManager; }

    // Gives the view of the annotations, a child already, its place.
    void addGraffitView(ZREditorView& view);
    // Draws what the first showing of the toolbars needs; for an idle moment.
    void prepareToolbars();
    // Puts the picture and the mask on the shown overlay, and on them the region's chrome, or, with
    // `isAnnotated`, everything that stands there already.
    void showFrame(WindowServer& server, bool isAnnotated);

    void mouseDown(const ZRMouseEvent& event) override;
    void mouseUp(const ZRMouseEvent& event) override;
    void mouseDragged(const ZRMouseEvent& event) override;
    void mouseMoved(const ZRMouseEvent& event) override;
    void rightMouseDown(const ZRMouseEvent& event) override;
    void scrollWheel(const ZRMouseEvent& event, int angle) override;
    void keyDown(const QKeyEvent& event) override;

private:
    void detach() override { mManager = nullptr; }

    ScreenShotBackView* m_backView = nullptr;
    ZRScreenShotGraffitToolbar* m_graffitToolbar = nullptr;
    ZRScreenShotShareToolbar* m_shareToolbar = nullptr;
    ZRScreenShotManager* mManager = nullptr;
};
