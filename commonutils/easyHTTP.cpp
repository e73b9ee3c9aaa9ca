#include "commonutils/easyHTTP.h"

#include "commonutils/CommLog.h"

#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QThread>

#include <functional>
#include <memory>

namespace {

constexpr int kPatienceMs = 15000;
constexpr qint64 kLongestAnswer = 16 << 20; // bytes
// Kept: some servers answer no others.
const QString kUserAgent =
    QStringLiteral("Mozilla/5.0 (Windows NT 6.1; rv:22.0) Gecko/20100101 Firefox/22.0");

struct Answer {
    QByteArray body;
    QString failure; // in words; empty for none
};

using Send = std::function<QNetworkReply*(QNetworkAccessManager& network)>;

Answer waitFor(QNetworkReply& reply)
{
    QEventLoop loop;
    QObject::connect(&reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
    QObject::connect(&reply, &QNetworkReply::downloadProgress, &reply, [&reply](qint64 received, qint64) {
        if (received > kLongestAnswer)
            reply.abort();
    });
    loop.exec();
    return {reply.readAll(), reply.error() == QNetworkReply::NoError ? QString() : reply.errorString()};
}

// On a thread of its own, so that the caller's events are not handled meanwhile.
Answer answerTo(const Send& send)
{
    Answer answer;
    const std::unique_ptr<QThread> thread(QThread::create([&] {
        QNetworkAccessManager network;
        answer = waitFor(*send(network));
    }));
    thread->start();
    thread->wait();
    return answer;
}

// Not valid for anything but the web.
QNetworkRequest requestFor(const QString& address)
{
    const QUrl url(address);
    const bool isWeb = url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
    QNetworkRequest request(isWeb ? url : QUrl());
    request.setTransferTimeout(kPatienceMs);
    return request;
}

// Characters beyond ASCII count once, however many units they take.
QByteArray lossyAscii(const QString& text)
{
    QByteArray ascii;
    for (const uint character : text.toUcs4())
        ascii.append(character < 128 ? char(character) : '?');
    return ascii;
}

}

QString easyHTTP::GET(const QString& url)
{
    return _getFromURL(url, kUserAgent);
}

QString easyHTTP::GET(const QString& url, const QString& userAgent)
{
    return _getFromURL(url, userAgent);
}

QString easyHTTP::_getFromURL(const QString& url, const QString& userAgent)
{
    QNetworkRequest request = requestFor(url);
    request.setHeader(QNetworkRequest::UserAgentHeader, userAgent);
    const Answer answer = answerTo([&](QNetworkAccessManager& network) { return network.get(request); });
    return QString::fromUtf8(answer.body);
}

void easyHTTP::POST(const QString& url, const QString& postData)
{
    const QByteArray body = lossyAscii(postData);
    QNetworkRequest request = requestFor(url);
    request.setHeader(
        QNetworkRequest::ContentTypeHeader, QStringLiteral("application/x-www-form-urlencoded"));
    request.setHeader(QNetworkRequest::ContentLengthHeader, body.size());
    const Answer answer =
        answerTo([&](QNetworkAccessManager& network) { return network.post(request, body); });
    if (!answer.failure.isEmpty())
        CommLog::log(QStringLiteral("a request could not be sent: %1"), answer.failure);
}
