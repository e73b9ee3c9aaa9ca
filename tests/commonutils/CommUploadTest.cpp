#include "commonutils/CommUpload.h"

#include "tests/fakes/ScriptedServer.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

class CommUploadTest : public testing::Test {
protected:
    // Sends a file of so many bytes and waits for its end.
    void send(const QUrl& endpoint, qsizetype bytes = 1000)
    {
        QFile file(m_folder.filePath(QStringLiteral("a.jpg")));
        file.open(QIODevice::WriteOnly);
        file.write(QByteArray(bytes, 'p'));
        file.close();
        sendFile(endpoint, file.fileName());
    }
    void sendFile(const QUrl& endpoint, const QString& path)
    {
        UploadImageMeta meta;
        meta.setMetaTitle(QStringLiteral("Grüße"));
        meta.setMetaPassword(QStringLiteral("sesame"));
        meta.setMetaFileName(path);
        m_upload = std::make_unique<CommUpload>(endpoint);
        m_upload->setPatience(m_patience);
        m_ends = 0;
        m_link = m_error = QString();
        m_upload->uploadImageToScreenshotWithImageMeta(
            meta, [this](double fraction) { progressed(fraction); },
            [this](const UploadResult& result) { ended(m_link, result.link); },
            [this](const QString& error) { ended(m_error, error); });
        EXPECT_EQ(m_ends, 0) << "a block was called from inside the operation";
        m_loop.exec();
        QCoreApplication::processEvents();
        EXPECT_EQ(m_ends, 1);
    }
    void progressed(double fraction)
    {
        m_fractions.push_back(fraction);
        if (m_isCancelling)
            m_upload->cancelUploadImageToScreenshot();
    }
    void ended(QString& place, const QString& text)
    {
        place = text;
        ++m_ends;
        m_loop.quit();
    }

    int m_argc = 0;
    QCoreApplication m_application{m_argc, nullptr};
    QTemporaryDir m_folder;
    QEventLoop m_loop;
    std::unique_ptr<CommUpload> m_upload;
    int m_patience = 5000;
    bool m_isCancelling = false;
    int m_ends = 0;
    QString m_link, m_error;
    std::vector<double> m_fractions;
};

const QByteArray kLink = R"({"link": "http://127.0.0.1/p/1"})";

}

TEST(CommUpload, TakesOnlyEndpointsThatNobodyListensOnTheWayTo)
{
    const std::pair<const char*, bool> cases[] = {
        {"https://pictures.example.org/upload", true},
        {"http://localhost:8437/upload", true},
        {"http://127.0.0.1/upload", true},
        {"http://[::1]:80/upload", true},
        {"http://pictures.example.org/upload", false},
        {"http://localhost.example.org/upload", false},
        {"file:///etc/passwd", false},
        {"https:///upload", false},
        {"", false},
    };
    for (const auto& [address, isEndpoint] : cases) {
        SCOPED_TRACE(address);
        EXPECT_EQ(CommUpload::isEndpoint(QUrl(QString::fromLatin1(address))), isEndpoint);
    }
}

TEST(UploadResult, HoldsWebLinksAndNothingElse)
{
    const QUrl https(QStringLiteral("https://h/upload")), http(QStringLiteral("http://localhost/upload"));
    struct Case {
        const char* answer;
        QUrl endpoint;
        const char* link; // empty for no result
    };
    const Case cases[] = {
        {R"({"link": "https://h/p/1"})", https, "https://h/p/1"},
        {R"({"link": "https://h/p/1"})", http, "https://h/p/1"},
        {R"({"link": "http://h/p/1"})", http, "http://h/p/1"},
        {R"({"link": "http://h/p/1"})", https, ""},
        {R"({"link": "file:///etc/passwd"})", https, ""},
        {R"({"link": "https://h/a b"})", https, ""},
        {R"({"link": 7})", https, ""},
        {R"({"share": {}})", https, ""},
        {R"({"link": "https://h/p/1")", https, ""},
        {"", https, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.answer);
        EXPECT_EQ(UploadResult::of(c.answer, c.endpoint).value_or(UploadResult()).link,
            QString::fromLatin1(c.link));
    }
    const auto whole = UploadResult::of(R"({"link": "https://h/p/1", "delete": "https://h/d",
        "share": {"facebook": "https://f/1", "twitter": "telnet://t"}})",
        https);
    EXPECT_EQ(whole->deleteLink, QStringLiteral("https://h/d"));
    EXPECT_EQ(
        whole->share, (QMap<QString, QString>{{QStringLiteral("facebook"), QStringLiteral("https://f/1")}}));
}

TEST_F(CommUploadTest, SendsTheFormAndTellsTheLink)
{
    ScriptedServer server(ScriptedServer::answer(201, kLink));
    send(server.endpoint(), 300000);
    EXPECT_EQ(m_link, QStringLiteral("http://127.0.0.1/p/1"));
    const QByteArray request = server.request();
    EXPECT_TRUE(request.startsWith("POST /upload HTTP/1.1\r\n"));
    EXPECT_TRUE(request.contains("name=\"title\"\r\n\r\nGr\xc3\xbc\xc3\x9f"
                                 "e\r\n"));
    EXPECT_TRUE(request.contains("name=\"password\"\r\n\r\nsesame\r\n"));
    EXPECT_TRUE(request.contains("\r\n\r\n" + QByteArray(300000, 'p') + "\r\n"));
    ASSERT_FALSE(m_fractions.empty());
    EXPECT_TRUE(std::is_sorted(m_fractions.begin(), m_fractions.end()));
    EXPECT_EQ(m_fractions.back(), 1);
}

TEST_F(CommUploadTest, FailsOnceWhateverTheServiceDoes)
{
    m_patience = 500;
    const ScriptedServer elsewhere(ScriptedServer::answer(201, kLink));
    const ScriptedServer::Script endless{ScriptedServer::head(201), QByteArray(1000, ' '), 1};
    const ScriptedServer::Script slow{ScriptedServer::head(201), QByteArray(" "), 100};
    struct Case {
        const char* name;
        ScriptedServer::Script script;
        const char* error;
    };
    const Case cases[] = {
        {"a broken server", ScriptedServer::answer(500, kLink), "the service answers with status 500"},
        {"a reason in words", ScriptedServer::answer(413, R"({"error": "too\nlarge"})"),
            "the service answers with status 413: too large"},
        {"broken JSON", ScriptedServer::answer(200, "{\"link\""), "the service's answer holds no link"},
        {"a redirect to itself", ScriptedServer::redirect("/upload"), "the service answers with status 307"},
        {"a redirect elsewhere", ScriptedServer::redirect(elsewhere.endpoint().toEncoded()),
            "the service answers with status 307"},
        {"an endless answer", endless, "the service's answer is too long"},
        {"an answer that drips", slow, "the service does not go on"},
        {"no answer", {}, "the service does not go on"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        ScriptedServer server(c.script);
        send(server.endpoint());
        EXPECT_EQ(m_link, QString());
        EXPECT_EQ(m_error, QString::fromLatin1(c.error));
    }
}

TEST_F(CommUploadTest, FailsWithAReasonThatKeepsTheEndpointsPathToItself)
{
    const QString secret = QStringLiteral("http://127.0.0.1:1/upload/secret");
    const std::pair<QUrl, QString> cases[] = {
        {QUrl(secret), m_folder.filePath(QStringLiteral("a.jpg"))}, // nobody listens
        {QUrl(QStringLiteral("http://nobody.invalid/upload/secret")), {}},
        {QUrl(secret), QStringLiteral("/nowhere/a.jpg")},
    };
    for (const auto& [endpoint, path] : cases) {
        SCOPED_TRACE(endpoint.host().toStdString());
        path.isEmpty() ? send(endpoint) : sendFile(endpoint, path);
        EXPECT_FALSE(m_error.isEmpty());
        EXPECT_FALSE(m_error.contains(QLatin1String("secret"))) << m_error.toStdString();
    }
}

TEST_F(CommUploadTest, ACancelledTransferFailsWithItsOwnWords)
{
    ScriptedServer server(ScriptedServer::answer(201, kLink));
    m_isCancelling = true;
    send(server.endpoint(), 5000000);
    EXPECT_TRUE(m_error.contains(QString::fromUtf16(CommUpload::kCancelled)));
    EXPECT_LT(server.request().size(), 5000000);
}
