#pragma once

#include <QPointer>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>
#include <QUrl>

// A server on this machine that answers every request in one way, on the thread that made it.
class ScriptedServer {
public:
    struct Script {
        QByteArray answer; // at once; none for never
        QByteArray more;   // and then this again and again, until the other side goes
        int everyMs = 0;
    };

    explicit ScriptedServer(Script script)
        : m_script(std::move(script))
    {
        m_server.listen(QHostAddress::LocalHost);
        QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this] { accept(); });
    }

    static QByteArray head(int status)
    {
        return "HTTP/1.1 " + QByteArray::number(status) + " As scripted\r\nConnection: close\r\n\r\n";
    }
    static Script answer(int status, const QByteArray& body) { return {head(status) + body, {}, 0}; }
    static Script redirect(const QByteArray& location)
    {
        return {head(307).replace("\r\n\r\n", "\r\nContent-Length: 0\r\nLocation: " + location + "\r\n\r\n"),
            {}, 0};
    }

    QUrl endpoint() const
    {
        return QUrl(QStringLiteral("http://127.0.0.1:%1/upload").arg(m_server.serverPort()));
    }
    // The last one, as far as it has come.
    const QByteArray& request() const { return m_request; }

private:
    void accept()
    {
        QTcpSocket* socket = m_server.nextPendingConnection();
        QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket] {
            if (m_current != socket)
                m_request.clear();
            m_current = socket;
            m_request += socket->readAll();
            if (isComplete())
                answerTo(*socket);
        });
        QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    }
    bool isComplete() const
    {
        const qsizetype end = m_request.indexOf("\r\n\r\n");
        const qsizetype length = m_request.indexOf("Content-Length: ");
        const qsizetype body =
            length < 0
                ? 0
                : m_request.mid(length + 16, m_request.indexOf('\r', length) - length - 16).toLongLong();
        return end >= 0 && m_request.size() >= end + 4 + body;
    }
    void answerTo(QTcpSocket& socket) const
    {
        if (m_script.answer.isEmpty())
            return;
        socket.write(m_script.answer);
        if (m_script.more.isEmpty())
            return socket.disconnectFromHost();
        auto* timer = new QTimer(&socket);
        QObject::connect(timer, &QTimer::timeout, &socket, [this, &socket] { socket.write(m_script.more); });
        timer->start(m_script.everyMs);
    }

    const Script m_script;
    QTcpServer m_server;
    QByteArray m_request;
    QPointer<QTcpSocket> m_current; // that it came on
};
