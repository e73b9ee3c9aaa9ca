#include "packaging/IconDrawing.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSvgRenderer>

#include <algorithm>
#include <cstdio>
#include <iterator>

namespace {

constexpr int kSizes[] = {16, 22, 24, 32, 48, 64, 96, 128, 256, 512}; // pixels
constexpr int kSmallest = 16;                                         // has a drawing of its own

bool writeIcon(QSvgRenderer& drawing, const QString& theme, const QString& name, int pixels)
{
    const QString folder = QStringLiteral("%1/%2x%2/apps").arg(theme).arg(pixels);
    QFile file(QStringLiteral("%1/%2.png").arg(folder, name));
    const QByteArray picture = iconPicture(drawing, pixels);
    return QDir().mkpath(folder) && file.open(QIODevice::WriteOnly) &&
           file.write(picture) == picture.size() && file.flush();
}

}

// make_icons SVG SMALLEST-SVG THEME NAME: the icon's sizes as an icon theme's folder holds them.
int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    QSvgRenderer drawing(arguments.value(1)), smallest(arguments.value(2));
    if (arguments.size() == 5 && drawing.isValid() && smallest.isValid() &&
        std::all_of(std::begin(kSizes), std::end(kSizes), [&](int pixels) {
            return writeIcon(pixels == kSmallest ? smallest : drawing, arguments[3], arguments[4], pixels);
        }))
        return 0;
    std::fputs("usage: make_icons SVG SMALLEST-SVG THEME NAME\n", stderr);
    return 1;
}
