#include "bench/desktop/Subjects.h"

namespace {

constexpr Key kOverlayFloorKey = Key::Digit9;
constexpr Key kTrayFloorKey = Key(17);    // 8
constexpr Key kCaptureFloorKey = Key(16); // 7

QString position(Key key)
{
    return QString::number(int(key));
}

QProcessEnvironment variable(const char* name, const QString& value)
{
    QProcessEnvironment variables;
    variables.insert(QLatin1String(name), value);
    return variables;
}

QProcessEnvironment drawnAt(int scale)
{
    return variable("QT_SCALE_FACTOR", QString::number(scale));
}

}

QString Subjects::program()
{
    return QStringLiteral(LUMORA_PROGRAM);
}

Resident Subjects::ours(Desktop& desktop, int scale)
{
    return {desktop, program(), {}, kFullScreenKey, drawnAt(scale)};
}

Resident Subjects::oursWithoutNotices(Desktop& desktop)
{
    return {desktop, program(), {}, kFullScreenKey, variable("LUMORA_NOTICES", QStringLiteral("off"))};
}

Resident Subjects::overlayFloor(Desktop& desktop, int scale)
{
    return {desktop, QStringLiteral(FLOOR_OVERLAY), {position(kOverlayFloorKey)}, kOverlayFloorKey,
        drawnAt(scale)};
}

Resident Subjects::hoverFloor(Desktop& desktop, const QList<QRect>& bright)
{
    QStringList arguments{position(kOverlayFloorKey)};
    for (const QRect& r : bright)
        arguments << QStringLiteral("%1,%2,%3,%4").arg(r.x()).arg(r.y()).arg(r.width()).arg(r.height());
    return {desktop, QStringLiteral(FLOOR_OVERLAY), arguments, kOverlayFloorKey};
}

Resident Subjects::trayFloor(Desktop& desktop)
{
    return {desktop, QStringLiteral(FLOOR_TRAY), {position(kTrayFloorKey)}, kTrayFloorKey};
}

Resident Subjects::captureFloor(Desktop& desktop, const QString& folder)
{
    return {desktop, QStringLiteral(FLOOR_CAPTURE), {position(kCaptureFloorKey), folder}, kCaptureFloorKey};
}
