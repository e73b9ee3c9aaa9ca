#include "packaging/macos/IconFile.h"

#include <QFile>
#include <QGuiApplication>

#include <cstdio>

// make_icon SVG ICNS
int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    const QByteArray icon = arguments.size() == 3 ? iconFile(arguments[1]) : QByteArray();
    QFile file(arguments.value(2));
    if (!icon.isEmpty() && file.open(QIODevice::WriteOnly) && file.write(icon) == icon.size())
        return 0;
    std::fprintf(stderr, "usage: make_icon SVG ICNS; %s\n", qPrintable(file.errorString()));
    return 1;
}
