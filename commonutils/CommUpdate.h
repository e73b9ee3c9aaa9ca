#pragma once

#include <QNetworkAccessManager>
#include <QObject>
#include <QPointer>

#include <functional>
#include <memory>
#include <optional>

class QNetworkReply;

// What a question for updates came to.
struct UpdateResult {
    enum class Kind { UpToDate, Available, Failed };
    Kind kind = Kind::Failed;
    QString version; // the newest one; empty when it failed
    QString link;    // where the newest version is; may be empty
    QString reason;  // why it failed
};

// Asks an address which version is the newest. The address answers with a JSON object, "version" and
// optionally "link" its texts, or with the version alone as plain text. One question at a time; nothing is
// done, and nothing of the network is loaded, without an address.
class CommUpdate : public QObject {
public:
    // `runningVersion` is three numbers, such as "1.0.0".
    explicit CommUpdate(QString runningVersion);

    // The user asked: every result is told.
    void check(const QString& address);
    // At launch: only a newer version and a failure are told.
    void checkSilent(const QString& address);
    std::function<void(const UpdateResult&)> onResult;

    static UpdateResult resultOf(const QByteArray& answer, const QString& runningVersion);

private:
    void ask(const QString& address);
    void answered(QNetworkReply& reply);

    const QString m_runningVersion;
    std::unique_ptr<QNetworkAccessManager> m_network; // with the first question
    QPointer<QNetworkReply> m_question;
    bool m_isSilent = false;
};
