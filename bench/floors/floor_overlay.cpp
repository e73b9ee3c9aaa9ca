#include "bench/floors/OverlayFloor.h"

#include <QApplication>

// floor_overlay KEYCODE: shows OverlayFloor at Super and that key.
int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    const auto* x11 = app.nativeInterface<QNativeInterface::QX11Application>();
    if (!x11 || app.arguments().size() != 2)
        return 2;
    app.setQuitOnLastWindowClosed(false);
    OverlayFloor overlay(x11->connection(), xcb_keycode_t(app.arguments().at(1).toInt()));
    return overlay.begin() ? app.exec() : 1;
}
