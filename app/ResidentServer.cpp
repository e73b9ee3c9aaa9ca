#include "app/ResidentServer.h"

#include <QLocalSocket>
#include <QPointer>

namespace {

constexpr qint64 kLongestVerb = 256; // bytes; what is longer is no verb of ours

void send(const QPointer<QLocalSocket>& socket, const Reply& reply)
{
    if (!socket)
        return;
    socket->write(ResidentLink::encoded(reply));
    socket->flush();
    socket->disconnectFromServer();
}

}

QString ResidentServer::listen()
{
    QLocalServer::removeServer(ResidentLink::socketPath());
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&m_server, &QLocalServer::newConnection, this, [this] { accept(); });
    return m_server.listen(ResidentLink::socketPath()) ? QString() : m_server.errorString();
}

void ResidentServer::accept()
{
    while (QLocalSocket* socket = m_server.nextPendingConnection()) {
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] { read(*socket); });
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
    }
}

void ResidentServer::read(QLocalSocket& socket)
{
    if (!socket.canReadLine()) {
        if (socket.bytesAvailable() > kLongestVerb)
            socket.abort();
        return;
    }
    const QString verb = QString::fromUtf8(socket.readLine(kLongestVerb)).trimmed();
    if (onVerb)
        onVerb(verb, [socket = QPointer<QLocalSocket>(&socket)](const Reply& reply) { send(socket, reply); });
}
