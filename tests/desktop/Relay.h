#pragma once

#include <QTcpServer>
#include <QTcpSocket>

#include <atomic>
#include <thread>

// Stands between a sender and a service on this machine, on a thread of its own, and lets only so much of
// what is sent through. Carries one connection: a new one takes its place.
class Relay {
public:
    // Begins with everything let through.
    explicit Relay(quint16 servicePort);

    // Where the sender connects to.
    quint16 port() const { return m_port; }
    // So many bytes of each connection reach the service, then none until more may.
    void letThrough(qint64 bytes) { m_limit = bytes; }

    static constexpr qint64 kEverything = std::numeric_limits<qint64>::max();

private:
    void run(const std::stop_token& stop);
    void carry(QTcpSocket& sender, QTcpServer& server, const std::stop_token& stop) const;

    const quint16 m_servicePort;
    std::atomic<quint16> m_port = 0;
    std::atomic<qint64> m_limit = kEverything;
    std::jthread m_thread;
};
