#include "tests/desktop/Relay.h"

#include <QHostAddress>

#include <algorithm>
#include <memory>

namespace {

constexpr int kWaitMs = 5;
constexpr qint64 kStep = 16384; // bytes in such a time while not everything gets through

bool isConnected(const QTcpSocket& socket)
{
    return socket.state() == QAbstractSocket::ConnectedState;
}

}

Relay::Relay(quint16 servicePort)
    : m_servicePort(servicePort)
    , m_thread([this](const std::stop_token& stop) { run(stop); })
{
    m_port.wait(0);
}

void Relay::run(const std::stop_token& stop)
{
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    m_port = server.serverPort();
    m_port.notify_all();
    while (!stop.stop_requested()) {
        if (server.hasPendingConnections() || server.waitForNewConnection(kWaitMs)) {
            const std::unique_ptr<QTcpSocket> sender(server.nextPendingConnection());
            carry(*sender, server, stop);
        }
    }
}

void Relay::carry(QTcpSocket& sender, QTcpServer& server, const std::stop_token& stop) const
{
    QTcpSocket service;
    service.connectToHost(QHostAddress::LocalHost, m_servicePort);
    service.waitForConnected();
    sender.setReadBufferSize(kStep);
    qint64 carried = 0;
    while (isConnected(sender) && isConnected(service) && !stop.stop_requested() &&
           !server.waitForNewConnection(0)) {
        sender.waitForReadyRead(kWaitMs);
        const qint64 left = m_limit - carried;
        carried += service.write(sender.read(std::clamp<qint64>(left, 0, kStep)));
        service.flush();
        service.waitForReadyRead(m_limit == kEverything ? 0 : kWaitMs);
        sender.write(service.readAll());
        sender.flush();
    }
    sender.write(service.readAll());
    sender.flush();
}
