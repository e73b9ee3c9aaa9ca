#include "app/PreferencesWindow.h"

#include "app/ZRPreferencesView.h"
#include "customui/Images.h"
#include "customui/PanelLook.h"
#include "settings/AppSettings.h"

#include <QCursor>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>

namespace {

constexpr int kTitleBar = 40; // points kept free for it

}

PreferencesWindow::PreferencesWindow(Workspace& workspace)
    : ZRCustomWindow({}, kTitledClosable, false, QColor(240, 248, 255))
    , m_scroll(new QScrollArea)
    , mPreferencesContentView(new ZRPreferencesView(workspace, m_endpointTest, m_scroll->viewport()))
{
    setWindowIcon(iconNamed(QStringLiteral("Icon256x256")));
    setPalette(panelPalette());
    m_scroll->setFrameShape(QFrame::NoFrame);
    setContentView(m_scroll);
    m_scroll->setWidget(mPreferencesContentView); // in its place: a form that moves is dressed again
    mPreferencesContentView->onSizeChange = [this] { fit(); };
    onClose = [this] { exitTypeShortcut(); };
}

PreferencesWindow::~PreferencesWindow()
{
    mPreferencesContentView->onSizeChange = nullptr;
    mPreferencesContentView->onTyping = nullptr;
}

void PreferencesWindow::setOnTyping(std::function<void()> onTyping)
{
    mPreferencesContentView->onTyping = std::move(onTyping);
}

void PreferencesWindow::showPreferences()
{
    if (!mPreferencesContentView->isRecoding())
        settingsChanged();
    move(availableArea().center() - rect().center());
    orderFront();
}

void PreferencesWindow::settingsChanged()
{
    setWindowTitle(AppSettings::getXMLValueForKeywords(u"Comm:Options"));
    mPreferencesContentView->initialize();
}

void PreferencesWindow::changeText()
{
    setWindowTitle(AppSettings::getXMLValueForKeywords(u"Comm:Options"));
    mPreferencesContentView->changeText();
}

void PreferencesWindow::exitTypeShortcut()
{
    mPreferencesContentView->exitTypeShortcut();
}

// Escape closes, but no key closes while a shortcut is recorded.
void PreferencesWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && !mPreferencesContentView->isRecoding())
        close();
    else
        event->ignore();
}

QRect PreferencesWindow::availableArea() const
{
    const QScreen* screen = isVisible() ? this->screen() : QGuiApplication::screenAt(QCursor::pos());
    return (screen ? screen : QGuiApplication::primaryScreen())->availableGeometry();
}

void PreferencesWindow::fit()
{
    mPreferencesContentView->settleSize();
    QSize size = mPreferencesContentView->size();
    const int height = availableArea().height() - kTitleBar;
    if (size.height() > height)
        size = {size.width() + m_scroll->verticalScrollBar()->sizeHint().width(), height};
    if (size != m_scroll->size()) {
        m_scroll->resize(size);
        setContentView(m_scroll);
    }
}
