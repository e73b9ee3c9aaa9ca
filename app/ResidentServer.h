#pragma once

#include "app/ResidentLink.h"

#include <QLocalServer>
#include <QObject>

#include <functional>

class QLocalSocket;

// Takes the verbs of later starts. The caller holds the session's lock, so a socket that is there is stale.
class ResidentServer : public QObject {
public:
    using Answer = std::function<void(const Reply&)>;

    // Called with each request, a function to answer it with, once, now or later, and an object that goes
    // with the caller. A request that cannot be read has an empty verb.
    std::function<void(const VerbRequest& request, const Answer& answer, QObject& caller)> onRequest;

    // The reason when the socket cannot be made; empty when it listens.
    QString listen();

private:
    void accept();
    void read(QLocalSocket& socket);

    QLocalServer m_server;
};
