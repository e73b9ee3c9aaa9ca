#pragma once

#include "commonutils/UploadImageMeta.h"
#include "commonutils/UploadResult.h"

#include <QFile>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QObject>
#include <QPointer>
#include <QSslConfiguration>
#include <QTimer>

#include <functional>

// Sends one picture to the image service, from the disk as the network takes it. The blocks are called on the
// main thread, never from inside an operation; after the completed or the failed one comes no other. One that
// wants to be rid of the object deletes it later.
class CommUpload : public QObject {
public:
    using ProgressChangedBlock = std::function<void(double fraction)>; // 0 to 1, of the bytes that are out
    using CompletedBlock = std::function<void(const UploadResult& result)>;
    // A reason in words, without the endpoint's path, which may be a secret.
    using FailedBlock = std::function<void(const QString& error)>;

    explicit CommUpload(QUrl endpoint);

    // uploadImageToScreenshotWithImageMeta:progressChangedBlock:completedBlock:failedBlock: Once an object.
    void uploadImageToScreenshotWithImageMeta(const UploadImageMeta& meta,
        ProgressChangedBlock progressChanged, CompletedBlock completed, FailedBlock failed);
    // The transfer fails with kCancelled.
    void cancelUploadImageToScreenshot();
    // How long no byte may get out, and how long the answer may take, before the transfer fails.
    void setPatience(int milliseconds) { m_patience.setInterval(milliseconds); }

    // Whether pictures may go there: an https: address, or an http: one on this machine itself.
    static bool isEndpoint(const QUrl& endpoint);
    // Whose certificates are good: those of the system's authorities, and of the file that SSL_CERT_FILE
    // names.
    static QSslConfiguration trust();

    static constexpr char16_t kCancelled[] = u"The request was cancelled";

private:
    QNetworkRequest request() const;
    std::unique_ptr<QHttpMultiPart> form(const UploadImageMeta& meta);
    void watch();
    void progressed(qint64 sent, qint64 total);
    void answered();
    void fail(const QString& error);
    void end(std::function<void()> block);

    const QUrl m_endpoint;
    QFile m_file;
    QNetworkAccessManager m_network;
    QPointer<QNetworkReply> m_reply;
    QTimer m_patience;
    ProgressChangedBlock m_progressChanged;
    CompletedBlock m_completed;
    FailedBlock m_failed;
    bool m_hasEnded = false;
};
