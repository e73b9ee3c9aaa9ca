#include "capture/ScreenCoverWindow.h"

#include "capture/FrozenImageView.h"
#include "capture/ToolScreen.h"
#include "capture/ZREventView.h"
#include "customui/PaintGate.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QScreen>
#include <QWindow>

ScreenCoverWindow::ScreenCoverWindow(const DisplayRecord& display, const QString& title)
    : View(nullptr,
          Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::BypassWindowManagerHint | Qt::Tool)
    , mScreen(display)
{
    setWindowTitle(title);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_QuitOnClose, false);
    setFocusPolicy(Qt::TabFocus); // a click leaves the keys to the text that is edited
    setMouseTracking(true);
    if (QScreen* screen = ToolScreen::qtScreen(display)) {
        setScreen(screen);
        setGeometry(screen->geometry());
    }
    setExactHeight(display.pixels.height() / display.scale);
    mFullImageView = new FrozenImageView(this);
    mFullEventView = new ZREventView(*this);
    for (QWidget* layer : {static_cast<QWidget*>(mFullImageView), static_cast<QWidget*>(mFullEventView)})
        layer->setGeometry(rect());
    m_gate = new PaintGate(*this);
}

ScreenCoverWindow::~ScreenCoverWindow() = default;

void ScreenCoverWindow::addLayer(View& layer)
{
    layer.setGeometry(rect());
    layer.setExactHeight(exactHeight());
    layer.stackUnder(mFullEventView);
}

void ScreenCoverWindow::setFrame(std::shared_ptr<const Frame> frame)
{
    m_frame = std::move(frame);
    mFullImageView->setFrame(m_frame);
}

void ScreenCoverWindow::discard(std::unique_ptr<ScreenCoverWindow> window)
{
    if (!window)
        return;
    window->detach();
    window->hide();
    window->setFrame(nullptr);
    window.release()->deleteLater();
}

void ScreenCoverWindow::makeKeyAndOrderFront()
{
    m_gate->showUnpainted();
    raise();
    activateWindow();
    setFocus();
}

void ScreenCoverWindow::presentFrame(WindowServer& server, const Dimming& dimming, const QRegion& chrome)
{
    const bool isPresented = m_frame && server.present(*m_frame, *windowHandle(), dimming);
    m_gate->paint(isPresented ? chrome : QRegion(rect()));
}

bool ScreenCoverWindow::isOver(ZRPoint location) const
{
    const QPoint pixel = mScreen.localPixels({location.x, location.y, 0, 0}).topLeft();
    return QRect({0, 0}, mScreen.pixels.size()).contains(pixel);
}

// Qt looks for the child under the pointer at a whole point: in the last half point of the right and bottom
// edges, as beside the window, it finds none. The event layer takes those places, too.
bool ScreenCoverWindow::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
    case QEvent::Wheel:
        return QCoreApplication::sendEvent(mFullEventView, event);
    default:
        return View::event(event);
    }
}

// A key that is held comes up and goes down again in one moment; Qt tells so only where it has seen both.
void ScreenCoverWindow::keyPressEvent(QKeyEvent* event)
{
    const bool isRepeat =
        event->isAutoRepeat() || (event->key() == m_releasedKey && event->timestamp() == m_releaseTime);
    keyDown({event->type(), event->key(), event->modifiers(), event->nativeScanCode(),
        event->nativeVirtualKey(), event->nativeModifiers(), event->text(), isRepeat});
}

void ScreenCoverWindow::keyReleaseEvent(QKeyEvent* event)
{
    m_releasedKey = event->key();
    m_releaseTime = event->timestamp();
}

// Nobody but its owner ends what the window shows.
void ScreenCoverWindow::closeEvent(QCloseEvent* event)
{
    event->ignore();
}
