#include "service/PictureInfo.h"

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

QString text(const std::string& value)
{
    return QString::fromStdString(value);
}

}

QByteArray written(const PictureInfo& info)
{
    const QJsonObject object{
        {QStringLiteral("title"), text(info.title)},
        {QStringLiteral("contentType"), text(info.contentType)},
        {QStringLiteral("width"), info.width},
        {QStringLiteral("height"), info.height},
        {QStringLiteral("uploaded"), qint64(info.uploaded)},
        {QStringLiteral("expires"), qint64(info.expires)},
        {QStringLiteral("passwordHash"), text(info.passwordHash)},
        {QStringLiteral("deleteTokenHash"), text(info.deleteTokenHash)},
    };
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

std::optional<PictureInfo> readInfo(const QByteArray& json)
{
    const QJsonObject object = QJsonDocument::fromJson(json).object();
    if (object.isEmpty())
        return {};
    const auto string = [&object](
                            const char* key) { return object[QLatin1String(key)].toString().toStdString(); };
    PictureInfo info;
    info.title = string("title");
    info.contentType = string("contentType");
    info.width = object[QLatin1String("width")].toInt();
    info.height = object[QLatin1String("height")].toInt();
    info.uploaded = object[QLatin1String("uploaded")].toInteger();
    info.expires = object[QLatin1String("expires")].toInteger();
    info.passwordHash = string("passwordHash");
    info.deleteTokenHash = string("deleteTokenHash");
    return info;
}
