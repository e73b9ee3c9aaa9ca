#include "tests/service/FakeBucket.h"

#include <QCryptographicHash>
#include <QList>
#include <QMessageAuthenticationCode>
#include <QRegularExpression>

#include <httplib.h>

#include <algorithm>

namespace {

QByteArray bytes(const std::string& text)
{
    return QByteArray::fromStdString(text);
}

QByteArray keyed(const QByteArray& key, const QByteArray& text)
{
    return QMessageAuthenticationCode::hash(text, key, QCryptographicHash::Sha256);
}

QByteArray hashed(const QByteArray& text)
{
    return QCryptographicHash::hash(text, QCryptographicHash::Sha256).toHex();
}

// What a request's signature vouches for, in the one spelling that both sides sign.
QByteArray canonical(const httplib::Request& request, const QByteArray& signedHeaders)
{
    const QList<QByteArray> target = bytes(request.target).split('?');
    QByteArray text = bytes(request.method) + '\n' + target[0] + '\n' + target.value(1) + '\n';
    for (const QByteArray& name : signedHeaders.split(';'))
        text += name + ':' + bytes(request.get_header_value(name.constData())).trimmed() + '\n';
    return text + '\n' + signedHeaders + '\n' + bytes(request.get_header_value("x-amz-content-sha256"));
}

}

FakeBucket::FakeBucket()
    : m_server(std::make_unique<httplib::Server>())
{
    m_server->set_keep_alive_timeout(1); // seconds; stop() waits for it
    m_server->new_task_queue = [] { return new httplib::ThreadPool(64); }; // each connection keeps one
    m_place.bucket = "shelf";
    m_place.region = "eu-north-7";
    m_place.accessKey = "KEYOFATEST";
    m_place.secretKey = "secret/of+a:test";
    m_place.endpoint = "http://127.0.0.1:" + std::to_string(m_server->bind_to_any_port("127.0.0.1"));
    const auto checked = [this](auto handler) {
        return [this, handler](const httplib::Request& request, httplib::Response& response) {
            if (!isRefused(request, response))
                (this->*handler)(request, response);
        };
    };
    m_server->Get("/shelf", checked(&FakeBucket::list));
    m_server->Get("/shelf/(.+)", checked(&FakeBucket::get));
    m_server->Put("/shelf/(.+)", checked(&FakeBucket::put));
    m_server->Delete("/shelf/(.+)", checked(&FakeBucket::remove));
    m_thread = std::thread([this] { m_server->listen_after_bind(); });
    while (!m_server->is_running())
        std::this_thread::yield();
}

FakeBucket::~FakeBucket()
{
    stop();
}

void FakeBucket::stop()
{
    m_server->stop();
    if (m_thread.joinable())
        m_thread.join();
}

size_t FakeBucket::count(const std::string& prefix) const
{
    const std::lock_guard lock(m_mutex);
    return size_t(std::count_if(m_objects.begin(), m_objects.end(),
        [&prefix](const auto& object) { return object.first.starts_with(prefix); }));
}

bool FakeBucket::isSigned(const httplib::Request& request) const
{
    static const QRegularExpression form(
        QStringLiteral("^AWS4-HMAC-SHA256 Credential=KEYOFATEST/(\\d{8})/eu-north-7/s3/aws4_request, ?"
                       "SignedHeaders=([a-z0-9;-]+), ?Signature=([0-9a-f]{64})$"));
    const auto found = form.match(QString::fromStdString(request.get_header_value("Authorization")));
    const QByteArray headers = found.captured(2).toLatin1(), day = found.captured(1).toLatin1();
    const QByteArray time = bytes(request.get_header_value("x-amz-date"));
    const QList<QByteArray> names = headers.split(';');
    for (const char* needed : {"host", "x-amz-date", "x-amz-content-sha256"}) {
        if (!names.contains(needed))
            return false;
    }
    QByteArray key = keyed("AWS4" + bytes(m_place.secretKey), day);
    for (const char* part : {"eu-north-7", "s3", "aws4_request"})
        key = keyed(key, part);
    const QByteArray text = "AWS4-HMAC-SHA256\n" + time + '\n' + day + "/eu-north-7/s3/aws4_request\n" +
                            hashed(canonical(request, headers));
    return time.startsWith(day) && keyed(key, text).toHex() == found.captured(3).toLatin1();
}

bool FakeBucket::isRefused(const httplib::Request& request, httplib::Response& response) const
{
    const bool isWhole =
        hashed(bytes(request.body)) == bytes(request.get_header_value("x-amz-content-sha256"));
    const int status = !isSigned(request) ? 403 : !isWhole ? 400 : m_status.load();
    if (status == 0)
        return false;
    response.status = status;
    response.set_content("<Error><Code>AsItWasTold</Code></Error>", "application/xml");
    return true;
}

void FakeBucket::list(const httplib::Request& request, httplib::Response& response) const
{
    const std::lock_guard lock(m_mutex);
    std::string text = "<?xml version=\"1.0\"?><ListBucketResult>";
    for (const auto& [key, object] : m_objects) {
        if (key.starts_with(request.get_param_value("prefix")))
            text += "<Contents><Key>" + key + "</Key></Contents>";
    }
    response.set_content(text + "</ListBucketResult>", "application/xml");
}

void FakeBucket::get(const httplib::Request& request, httplib::Response& response) const
{
    const std::lock_guard lock(m_mutex);
    const auto found = m_objects.find(request.matches[1]);
    if (found == m_objects.end()) {
        response.status = 404;
        return;
    }
    response.set_header("x-amz-meta-kestrel", found->second.meta);
    response.set_content(found->second.bytes, found->second.type);
}

void FakeBucket::put(const httplib::Request& request, httplib::Response&)
{
    const std::lock_guard lock(m_mutex);
    m_objects[request.matches[1]] = {request.get_header_value("Content-Type"),
        request.get_header_value("x-amz-meta-kestrel"), request.body};
}

void FakeBucket::remove(const httplib::Request& request, httplib::Response& response)
{
    const std::lock_guard lock(m_mutex);
    m_objects.erase(request.matches[1]);
    response.status = 204;
}
