#include "platform/x11/DesktopRules.h"

#include <QRegularExpression>

// An X server may well run inside a Wayland session, but it shows none of the other programs' pixels.
QString problemOf(const DesktopEnvironment& environment)
{
    const QString type = environment.sessionType;
    if (type == QStringLiteral("wayland") ||
        (type != QStringLiteral("x11") && !environment.waylandDisplay.isEmpty()))
        return QStringLiteral(
            "This is a Wayland session; Lumora Mac Screenshot needs an X11 session for now.");
    if (environment.display.isEmpty())
        return QStringLiteral("There is no display: DISPLAY is not set.");
    return {};
}

QString sessionNameOf(const QString& display)
{
    static const QRegularExpression form(QStringLiteral("^(.*):(\\d+)(\\.\\d+)?$"));
    static const QRegularExpression unfitForFileName(QStringLiteral("[^A-Za-z0-9.-]"));
    const QRegularExpressionMatch match = form.match(display);
    QString host = match.hasMatch() ? match.captured(1) : display;
    if (host == QStringLiteral("unix"))
        host.clear();
    host.replace(unfitForFileName, QStringLiteral("_"));
    QString name = QStringLiteral("X11");
    for (const QString& part : {host, match.captured(2)}) {
        if (!part.isEmpty())
            name += QLatin1Char('-') + part;
    }
    return name;
}
