#include "bench/floors/GrabbedKey.h"

#include <QApplication>
#include <QMenu>
#include <QSystemTrayIcon>

// floor_tray KEYCODE: a tray icon with a menu, and a hot key that does nothing.
int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    const auto* x11 = app.nativeInterface<QNativeInterface::QX11Application>();
    if (!x11 || app.arguments().size() != 2)
        return 2;
    QPixmap picture(22, 22);
    picture.fill(Qt::darkCyan);
    QMenu menu;
    menu.addAction(QStringLiteral("Exit"), &app, &QCoreApplication::quit);
    QSystemTrayIcon icon{QIcon(picture)};
    icon.setContextMenu(&menu);
    icon.show();
    const GrabbedKey hotKey(xcb_keycode_t(app.arguments().at(1).toInt()), XCB_MOD_MASK_4);
    return hotKey.grab(x11->connection()) ? app.exec() : 1;
}
