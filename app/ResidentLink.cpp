#include "app/ResidentLink.h"

#include "platform/Platform.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>

namespace {

const QString kExitCode = QStringLiteral("exitCode");
const QString kOut = QStringLiteral("out");
const QString kErr = QStringLiteral("err");
const QString kRawSize = QStringLiteral("rawSize");
const QString kVerb = QStringLiteral("verb");
const QString kDisplay = QStringLiteral("display");
const QString kGeometry = QStringLiteral("geometry");
const QString kLast = QStringLiteral("last");
const QString kDelay = QStringLiteral("delay");
const QString kOutput = QStringLiteral("output");
const QString kClipboard = QStringLiteral("clipboard");
const QString kJson = QStringLiteral("json");

QByteArray lineOf(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

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

QString ResidentLink::healthVerb()
{
    return QStringLiteral("health");
}

QString ResidentLink::socketPath()
{
    return runtimeFile(QStringLiteral(".socket"));
}

QString ResidentLink::lockPath()
{
    return runtimeFile(QStringLiteral(".lock"));
}

QByteArray ResidentLink::encoded(const VerbRequest& request)
{
    return lineOf({{kVerb, request.verb}, {kDisplay, request.display}, {kGeometry, request.geometry},
        {kLast, request.isLast}, {kDelay, request.delay}, {kOutput, request.output},
        {kClipboard, request.toClipboard}, {kJson, request.isJson}});
}

std::optional<VerbRequest> ResidentLink::decodedRequest(const QByteArray& line)
{
    const QJsonObject object = QJsonDocument::fromJson(line).object();
    if (!object[kVerb].isString())
        return std::nullopt;
    return VerbRequest{.verb = object[kVerb].toString(),
        .display = object[kDisplay].toString(),
        .geometry = object[kGeometry].toString(),
        .isLast = object[kLast].toBool(),
        .delay = object[kDelay].toInt(),
        .output = object[kOutput].toString(),
        .toClipboard = object[kClipboard].toBool(),
        .isJson = object[kJson].toBool()};
}

QByteArray ResidentLink::encoded(const Reply& reply)
{
    return lineOf({{kExitCode, reply.exitCode}, {kOut, reply.out}, {kErr, reply.err},
        {kRawSize, qint64(reply.raw.size())}});
}

std::optional<Reply> ResidentLink::decoded(const QByteArray& line, qint64* rawSize)
{
    const QJsonObject object = QJsonDocument::fromJson(line).object();
    if (!object.contains(kExitCode))
        return std::nullopt;
    *rawSize = object[kRawSize].toInteger();
    return Reply{object[kExitCode].toInt(), object[kOut].toString(), object[kErr].toString()};
}
