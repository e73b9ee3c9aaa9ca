#include "bench/floors/OverlayFloor.h"

#include <QApplication>

namespace {

QRect rectangle(const QString& text)
{
    const QStringList numbers = text.split(QLatin1Char(','));
    return {numbers.value(0).toInt(), numbers.value(1).toInt(), numbers.value(2).toInt(),
        numbers.value(3).toInt()};
}

}

// floor_overlay KEYCODE [X,Y,WIDTH,HEIGHT...]: shows OverlayFloor at Super and that key. The rectangles
// become bright under the pointer.
int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    const auto* x11 = app.nativeInterface<QNativeInterface::QX11Application>();
    if (!x11 || app.arguments().size() < 2)
        return 2;
    app.setQuitOnLastWindowClosed(false);
    OverlayFloor overlay(x11->connection(), xcb_keycode_t(app.arguments().at(1).toInt()));
    for (const QString& argument : app.arguments().mid(2))
        overlay.addBright(rectangle(argument));
    return overlay.begin() ? app.exec() : 1;
}
