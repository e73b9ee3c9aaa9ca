#include "app/NetworkEndpointTest.h"

#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>

#include <gtest/gtest.h>

#include <optional>

namespace {

// A web server that gives every caller one answer.
class OneAnswer : public QTcpServer {
public:
    explicit OneAnswer(const QByteArray& status)
    {
        connect(this, &QTcpServer::newConnection, this, [this, status] {
            QTcpSocket* caller = nextPendingConnection();
            connect(caller, &QTcpSocket::readyRead, caller, [caller, status] {
                caller->write("HTTP/1.1 " + status + "\r\nContent-Length: 0\r\nConnection: close\r\n\r\n");
                caller->disconnectFromHost();
            });
        });
        listen(QHostAddress::LocalHost);
    }
    QString address() const { return QStringLiteral("http://127.0.0.1:%1/upload").arg(serverPort()); }
};

// Nothing when no answer comes.
std::optional<QString> failureOf(const QString& address)
{
    NetworkEndpointTest test;
    std::optional<QString> failure;
    test.ask(address, [&failure](const QString& reason) { failure = reason; });
    EXPECT_FALSE(failure); // not before the event loop
    return QTest::qWaitFor([&] { return failure.has_value(); }, 2000) ? failure : std::nullopt;
}

}

TEST(NetworkEndpointTest, TakesAnyAnswerOfAServerThatIsWhole)
{
    const struct {
        const char* status;
        bool isFine;
    } cases[] = {{"200 OK", true}, {"405 Method Not Allowed", true}, {"302 Found", true},
        {"503 Service Unavailable", false}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.status);
        const OneAnswer server(c.status);
        const auto failure = failureOf(server.address());
        ASSERT_TRUE(failure);
        EXPECT_EQ(failure->isEmpty(), c.isFine) << failure->toStdString();
    }
}

TEST(NetworkEndpointTest, SaysWhyNobodyAnswers)
{
    QString closed;
    {
        closed = OneAnswer("200 OK").address();
    }
    for (const QString& address :
        {closed, QString(), QStringLiteral("example"), QStringLiteral("file:///etc"),
            QStringLiteral("https://"), QStringLiteral("http://192.0.2.1/")}) {
        SCOPED_TRACE(address.toStdString());
        const auto failure = failureOf(address);
        ASSERT_TRUE(failure);
        EXPECT_FALSE(failure->isEmpty());
    }
}

TEST(NetworkEndpointTest, GivesUpAnOpenQuestionForTheNext)
{
    QTcpServer silent;
    silent.listen(QHostAddress::LocalHost);
    const OneAnswer server("200 OK");
    NetworkEndpointTest test;
    QStringList answered;
    test.ask(QStringLiteral("http://127.0.0.1:%1/").arg(silent.serverPort()),
        [&](const QString&) { answered << QStringLiteral("first"); });
    QTest::qWait(50);
    test.ask(server.address(), [&](const QString&) { answered << QStringLiteral("second"); });
    EXPECT_TRUE(QTest::qWaitFor([&] { return !answered.isEmpty(); }, 2000));
    EXPECT_EQ(answered, QStringList{QStringLiteral("second")});
}
