#pragma once

#include "customui/View.h"
#include "platform/DisplayRecord.h"
#include "platform/Frame.h"
#include "platform/WindowServer.h"

#include <QKeyEvent>

#include <memory>

class FrozenImageView;
class PaintGate;
class ZREventView;

// A window that covers one display with its frozen picture, above everything else. Layers from below: the
// frozen picture, what a subclass puts between, the event layer, which takes every mouse event. It may be
// made long before it is shown: until then it holds no pixels.
class ScreenCoverWindow : public View {
public:
    ScreenCoverWindow(const DisplayRecord& display, const QString& title);
    ~ScreenCoverWindow() override;

    const DisplayRecord& screenDisplay() const { return mScreen; }
    // What the window shows from now on; the frame is of this window's display.
    void setFrame(std::shared_ptr<const Frame> frame);
    const Frame* frame() const { return m_frame.get(); } // null before one was set
    // Takes the window off the screen at once and frees it when the event that ended it has been handled. It
    // may be null.
    static void discard(std::unique_ptr<ScreenCoverWindow> window);
    // Maps the window, without a picture yet, and takes the focus.
    void makeKeyAndOrderFront();
    // Whether a location of an event lies on the window's display, decided in device pixels.
    bool isOver(ZRPoint location) const;

    // Event locations are points of the window; those beside its display lie outside its bounds.
    virtual void mouseDown(const ZRMouseEvent& event) = 0;
    virtual void mouseUp(const ZRMouseEvent& event) = 0;
    virtual void mouseDragged(const ZRMouseEvent& event) = 0;
    virtual void mouseMoved(const ZRMouseEvent& event) = 0;
    virtual void rightMouseDown(const ZRMouseEvent& event) = 0;
    // `angle` in eighths of a degree, positive away from the user.
    virtual void scrollWheel(const ZRMouseEvent&, int angle) { Q_UNUSED(angle) }
    // Of a key that is held, all but the first are repeats.
    virtual void keyDown(const QKeyEvent& event) = 0;

protected:
    // From here on events reach nobody.
    virtual void detach() = 0;
    // Gives a layer the window's size and its place right below the event layer.
    void addLayer(View& layer);
    ZREventView& eventLayer() const { return *mFullEventView; }
    // Puts the picture on the shown window, the server where it can; `chrome`, points of the window, is what
    // lies on the picture and is painted in any case.
    void presentFrame(WindowServer& server, const Dimming& dimming, const QRegion& chrome);

private:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

    const DisplayRecord mScreen;
    std::shared_ptr<const Frame> m_frame;
    FrozenImageView* mFullImageView = nullptr;
    ZREventView* mFullEventView = nullptr;
    PaintGate* m_gate = nullptr;
    int m_releasedKey = 0;
    quint64 m_releaseTime = 0; // milliseconds of the server
};
