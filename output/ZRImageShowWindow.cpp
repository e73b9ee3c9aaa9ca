#include "output/ZRImageShowWindow.h"

#include "customui/ZRHoverButton.h"
#include "settings/AppSettings.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>

#include <algorithm>

namespace {

constexpr int kButtonSize = 20; // points, as all below
constexpr int kButtonInset = 4;
constexpr double kFrameWidth = 2;
const QColor kFrameColor(42, 123, 244);

// Marks the window that the pointer is over or that has the keyboard.
class PinFrame : public QWidget {
public:
    explicit PinFrame(QWidget* parent)
        : QWidget(parent)
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        hide();
    }

private:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setPen(QPen(kFrameColor, kFrameWidth, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        const double half = kFrameWidth / 2;
        painter.drawRect(QRectF(rect()).adjusted(half, half, -half, -half));
    }
};

}

std::unique_ptr<ZRImageShowWindow> ZRImageShowWindow::loadForNib()
{
    return std::unique_ptr<ZRImageShowWindow>(new ZRImageShowWindow);
}

ZRImageShowWindow::ZRImageShowWindow()
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
    , bgView(new ZRImageView(this))
    , bgImageView(new PinFrame(this))
    , closeBtn(new ZRHoverButton(this))
{
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_QuitOnClose, false);
    setFocusPolicy(Qt::StrongFocus);
    setWindowTitle(AppSettings::getXMLValueForKeywords(u"Comm:PinToScreen"));
    bgView->setAttribute(Qt::WA_TransparentForMouseEvents);
    closeBtn->setImage(QStringLiteral("dinClose-nomal")); // Kept: the spelling.
    closeBtn->setHoverImage(QStringLiteral("dinClose-hover"));
    closeBtn->setDownImage(QStringLiteral("dinClose-down"));
    closeBtn->setFocusPolicy(Qt::NoFocus);
    closeBtn->resize(kButtonSize, kButtonSize);
    closeBtn->onAction = [this] { actionClose(); };
    closeBtn->hide();
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, [this] { returnToScreens(); });
}

void ZRImageShowWindow::backgroundWithImage(const QImage& image)
{
    bgView->setImage(image);
}

void ZRImageShowWindow::setPlace(const PinRules::Place& place, QPoint displayCorner)
{
    m_size = place.window.size();
    bgView->setSourceRect(place.showing);
    setGeometry(place.window.translated(displayCorner));
}

void ZRImageShowWindow::orderFront()
{
    show();
    raise();
}

void ZRImageShowWindow::actionClose()
{
    close();
}

void ZRImageShowWindow::enterEvent(QEnterEvent*)
{
    closeBtn->show();
    bgImageView->show();
    raise();
}

void ZRImageShowWindow::leaveEvent(QEvent*)
{
    closeBtn->hide();
    bgImageView->setVisible(isActiveWindow());
}

void ZRImageShowWindow::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::MiddleButton)
        return actionClose();
    activateWindow(); // where no window manager does
    if (event->button() == Qt::LeftButton)
        m_dragOffset = event->globalPosition().toPoint() - pos();
}

void ZRImageShowWindow::mouseMoveEvent(QMouseEvent* event)
{
    if (m_dragOffset)
        move(event->globalPosition().toPoint() - *m_dragOffset);
}

void ZRImageShowWindow::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        m_dragOffset.reset();
}

void ZRImageShowWindow::wheelEvent(QWheelEvent* event)
{
    m_wheelAngle += event->angleDelta().y();
    const int steps = m_wheelAngle / PinRules::kWheelStep;
    m_wheelAngle -= steps * PinRules::kWheelStep;
    if (event->modifiers() & Qt::ControlModifier)
        dimBy(-steps);
    else if (!m_dragOffset)
        zoomBy(steps, event->globalPosition().toPoint());
}

void ZRImageShowWindow::zoomBy(int steps, QPoint screenPoint)
{
    m_zoomSteps = PinRules::cutZoomSteps(m_zoomSteps + steps, m_size);
    const QSize size = m_size * PinRules::zoomAfter(m_zoomSteps);
    setGeometry(PinRules::zoomedAround(geometry(), screenPoint, size.expandedTo({1, 1})));
}

void ZRImageShowWindow::dimBy(int steps)
{
    m_opacitySteps = PinRules::cutOpacitySteps(m_opacitySteps + steps);
    setWindowOpacity(PinRules::opacityAfter(m_opacitySteps));
}

void ZRImageShowWindow::keyPressEvent(QKeyEvent* event)
{
    const bool isCommand =
        event->modifiers() == Qt::ControlModifier || event->modifiers() == Qt::MetaModifier;
    if (event->key() == Qt::Key_Escape)
        actionClose();
    else if (isCommand && event->key() == Qt::Key_C && onCopy)
        onCopy(image());
    else if (isCommand && event->key() == Qt::Key_S && onSave && !event->isAutoRepeat())
        onSave(image());
    else
        event->ignore();
}

void ZRImageShowWindow::closeEvent(QCloseEvent* event)
{
    event->accept();
    if (onClose)
        onClose();
}

void ZRImageShowWindow::resizeEvent(QResizeEvent*)
{
    bgView->setGeometry(rect());
    bgImageView->setGeometry(rect());
    closeBtn->move(width() - kButtonSize - kButtonInset, kButtonInset);
}

void ZRImageShowWindow::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::ActivationChange)
        bgImageView->setVisible(isActiveWindow() || underMouse());
    QWidget::changeEvent(event);
}

// The display that the window stood on has gone.
void ZRImageShowWindow::returnToScreens()
{
    const QList<QScreen*> screens = QGuiApplication::screens();
    const auto shows = [this](const QScreen* screen) { return screen->geometry().intersects(geometry()); };
    if (!screens.isEmpty() && std::none_of(screens.begin(), screens.end(), shows))
        move(QGuiApplication::primaryScreen()->availableGeometry().topLeft());
}
