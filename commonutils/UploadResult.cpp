#include "commonutils/UploadResult.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace {

// The text of a link to the web; empty for anything else.
QString webLink(const QJsonValue& value, const QUrl& endpoint)
{
    const QUrl link(value.toString(), QUrl::StrictMode);
    const bool isWeb = link.scheme() == QLatin1String("https") || link.scheme() == endpoint.scheme();
    return link.isValid() && isWeb && !link.host().isEmpty() ? value.toString() : QString();
}

}

std::optional<UploadResult> UploadResult::of(const QByteArray& answer, const QUrl& endpoint)
{
    const QJsonObject object = QJsonDocument::fromJson(answer).object();
    UploadResult result;
    result.link = webLink(object[QLatin1String("link")], endpoint);
    if (result.link.isEmpty())
        return {};
    result.deleteLink = webLink(object[QLatin1String("delete")], endpoint);
    const QJsonObject share = object[QLatin1String("share")].toObject();
    for (auto entry = share.begin(); entry != share.end(); ++entry) {
        const QString link = webLink(entry.value(), endpoint);
        if (!link.isEmpty())
            result.share[entry.key()] = link;
    }
    return result;
}
