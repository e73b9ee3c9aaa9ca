#include "capture/ZRStaticScreenShotWindow.h"

#include "capture/ScreenShotBackView.h"
#include "capture/ZREventView.h"
#include "capture/ZRScreenShotManager.h"
#include "editor/ZREditorView.h"
#include "editor/ZRScreenShotGraffitToolbar.h"
#include "editor/ZRScreenShotShareToolbar.h"

ZRStaticScreenShotWindow::ZRStaticScreenShotWindow(const DisplayRecord& display)
    : ScreenCoverWindow(display, QStringLiteral("Lumora Capture"))
    , m_backView(new ScreenShotBackView(this))
    , m_graffitToolbar(new ZRScreenShotGraffitToolbar(this))
    , m_shareToolbar(new ZRScreenShotShareToolbar(this))
{
    addLayer(*m_backView);
    m_backView->coverDisplay(display);
    eventLayer().editorAt = [this](ZRPoint location) {
        return mManager ? mManager->editorAt(location) : nullptr;
    };
}

void ZRStaticScreenShotWindow::prepareToolbars()
{
    m_graffitToolbar->prepareImages();
    m_shareToolbar->prepareImages();
}

void ZRStaticScreenShotWindow::addGraffitView(ZREditorView& view)
{
    view.stackUnder(m_backView);
}

void ZRStaticScreenShotWindow::showFrame(WindowServer& server, bool isAnnotated)
{
    const QRegion above = isAnnotated ? QRegion(rect()) : m_backView->touchedPoints();
    presentFrame(server, {ScreenShotBackView::kDim, m_backView->holePixels()}, above);
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

void ZRStaticScreenShotWindow::scrollWheel(const ZRMouseEvent& event, int angle)
{
    if (mManager)
        mManager->scrollWheel(event, angle);
}

void ZRStaticScreenShotWindow::keyDown(const QKeyEvent& event)
{
    if (mManager)
        mManager->keyDown(event);
}
