#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QUrl>

#include <optional>

// The image service's answer to an upload: web links, and nothing else.
struct UploadResult {
    QString link;                 // of the picture's page
    QMap<QString, QString> share; // by the network's name, such as "facebook"
    QString deleteLink;           // for the sender only; empty when the service gave none

    // Empty when the answer is not such an object or has no link. Links other than https: are left out; an
    // endpoint that speaks plain HTTP may give http: ones.
    static std::optional<UploadResult> of(const QByteArray& answer, const QUrl& endpoint);
};
