#include "customui/Images.h"

#include "customui/ImageIconEngine.h"

#include <QColor>
#include <QFile>
#include <QHash>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <array>
#include <map>
#include <tuple>

namespace {

struct State {
    QLatin1String suffix;
    QColor ink;
};

const std::array<State, 5> kStates{{
    {QLatin1String("-normal"), QColor(58, 74, 97)},
    {QLatin1String("-nomal"), QColor(58, 74, 97)}, // Kept: the spelling of "dinClose-nomal".
    {QLatin1String("-hover"), QColor(42, 123, 244)},
    {QLatin1String("-down"), QColor(19, 94, 207)},
    {QLatin1String("-disabled"), QColor(172, 183, 198)},
}};

struct Drawing {
    QByteArray svg; // empty when no picture has the name
    QSizeF size;    // points
};

Drawing readDrawing(const QString& base)
{
    QFile file(QStringLiteral(":/images/%1.svg").arg(base));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray svg = file.readAll();
    return {svg, QSvgRenderer(svg).defaultSize()};
}

const Drawing& drawingOf(const QString& base)
{
    static QHash<QString, Drawing> drawings;
    auto found = drawings.find(base);
    if (found == drawings.end())
        found = drawings.insert(base, readDrawing(base));
    return *found;
}

// A picture's name without its state, and the state.
std::pair<QString, const State&> splitName(const QString& name)
{
    for (const State& state : kStates)
        if (name.endsWith(state.suffix))
            return {name.chopped(state.suffix.size()), state};
    return {name, kStates.front()};
}

QPixmap rendered(const Drawing& drawing, const QColor& ink, QSizeF size, qreal scale)
{
    QSvgRenderer renderer(QByteArray(drawing.svg).replace("currentColor", ink.name().toLatin1()));
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    QImage image((size * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    painter.end();
    QPixmap pixmap = QPixmap::fromImage(std::move(image));
    pixmap.setDevicePixelRatio(scale);
    return pixmap;
}

}

QPixmap imageNamed(const QString& name, QSizeF size, qreal scale)
{
    const auto [base, state] = splitName(name);
    const Drawing& drawing = drawingOf(base);
    if (drawing.svg.isEmpty())
        return {};
    if (size.isEmpty())
        size = drawing.size;
    // Qt's own cache would wake the program up after a while to forget what is not shown.
    static std::map<std::tuple<QString, qreal, qreal, qreal>, QPixmap> pixmaps;
    QPixmap& pixmap = pixmaps[{name, size.width(), size.height(), scale}];
    if (pixmap.isNull())
        pixmap = rendered(drawing, state.ink, size, scale);
    return pixmap;
}

QSizeF imageSize(const QString& name)
{
    return drawingOf(splitName(name).first).size;
}

QIcon iconNamed(const QString& name)
{
    return imageSize(name).isEmpty() ? QIcon() : QIcon(new ImageIconEngine(name));
}
