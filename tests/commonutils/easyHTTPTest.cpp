#include "commonutils/easyHTTP.h"

#include "tests/fakes/ScriptedServer.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QThread>

#include <gtest/gtest.h>

namespace {

class easyHTTPTest : public testing::Test {
protected:
    // Runs on another thread what must not be called on this one, whose events the server needs.
    static void run(const std::function<void()>& request)
    {
        QEventLoop loop;
        const std::unique_ptr<QThread> thread(QThread::create(request));
        QObject::connect(thread.get(), &QThread::finished, &loop, &QEventLoop::quit);
        thread->start();
        loop.exec();
        thread->wait();
    }
    static QString got(const QString& url)
    {
        QString text;
        run([&] { text = easyHTTP::GET(url); });
        return text;
    }

    int m_argc = 0;
    QCoreApplication m_application{m_argc, nullptr};
};

}

TEST_F(easyHTTPTest, GetsABodyAsText)
{
    const std::pair<ScriptedServer::Script, QString> cases[] = {
        {ScriptedServer::answer(200, QStringLiteral("Grüße").toUtf8()), QStringLiteral("Grüße")},
        {ScriptedServer::answer(404, "gone"), QStringLiteral("gone")},
        {ScriptedServer::answer(200, ""), QString()},
    };
    for (const auto& [script, text] : cases) {
        SCOPED_TRACE(text.toStdString());
        ScriptedServer server(script);
        EXPECT_EQ(got(server.endpoint().toString()), text);
        EXPECT_TRUE(server.request().startsWith("GET /upload "));
        EXPECT_TRUE(server.request().contains(
            "User-Agent: Mozilla/5.0 (Windows NT 6.1; rv:22.0) Gecko/20100101 Firefox/22.0\r\n"));
    }
    ScriptedServer server(ScriptedServer::answer(200, ""));
    run([&] { easyHTTP::GET(server.endpoint().toString(), QStringLiteral("Probe/1")); });
    EXPECT_TRUE(server.request().contains("User-Agent: Probe/1\r\n"));
}

TEST_F(easyHTTPTest, GetsNothingFromWhereNothingIs)
{
    for (const char* url : {"http://127.0.0.1:1/", "file:///etc/passwd", "data:,text", "", "nonsense"})
        EXPECT_EQ(got(QString::fromLatin1(url)), QString()) << url;
}

TEST_F(easyHTTPTest, PostsAFormInAscii)
{
    ScriptedServer server(ScriptedServer::answer(200, "dropped"));
    run([&] { easyHTTP::POST(server.endpoint().toString(), QStringLiteral("content=aß€😀z")); });
    EXPECT_TRUE(server.request().contains("Content-Length: 13\r\n"));
    EXPECT_TRUE(server.request().contains("Content-Type: application/x-www-form-urlencoded\r\n"));
    EXPECT_TRUE(server.request().endsWith("\r\n\r\ncontent=a???z"));
}
