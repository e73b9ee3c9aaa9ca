#include "output/ZRNotificationWindow.h"

#include "commonutils/NotificationCenter.h"
#include "geometry/ZRServerRect.h"
#include "output/NotificationRules.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainterPath>
#include <QScreen>

#include <utility>

namespace {

constexpr double kCornerRadius = 4; // points

// Empty while there is no display at all.
QRect mainScreen()
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? screen->geometry() : QRect();
}

ZRSize mainScreenSize()
{
    const QRect screen = mainScreen();
    return {double(screen.width()), double(screen.height())};
}

QRegion rounded(const QRect& rect)
{
    QPainterPath path;
    path.addRoundedRect(rect, kCornerRadius, kCornerRadius);
    return QRegion(path.toFillPolygon().toPolygon());
}

}

ZRNotificationWindow::ZRNotificationWindow(NoticeClock& clock, QWidget* contentView, bool isBlended)
    : QWidget(nullptr, Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::BypassWindowManagerHint |
                           Qt::Tool | Qt::WindowDoesNotAcceptFocus)
    , m_clock(clock)
    , m_isBlended(isBlended)
    , m_screen(mainScreenSize())
{
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_X11NetWmWindowTypeNotification);
    setAttribute(Qt::WA_QuitOnClose, false);
    setAttribute(Qt::WA_TranslucentBackground, isBlended);
    setPalette(QPalette(Qt::white));
    contentView->setParent(this);
    contentView->move(0, 0);
    contentView->show();
    setFixedSize(contentView->size());
}

ZRNotificationWindow::~ZRNotificationWindow()
{
    for (NoticeClock::Task* task : {&m_startTask, &m_moveTask, &m_stopTask, &m_stepTask, &m_endTask})
        m_clock.cancel(*task);
}

void ZRNotificationWindow::start()
{
    m_isStarted = true;
    m_screen = mainScreenSize();
    const ZRSize size{double(width()), double(height())};
    standAt(NotificationRules::hiddenAtRightEdge(m_screen, size));
    show();
    raise();
    slideTo(NotificationRules::standing(m_screen, size));
    didStart();
}

void ZRNotificationWindow::startWithDelay(int delay)
{
    m_startTask = m_clock.after(delay, [this] { start(); });
}

void ZRNotificationWindow::didStart()
{
    stopWithDelay(NotificationRules::kShownMs);
}

void ZRNotificationWindow::stop()
{
    m_clock.cancel(m_stopTask);
    if (std::exchange(m_isLeaving, true))
        return;
    slideTo(NotificationRules::slidOut(m_target));
    endIn(NotificationRules::kSlideMs);
}

void ZRNotificationWindow::stopWithDelay(int delay)
{
    m_clock.cancel(m_stopTask);
    if (!m_isLeaving)
        m_stopTask = m_clock.after(delay, [this] { stopNotificationFromDelayedRequest(); });
}

void ZRNotificationWindow::movedDown(double newHeight)
{
    m_clock.cancel(m_stopTask);
    if (m_isLeaving)
        return;
    if (m_movedCount > 0)
        return stop();
    moveDownBy(newHeight);
    stopWithDelay(NotificationRules::kShownLongerMs);
}

void ZRNotificationWindow::movedDownDelay(int delay, double newHeight)
{
    if (!m_isLeaving) // else it may be gone by then
        m_moveTask = m_clock.after(delay, [this, newHeight] { movedDown(newHeight); });
}

void ZRNotificationWindow::moveDownBy(double newHeight)
{
    ++m_movedCount;
    slideTo(NotificationRules::belowNewOne(m_target, newHeight));
}

void ZRNotificationWindow::exitWithFadeOut()
{
    m_clock.cancel(m_stopTask);
    if (std::exchange(m_isLeaving, true))
        return;
    m_clock.cancel(m_stepTask);
    m_began = m_clock.now();
    fadeOn();
    endIn(NotificationRules::kSlideMs);
}

void ZRNotificationWindow::endIn(int delay)
{
    m_endTask = m_clock.after(delay, [this] { sendNotificationEndMessage(); });
}

void ZRNotificationWindow::sendNotificationEndMessage()
{
    NotificationCenter::defaultCenter().post(QString::fromUtf16(kEnded),
        {{QString::fromUtf16(kWindowKey), QVariant::fromValue(static_cast<QObject*>(this))}});
}

void ZRNotificationWindow::screenChanged()
{
    const ZRSize before = std::exchange(m_screen, mainScreenSize());
    if (!m_isStarted)
        return;
    for (ZRRect* frame : {&m_from, &m_target})
        *frame = NotificationRules::onOtherScreen(*frame, before, m_screen);
    standAt(NotificationRules::onOtherScreen(m_frame, before, m_screen));
}

void ZRNotificationWindow::slideTo(ZRRect target)
{
    m_clock.cancel(m_stepTask);
    m_from = m_frame;
    m_target = target;
    m_began = m_clock.now();
    slideOn();
}

void ZRNotificationWindow::slideOn()
{
    const double part = NotificationRules::eased(double(movedFor()) / NotificationRules::kSlideMs);
    standAt(NotificationRules::between(m_from, m_target, part));
    if (part >= 1)
        update(); // what changed beyond the shape has not been painted
    goOnWith(&ZRNotificationWindow::slideOn);
}

void ZRNotificationWindow::fadeOn()
{
    setWindowOpacity(1 - NotificationRules::eased(double(movedFor()) / NotificationRules::kSlideMs));
    goOnWith(&ZRNotificationWindow::fadeOn);
}

void ZRNotificationWindow::goOnWith(void (ZRNotificationWindow::*step)())
{
    const auto left = int(NotificationRules::kSlideMs - movedFor());
    if (left > 0)
        m_stepTask =
            m_clock.after(qMin(NotificationRules::kFrameMs, left), [this, step] { (this->*step)(); });
}

// The window keeps its size; what the frame leaves of it is a matter of its shape, which costs no painting.
void ZRNotificationWindow::standAt(ZRRect frame)
{
    m_frame = frame;
    const ZRServerRect down = flippedDown(frame, m_screen.height);
    move(mainScreen().topLeft() + QPoint(qRound(down.x), qRound(down.y)));
    shapeFor(qMax(1, qRound(down.width)));
}

void ZRNotificationWindow::shapeFor(int visibleWidth)
{
    const QRect visible(0, 0, visibleWidth, height());
    if (!m_isBlended)
        setMask(rounded(rect()) & visible);
    else if (visibleWidth < width())
        setMask(visible);
    else
        clearMask();
}

void ZRNotificationWindow::mousePressEvent(QMouseEvent* event)
{
    if (m_isLeaving)
        return;
    if (onClick && event->button() == Qt::LeftButton)
        onClick();
    if (isClosedByClick())
        exitWithFadeOut();
}
