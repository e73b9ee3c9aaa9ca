#include "app/NetworkEndpointTest.h"

#include "commonutils/CommUpload.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QTimer>

namespace {

constexpr int kTimeoutMs = 10000;
constexpr int kServerErrors = 500; // the first of the codes by which a server says that it is broken

QNetworkRequest requestFor(const QUrl& url)
{
    QNetworkRequest request(url);
    request.setTransferTimeout(kTimeoutMs);
    request.setSslConfiguration(CommUpload::trust());
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    return request;
}

QString failureOf(const QNetworkReply& reply)
{
    const int status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (status == 0)
        return reply.errorString();
    return status < kServerErrors ? QString() : QStringLiteral("HTTP %1").arg(status);
}

}

NetworkEndpointTest::NetworkEndpointTest() = default;
NetworkEndpointTest::~NetworkEndpointTest() = default;

void NetworkEndpointTest::ask(const QString& address, Answer answer)
{
    if (m_open) {
        m_open->disconnect(&m_context);
        m_open->abort();
        m_open->deleteLater();
        m_open = nullptr;
    }
    const QUrl url(address, QUrl::StrictMode);
    if (!CommUpload::isEndpoint(url)) {
        QTimer::singleShot(
            0, &m_context, [answer, address] { answer(QStringLiteral("\u201c%1\u201d").arg(address)); });
        return;
    }
    if (!m_network)
        m_network = std::make_unique<QNetworkAccessManager>();
    m_open = m_network->get(requestFor(url));
    QObject::connect(m_open, &QNetworkReply::finished, &m_context,
        [this, reply = m_open, answer] { finished(*reply, answer); });
}

void NetworkEndpointTest::finished(QNetworkReply& reply, const Answer& answer)
{
    m_open = nullptr;
    reply.deleteLater();
    answer(failureOf(reply));
}
