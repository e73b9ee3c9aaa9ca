#include "capture/ZRStaticScreenShotWindow.h"

#include "capture/FrozenImageView.h"
#include "capture/ScreenShotBackView.h"
#include "capture/ToolScreen.h"
#include "capture/ZREventView.h"
#include "capture/ZRScreenShotManager.h"
#include "customui/PaintGate.h"

#include <QCloseEvent>
#include <QScreen>
#include <QWindow>

ZRStaticScreenShotWindow::ZRStaticScreenShotWindow(const DisplayRecord& display)
    : View(nullptr,
          Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::BypassWindowManagerHint | Qt::Tool)
    , mScreen(display)
{
    setWindowTitle(QStringLiteral("Lumora Capture"));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_QuitOnClose, false);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    if (QScreen* screen = ToolScreen::qtScreen(display)) {
        setScreen(screen);
        setGeometry(screen->geometry());
    }
    setExactHeight(display.pixels.height() / display.scale);
    fillWithLayers();
    m_gate = new PaintGate(*this);
}

ZRStaticScreenShotWindow::~ZRStaticScreenShotWindow() = default;

void ZRStaticScreenShotWindow::fillWithLayers()
{
    mFullImageView = new FrozenImageView(this);
    m_backView = new ScreenShotBackView(this);
    mFullEventView = new ZREventView(*this);
    for (QWidget* layer : {static_cast<QWidget*>(mFullImageView), static_cast<QWidget*>(m_backView),
             static_cast<QWidget*>(mFullEventView)})
        layer->setGeometry(rect());
    m_backView->setExactHeight(exactHeight());
}

void ZRStaticScreenShotWindow::setFrame(std::shared_ptr<const Frame> frame)
{
    m_frame = std::move(frame);
    mFullImageView->setFrame(m_frame);
}

void ZRStaticScreenShotWindow::makeKeyAndOrderFront()
{
    m_gate->showUnpainted();
    raise();
    activateWindow();
    setFocus();
}

void ZRStaticScreenShotWindow::showFrame(WindowServer& server)
{
    const Dimming dimming{ScreenShotBackView::kDim, m_backView->holePixels()};
    const bool isPresented = m_frame && server.present(*m_frame, *windowHandle(), dimming);
    m_gate->paint(isPresented ? m_backView->chromePoints() : QRegion(rect()));
}

void ZRStaticScreenShotWindow::followPointerEverywhere(bool isOn)
{
    windowHandle()->setMouseGrabEnabled(isOn);
}

// Comes for places beside the overlay only; on it the event layer is above.
void ZRStaticScreenShotWindow::mouseMoveEvent(QMouseEvent* event)
{
    mouseMoved(translated(*event));
}

void ZRStaticScreenShotWindow::mouseDown(const ZRMouseEvent& event)
{
    if (mManager)
        mManager->mouseDown(event);
}

void ZRStaticScreenShotWindow::mouseUp(const ZRMouseEvent& event)
{
    if (mManager)
        mManager->mouseUp(event);
}

void ZRStaticScreenShotWindow::mouseDragged(const ZRMouseEvent& event)
{
    if (mManager)
        mManager->mouseDragged(event);
}

void ZRStaticScreenShotWindow::mouseMoved(const ZRMouseEvent& event)
{
    if (mManager)
        mManager->mouseMoved(event);
}

void ZRStaticScreenShotWindow::rightMouseDown(const ZRMouseEvent& event)
{
    if (mManager)
        mManager->rightMouseDown(event);
}

void ZRStaticScreenShotWindow::keyDown(const QKeyEvent& event)
{
    if (mManager)
        mManager->keyDown(event);
}

void ZRStaticScreenShotWindow::keyPressEvent(QKeyEvent* event)
{
    keyDown(*event);
}

// Nobody but the manager ends a capture.
void ZRStaticScreenShotWindow::closeEvent(QCloseEvent* event)
{
    event->ignore();
}
