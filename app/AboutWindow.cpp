#include "app/AboutWindow.h"

#include "customui/Images.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>

AboutWindow::AboutWindow()
    : ZRCustomWindow({}, kTitledClosable, false, QColor(240, 248, 255))
    , mAboutContentView(new AboutView)
{
    setWindowIcon(iconNamed(QStringLiteral("Icon256x256")));
    setContentView(mAboutContentView);
}

void AboutWindow::changeText(const AboutTexts& texts)
{
    setWindowTitle(texts.title);
    mAboutContentView->changeText(texts);
    setContentView(mAboutContentView); // in its new size
}

void AboutWindow::showAbout()
{
    if (!isVisible()) {
        const QScreen* screen = QGuiApplication::screenAt(QCursor::pos());
        const QRect area = (screen ? screen : QGuiApplication::primaryScreen())->availableGeometry();
        move(area.center() - rect().center());
    }
    orderFront();
}
