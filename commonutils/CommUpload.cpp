#include "commonutils/CommUpload.h"

#include <QHostAddress>
#include <QHttpMultiPart>
#include <QJsonDocument>
#include <QJsonObject>

#include <utility>

namespace {

constexpr int kPatienceMs = 30000;
constexpr int kRedirects = 3;
constexpr qint64 kLongestAnswer = 65536; // bytes
constexpr int kMostWords = 200;          // characters of a service's reason

QHttpPart field(const char* disposition)
{
    QHttpPart part;
    part.setRawHeader("Content-Disposition", QByteArray("form-data; ") + disposition);
    return part;
}

QHttpPart textField(const char* disposition, const QString& text)
{
    QHttpPart part = field(disposition);
    part.setBody(text.toUtf8());
    return part;
}

// The service's own words about a refusal, on one line; empty for none.
QString wordsOf(QNetworkReply& reply)
{
    const QJsonObject answer = QJsonDocument::fromJson(reply.read(kLongestAnswer)).object();
    return answer[QLatin1String("error")].toString().left(kMostWords).simplified();
}

QString reasonOf(QNetworkReply& reply)
{
    const int status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (status >= 300) {
        const QString words = wordsOf(reply);
        const QString said = QStringLiteral("the service answers with status %1").arg(status);
        return words.isEmpty() ? said : said + QStringLiteral(": ") + words;
    }
    return reply.error() == QNetworkReply::NoError ? QString() : reply.errorString();
}

}

CommUpload::CommUpload(QUrl endpoint)
    : m_endpoint(std::move(endpoint))
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(kPatienceMs);
    connect(
        &m_patience, &QTimer::timeout, this, [this] { fail(QStringLiteral("the service does not go on")); });
}

bool CommUpload::isEndpoint(const QUrl& endpoint)
{
    const bool isHere =
        endpoint.host() == QLatin1String("localhost") || QHostAddress(endpoint.host()).isLoopback();
    const bool isPrivate =
        endpoint.scheme() == QLatin1String("https") || (endpoint.scheme() == QLatin1String("http") && isHere);
    return endpoint.isValid() && isPrivate && !endpoint.host().isEmpty();
}

QSslConfiguration CommUpload::trust()
{
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    const QString file = qEnvironmentVariable("SSL_CERT_FILE");
    if (!file.isEmpty())
        configuration.addCaCertificates(file);
    return configuration;
}

void CommUpload::uploadImageToScreenshotWithImageMeta(const UploadImageMeta& meta,
    ProgressChangedBlock progressChanged, CompletedBlock completed, FailedBlock failed)
{
    m_progressChanged = std::move(progressChanged);
    m_completed = std::move(completed);
    m_failed = std::move(failed);
    m_file.setFileName(meta.metaFileName());
    if (!isEndpoint(m_endpoint))
        return fail(QStringLiteral("the upload address is no https: address"));
    if (!m_file.open(QIODevice::ReadOnly))
        return fail(m_file.errorString());
    auto parts = form(meta);
    m_reply = m_network.post(request(), parts.get());
    parts.release()->setParent(m_reply);
    watch();
}

QNetworkRequest CommUpload::request() const
{
    QNetworkRequest request(m_endpoint);
    request.setSslConfiguration(trust());
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::SameOriginRedirectPolicy);
    request.setMaximumRedirectsAllowed(kRedirects);
    request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    return request;
}

std::unique_ptr<QHttpMultiPart> CommUpload::form(const UploadImageMeta& meta)
{
    auto form = std::make_unique<QHttpMultiPart>(QHttpMultiPart::FormDataType);
    form->append(textField("name=\"title\"", meta.metaTitle()));
    form->append(textField("name=\"password\"", meta.metaPassword()));
    QHttpPart file = field("name=\"file\"; filename=\"picture\"");
    file.setBodyDevice(&m_file);
    form->append(file);
    return form;
}

void CommUpload::watch()
{
    connect(m_reply, &QNetworkReply::uploadProgress, this, &CommUpload::progressed);
    connect(m_reply, &QNetworkReply::finished, this, &CommUpload::answered);
    connect(m_reply, &QNetworkReply::downloadProgress, this, [this](qint64 received, qint64) {
        if (received > kLongestAnswer)
            fail(QStringLiteral("the service's answer is too long"));
    });
    m_patience.start();
}

void CommUpload::progressed(qint64 sent, qint64 total)
{
    if (m_hasEnded || total <= 0)
        return;
    m_patience.start();
    if (m_progressChanged)
        m_progressChanged(double(sent) / double(total));
}

void CommUpload::answered()
{
    const QString reason = reasonOf(*m_reply);
    if (!reason.isEmpty())
        return fail(reason);
    const auto result = UploadResult::of(m_reply->read(kLongestAnswer), m_endpoint);
    if (!result)
        return fail(QStringLiteral("the service's answer holds no link"));
    end([this, result = *result] {
        if (m_completed)
            m_completed(result);
    });
}

void CommUpload::cancelUploadImageToScreenshot()
{
    fail(QString::fromUtf16(kCancelled));
}

void CommUpload::fail(const QString& error)
{
    end([this, error] {
        if (m_failed)
            m_failed(error);
    });
}

// Only the first end counts: aborting the reply ends it once more.
void CommUpload::end(std::function<void()> block)
{
    if (std::exchange(m_hasEnded, true))
        return;
    m_patience.stop();
    if (m_reply)
        m_reply->abort();
    QMetaObject::invokeMethod(this, std::move(block), Qt::QueuedConnection);
}
