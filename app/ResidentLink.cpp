#include "app/ResidentLink.h"

#include "platform/Platform.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>

namespace {

const QString kExitCode = QStringLiteral("exitCode");
const QString kOut = QStringLiteral("out");
const QString kErr = QStringLiteral("err");

QString runtimeFile(const QString& suffix)
{
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation) +
           QStringLiteral("/com.Lumora.Screenshot-") + desktopSessionName() + suffix;
}

}

QString ResidentLink::startVerb()
{
    return QStringLiteral("start");
}

QString ResidentLink::socketPath()
{
    return runtimeFile(QStringLiteral(".socket"));
}

QString ResidentLink::lockPath()
{
    return runtimeFile(QStringLiteral(".lock"));
}

QByteArray ResidentLink::encoded(const Reply& reply)
{
    const QJsonObject object{{kExitCode, reply.exitCode}, {kOut, reply.out}, {kErr, reply.err}};
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

std::optional<Reply> ResidentLink::decoded(const QByteArray& line)
{
    const QJsonObject object = QJsonDocument::fromJson(line).object();
    if (!object.contains(kExitCode))
        return std::nullopt;
    return Reply{object[kExitCode].toInt(), object[kOut].toString(), object[kErr].toString()};
}
