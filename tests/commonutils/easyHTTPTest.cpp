#include "commonutils/easyHTTP.h"

#include "tests/fakes/ScriptedServer.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QThread>

#include <gtest/gtest.h>

namespace {

// Runs on another thread what must not be called on this one, whose events the server needs.
void run(const std::function<void()>& request)
{
    QEventLoop loop;
    const std::unique_ptr<QThread> thread(QThread::create(request));
    QObject::connect(thread.get(), &QThread::finished, &loop, &QEventLoop::quit);
    thread->start();
    loop.exec();
    thread->wait();
}

class easyHTTPTest : public testing::Test {
protected:
    int m_argc = 0;
    QCoreApplication m_application{m_argc, nullptr};
};

}

TEST_F(easyHTTPTest, GetsABodyAsText)
{
    struct Case {
        ScriptedServer::Script script;
        const char* agent; // null for the fixed one
        QString text;
    };
    const Case cases[] = {
        {ScriptedServer::answer(200, "Gr\xc3\xbc\xc3\x9f"
                                     "e"),
            nullptr, QStringLiteral("Grüße")},
        {ScriptedServer::answer(404, "gone"), "Probe/1", QStringLiteral("gone")},
        {ScriptedServer::answer(200, ""), nullptr, QString()},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text.toStdString());
        ScriptedServer server(c.script);
        const QString url = server.endpoint().toString();
        QString text;
        run([&] { text = c.agent ? easyHTTP::GET(url, QString::fromLatin1(c.agent)) : easyHTTP::GET(url); });
        EXPECT_EQ(text, c.text);
        EXPECT_TRUE(server.request().startsWith("GET /upload "));
        const QByteArray agent =
            c.agent ? c.agent : "Mozilla/5.0 (Windows NT 6.1; rv:22.0) Gecko/20100101 Firefox/22.0";
        EXPECT_TRUE(server.request().contains("User-Agent: " + agent + "\r\n"));
    }
}

TEST_F(easyHTTPTest, GetsNothingFromWhereNothingIs)
{
    for (const char* url : {"http://127.0.0.1:1/", "file:///etc/passwd", "data:,text", "", "nonsense"}) {
        SCOPED_TRACE(url);
        QString text;
        run([&] { text = easyHTTP::GET(QString::fromLatin1(url)); });
        EXPECT_EQ(text, QString());
    }
}

TEST_F(easyHTTPTest, PostsAFormInAscii)
{
    ScriptedServer server(ScriptedServer::answer(200, "dropped"));
    run([&] { easyHTTP::POST(server.endpoint().toString(), QStringLiteral("content=aß€😀z")); });
    EXPECT_TRUE(server.request().contains("Content-Length: 13\r\n"));
    EXPECT_TRUE(server.request().contains("Content-Type: application/x-www-form-urlencoded\r\n"));
    EXPECT_TRUE(server.request().endsWith("\r\n\r\ncontent=a???z"));
}
