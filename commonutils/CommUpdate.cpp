#include "commonutils/CommUpdate.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkReply>
#include <QVersionNumber>

#include <utility>

namespace {

constexpr int kPatienceMs = 15000;       // without a byte from the address
constexpr qint64 kLongestAnswer = 65536; // bytes

UpdateResult failed(const QString& reason)
{
    return {UpdateResult::Kind::Failed, {}, {}, reason};
}

}

CommUpdate::CommUpdate(QString runningVersion)
    : m_runningVersion(std::move(runningVersion))
{
}

void CommUpdate::check(const QString& address)
{
    m_isSilent = false;
    ask(address);
}

void CommUpdate::checkSilent(const QString& address)
{
    m_isSilent = true;
    ask(address);
}

void CommUpdate::ask(const QString& address)
{
    if (address.isEmpty() || m_question)
        return;
    if (!m_network)
        m_network = std::make_unique<QNetworkAccessManager>();
    QNetworkRequest request{QUrl(address)};
    request.setTransferTimeout(kPatienceMs);
    QNetworkReply* reply = m_network->get(request);
    m_question = reply;
    connect(reply, &QNetworkReply::downloadProgress, reply, [reply](qint64 received, qint64) {
        if (received > kLongestAnswer)
            reply->abort();
    });
    connect(reply, &QNetworkReply::finished, this, [this, reply] { answered(*reply); });
}

void CommUpdate::answered(QNetworkReply& reply)
{
    m_question = nullptr;
    reply.deleteLater();
    UpdateResult result;
    if (reply.error() != QNetworkReply::NoError)
        result = failed(reply.errorString());
    else if (reply.bytesAvailable() > kLongestAnswer)
        result = failed(QStringLiteral("the answer is too long"));
    else
        result = resultOf(reply.readAll(), m_runningVersion);
    if (onResult && !(m_isSilent && result.kind == UpdateResult::Kind::UpToDate))
        onResult(result);
}

UpdateResult CommUpdate::resultOf(const QByteArray& answer, const QString& runningVersion)
{
    const QJsonObject object = QJsonDocument::fromJson(answer).object();
    const QString text =
        object.isEmpty() ? QString::fromUtf8(answer).trimmed() : object[QLatin1String("version")].toString();
    qsizetype end = 0;
    const QVersionNumber newest = QVersionNumber::fromString(text, &end);
    if (newest.isNull() || end != text.size())
        return failed(QStringLiteral("the answer names no version"));
    const bool isNewer = newest.normalized() > QVersionNumber::fromString(runningVersion).normalized();
    return {isNewer ? UpdateResult::Kind::Available : UpdateResult::Kind::UpToDate, text,
        object[QLatin1String("link")].toString(), {}};
}
