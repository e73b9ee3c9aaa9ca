#include "app/ResidentServer.h"

#include <QLocalSocket>
#include <QPointer>

namespace {

constexpr qint64 kLongestRequest = 65536; // bytes; what is longer is no request of ours

void send(const QPointer<QLocalSocket>& socket, const Reply& reply)
{
    if (!socket)
        return;
    socket->write(ResidentLink::encoded(reply));
    socket->write(reply.raw);
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
        if (socket.bytesAvailable() > kLongestRequest)
            socket.abort();
        return;
    }
    const auto request = ResidentLink::decodedRequest(socket.readLine(kLongestRequest));
    const auto answer = [socket = QPointer<QLocalSocket>(&socket)](
                            const Reply& reply) { send(socket, reply); };
    if (onRequest)
        onRequest(request.value_or(VerbRequest{}), answer, socket);
}
