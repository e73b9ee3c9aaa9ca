#include "capture/ZRScreenShotDistanceWindow.h"

#include "capture/OverlayKeys.h"
#include "capture/PointerTools.h"
#include "capture/ZRMagnifierView.h"
#include "capture/ZRScreenshotCursorView.h"
#include "customui/Images.h"

namespace {

const QColor kPressCross = QColor::fromRgbF(0.6F, 0.89F, 0.58F);

QPixmap crossImage(const QString& name, const QWidget& on)
{
    return imageNamed(name, imageSize(name), on.devicePixelRatioF());
}

}

std::unique_ptr<ZRScreenShotDistanceWindow> ZRScreenShotDistanceWindow::loadForNib(
    const DisplayRecord& screen)
{
    return std::unique_ptr<ZRScreenShotDistanceWindow>(new ZRScreenShotDistanceWindow(screen));
}

ZRScreenShotDistanceWindow::ZRScreenShotDistanceWindow(const DisplayRecord& screen)
    : ScreenCoverWindow(screen, QStringLiteral("Lumora Tool"))
    , magnifierView(ZRMagnifierView::loadForNib(this))
    , upCursouView(new ZRScreenshotCursorView(this))
    , cursouView(new ZRScreenshotCursorView(this))
{
    setCursor(Qt::BlankCursor); // the cross stands for it
    for (ChromeLayer* layer : {static_cast<ChromeLayer*>(magnifierView),
             static_cast<ChromeLayer*>(upCursouView), static_cast<ChromeLayer*>(cursouView)}) {
        addLayer(*layer);
        layer->coverDisplay(screen);
    }
    upCursouView->setCrosimage(crossImage(QStringLiteral("cross_lighter"), *this));
    upCursouView->setHideLine(false);
    upCursouView->setLineColor(kPressCross);
    cursouView->showCross();
}

void ZRScreenShotDistanceWindow::setShotToolsType(ScreenShotTool type)
{
    _shotToolsType = type;
    if (type == ScreenShotTool::Color)
        cursouView->setCrosimage(crossImage(QStringLiteral("colorabc"), *this));
}

void ZRScreenShotDistanceWindow::showFrame(WindowServer& server)
{
    QRegion chrome;
    for (const ChromeLayer* layer : {static_cast<ChromeLayer*>(magnifierView),
             static_cast<ChromeLayer*>(upCursouView), static_cast<ChromeLayer*>(cursouView)})
        chrome += layer->touchedPoints();
    presentFrame(server, {}, chrome);
}

void ZRScreenShotDistanceWindow::loadSubView(ZRPoint point)
{
    if (!frame())
        return;
    cursouView->updateCrossLocation(point);
    const QImage& content = m_sample.around(*frame(), point);
    if (_shotToolsType == ScreenShotTool::Distance)
        magnifierView->showMagnifierWithContent(
            content, point, MeasureRules::measuredSize(m_measurement, point));
    else
        magnifierView->showMagnifierWithContent(content, point, QColor::fromRgb(colourAt(point)));
}

QRgb ZRScreenShotDistanceWindow::colourAt(ZRPoint point)
{
    const QImage& content = m_sample.around(*frame(), point);
    return content.pixel(content.width() / 2, content.height() / 2);
}

void ZRScreenShotDistanceWindow::mouseDown(const ZRMouseEvent& event)
{
    m_isPressed = isOver(event.location);
    if (m_isPressed && _shotToolsType == ScreenShotTool::Distance)
        beginMeasurement(event.location);
}

void ZRScreenShotDistanceWindow::beginMeasurement(ZRPoint point)
{
    m_measurement = {point, true};
    upCursouView->updateCrossLocation(point);
    upCursouView->showCross();
    loadSubView(point);
}

void ZRScreenShotDistanceWindow::mouseUp(const ZRMouseEvent& event)
{
    const bool isPick = std::exchange(m_isPressed, false) && isOver(event.location);
    if (isPick && _shotToolsType == ScreenShotTool::Color && frame() && m_manager)
        m_manager->pick(colourAt(event.location));
}

void ZRScreenShotDistanceWindow::mouseDragged(const ZRMouseEvent& event)
{
    if (m_isPressed)
        loadSubView(event.location);
}

void ZRScreenShotDistanceWindow::mouseMoved(const ZRMouseEvent& event)
{
    if (isOver(event.location))
        loadSubView(event.location);
    else if (m_manager)
        m_manager->followPointer();
}

void ZRScreenShotDistanceWindow::rightMouseDown(const ZRMouseEvent&)
{
    if (m_manager)
        m_manager->cancel();
}

void ZRScreenShotDistanceWindow::keyDown(const QKeyEvent& event)
{
    if (m_manager && overlayAction(event) == OverlayAction::Cancel)
        m_manager->cancelByKey();
}
