#include "commonutils/CommUpdate.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

#include <gtest/gtest.h>

namespace {

using Kind = UpdateResult::Kind;

// An address on this machine that gives one answer to everybody.
class UpdateServer {
public:
    explicit UpdateServer(const QByteArray& response)
    {
        m_server.listen(QHostAddress::LocalHost);
        QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this, response] {
            QTcpSocket* socket = m_server.nextPendingConnection();
            QObject::connect(socket, &QTcpSocket::readyRead, socket, [socket, response] {
                socket->write(response);
                socket->disconnectFromHost();
            });
            QObject::connect(socket, &QTcpSocket::disconnected, socket, [this] { ++answered; });
        });
    }
    QString address() const
    {
        return QStringLiteral("http://127.0.0.1:%1/newest").arg(m_server.serverPort());
    }

    int answered = 0;

private:
    QTcpServer m_server;
};

class CommUpdateTest : public testing::Test {
protected:
    CommUpdateTest()
    {
        m_update.onResult = [this](const UpdateResult& result) {
            results.push_back(result.kind);
            m_loop.quit();
        };
    }
    // Until a result is told, five seconds at most; or only this long, for one that must not come.
    void wait(int milliseconds = 5000)
    {
        QTimer timer;
        timer.setSingleShot(true);
        QObject::connect(&timer, &QTimer::timeout, &m_loop, [this] { m_loop.quit(); });
        timer.start(milliseconds);
        m_loop.exec();
    }

    int m_argc = 0;
    QCoreApplication m_application{m_argc, nullptr};
    QEventLoop m_loop;
    CommUpdate m_update{QStringLiteral("1.2.0")};
    std::vector<Kind> results;
};

const QByteArray kOk = "HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n";

}

TEST(CommUpdate, ReadsBothFormsOfAnAnswer)
{
    struct Case {
        const char* answer;
        Kind kind;
        const char* version;
        const char* link;
    };
    const Case cases[] = {
        {"1.2.1\n", Kind::Available, "1.2.1", ""},
        {"1.2", Kind::UpToDate, "1.2", ""},
        {"1.10.0", Kind::Available, "1.10.0", ""},
        {"1.1.9", Kind::UpToDate, "1.1.9", ""},
        {R"({"version":"2.0.0","link":"https://example.org"})", Kind::Available, "2.0.0",
            "https://example.org"},
        {R"({"version":"1.2.0"})", Kind::UpToDate, "1.2.0", ""},
        {R"({"link":"https://example.org"})", Kind::Failed, "", ""},
        {"<html>404</html>", Kind::Failed, "", ""},
        {"3.0.0 <script>", Kind::Failed, "", ""},
        {"", Kind::Failed, "", ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.answer);
        const UpdateResult result = CommUpdate::resultOf(c.answer, QStringLiteral("1.2.0"));
        EXPECT_EQ(result.kind, c.kind);
        EXPECT_EQ(result.version, QString::fromLatin1(c.version));
        EXPECT_EQ(result.link, QString::fromLatin1(c.link));
    }
}

TEST_F(CommUpdateTest, TellsWhatTheAddressAnswers)
{
    const std::pair<QByteArray, Kind> cases[] = {
        {kOk + "1.3.0", Kind::Available},
        {kOk + "1.2.0", Kind::UpToDate},
        {kOk + "1.3.0" + QByteArray(100000, ' '), Kind::Failed},
        {"HTTP/1.1 404 Not Found\r\nConnection: close\r\n\r\n1.3.0", Kind::Failed},
        {"nonsense", Kind::Failed},
    };
    for (const auto& [response, kind] : cases) {
        SCOPED_TRACE(response.left(60).toStdString());
        const UpdateServer server(response);
        results.clear();
        m_update.check(server.address());
        wait();
        EXPECT_EQ(results, std::vector{kind});
    }
}

TEST_F(CommUpdateTest, IsSilentWhereThereIsNothingNew)
{
    const UpdateServer old(kOk + "1.2.0");
    m_update.checkSilent(old.address());
    for (int i = 0; i < 100 && !old.answered; ++i)
        wait(50);
    wait(50);
    EXPECT_GT(old.answered, 0);
    EXPECT_TRUE(results.empty());
    const UpdateServer newer(kOk + "1.2.1");
    m_update.checkSilent(newer.address());
    wait();
    EXPECT_EQ(results, std::vector{Kind::Available});
}

TEST_F(CommUpdateTest, AsksNobodyWithoutAnAddress)
{
    m_update.check(QString());
    wait(50);
    EXPECT_TRUE(results.empty());
}
