#pragma once

#include "customui/View.h"
#include "platform/DisplayRecord.h"
#include "platform/Frame.h"
#include "platform/WindowServer.h"

#include <memory>

class FrozenImageView;
class PaintGate;
class ScreenShotBackView;
class ZREventView;
class ZRScreenShotManager;

// The overlay of a capture: covers one display with its frozen picture, above everything else, and hands
// every event to the manager. Layers from below: frozen picture, the view controller's view, event layer. It
// may be made long before it is shown: until then it holds no pixels.
class ZRStaticScreenShotWindow : public View {
public:
    explicit ZRStaticScreenShotWindow(const DisplayRecord& display);
    ~ZRStaticScreenShotWindow() override;

    const DisplayRecord& screenDisplay() const { return mScreen; }
    ScreenShotBackView& backView() const { return *m_backView; }
    void setMManager(ZRScreenShotManager* manager) { mManager = manager; } // not owned
    ZRScreenShotManager* getMManager() const { return mManager; }

    // What the overlay shows from now on; the frame is of this window's display.
    void setFrame(std::shared_ptr<const Frame> frame);
    // Maps the overlay above everything, without a picture yet, and takes the focus.
    void makeKeyAndOrderFront();
    // Puts the picture on it, the server where it can.
    void showFrame(WindowServer& server);

    // While on, the overlay gets the pointer's movements and presses on other displays too.
    void followPointerEverywhere(bool isOn);

    void mouseDown(const ZRMouseEvent& event);
    void mouseUp(const ZRMouseEvent& event);
    void mouseDragged(const ZRMouseEvent& event);
    void mouseMoved(const ZRMouseEvent& event);
    void rightMouseDown(const ZRMouseEvent& event);
    void keyDown(const QKeyEvent& event);

private:
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void fillWithLayers();

    const DisplayRecord mScreen;
    std::shared_ptr<const Frame> m_frame;
    FrozenImageView* mFullImageView = nullptr;
    ScreenShotBackView* m_backView = nullptr;
    ZREventView* mFullEventView = nullptr;
    PaintGate* m_gate = nullptr;
    ZRScreenShotManager* mManager = nullptr;
};
