#include "service/Kestrel.h"

#include "tests/commonutils/FileSizeLimit.h"
#include "tests/service/Samples.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QUrl>

#include <httplib.h>

#include <ctime>
#include <filesystem>
#include <future>
#include <map>
#include <thread>

namespace fs = std::filesystem;

namespace {

// A service on loopback, and a client for it.
class KestrelTest : public testing::Test {
protected:
    KestrelTest()
    {
        EXPECT_EQ(m_kestrel.open(), "");
        m_client = std::make_unique<httplib::Client>(base());
        m_run = std::async(std::launch::async, [this] { m_kestrel.run(); });
        m_client->set_read_timeout(10);
        while (!m_kestrel.isRunning())
            std::this_thread::yield();
    }
    ~KestrelTest() override
    {
        m_kestrel.stop();
        m_run.wait();
    }

    ServiceOptions options() const
    {
        ServiceOptions options;
        options.port = 0;
        options.dataFolder = m_folder.filePath(QStringLiteral("data")).toStdString();
        options.maxBytes = 20000;
        options.maxPixels = 100000;
        options.metricsToken = "token of a test";
        return options;
    }
    std::string base() const
    {
        const std::string url = m_kestrel.uploadUrl();
        return url.substr(0, url.rfind('/'));
    }
    httplib::Result upload(
        const std::string& file, const std::string& title = {}, const std::string& password = {})
    {
        return m_client->Post(
            "/upload", httplib::MultipartFormDataItems{{"title", title, "", ""},
                           {"password", password, "", ""}, {"file", file, "../x.jpg", "text/html"}});
    }
    // The path of a new picture's page, and of its delete page.
    std::string uploaded(
        const std::string& title, const std::string& password, std::string* deletePath = nullptr)
    {
        const auto answer = upload(Samples::picture(), title, password);
        EXPECT_TRUE(answer && answer->status == 201);
        const QJsonObject json = answered(answer);
        if (deletePath)
            *deletePath = path(json[QLatin1String("delete")].toString());
        return path(json[QLatin1String("link")].toString());
    }
    static QJsonObject answered(const httplib::Result& answer)
    {
        return QJsonDocument::fromJson(QByteArray::fromStdString(answer->body)).object();
    }
    static std::string path(const QString& link) { return QUrl(link).path().toStdString(); }
    size_t countIn(const char* part) const
    {
        const fs::path folder = fs::path(m_folder.path().toStdString()) / "data" / part;
        return size_t(std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
    }

    QTemporaryDir m_folder;
    Kestrel m_kestrel{options()};
    std::future<void> m_run;
    std::unique_ptr<httplib::Client> m_client;
};

}

TEST_F(KestrelTest, ShowsAPublicPictureToEverybody)
{
    const std::string path = uploaded("My <script>alert('x')</script> title", "");
    const auto page = m_client->Get(path);
    ASSERT_EQ(page->status, 200);
    EXPECT_NE(page->body.find("My &lt;script&gt;alert(&#39;x&#39;)&lt;/script&gt; title"), std::string::npos);
    EXPECT_EQ(page->body.find("<script"), std::string::npos);
    EXPECT_NE(
        page->get_header_value("Content-Security-Policy").find("default-src 'none'"), std::string::npos);
    const auto raw = m_client->Get(path + "/raw");
    EXPECT_EQ(raw->body, Samples::picture());
    EXPECT_EQ(raw->get_header_value("Content-Type"), "image/jpeg");
    EXPECT_EQ(raw->get_header_value("X-Content-Type-Options"), "nosniff");
}

TEST_F(KestrelTest, AnswersWithTheLinkOfEveryShareTarget)
{
    const QJsonObject answer = answered(upload(Samples::picture(), "Tea & cake"));
    const QString link =
        QString::fromLatin1(QUrl::toPercentEncoding(answer[QLatin1String("link")].toString()));
    const QJsonObject share = answer[QLatin1String("share")].toObject();
    for (const char* name : {"facebook", "google", "twitter", "pinterest"}) {
        SCOPED_TRACE(name);
        const QString address = share[QLatin1String(name)].toString();
        EXPECT_TRUE(QUrl(address, QUrl::StrictMode).isValid());
        EXPECT_TRUE(address.startsWith(QLatin1String("https://")));
        EXPECT_TRUE(address.contains(link));
        EXPECT_EQ(address.contains(QLatin1String("Tea%20%26%20cake")), name != std::string("facebook"));
    }
}

TEST_F(KestrelTest, KeepsAPrivatePictureBehindItsPassword)
{
    const std::string path = uploaded("Secret plan", "sesame");
    const auto locked = m_client->Get(path);
    EXPECT_NE(locked->body.find("<label for=\"password\">"), std::string::npos);
    EXPECT_EQ(locked->body.find("Secret plan"), std::string::npos);
    EXPECT_EQ(m_client->Get(path + "/raw")->status, 403);
    const auto wrong = m_client->Post(path, httplib::Params{{"password", "simsim"}});
    EXPECT_EQ(wrong->status, 403);
    EXPECT_FALSE(wrong->has_header("Set-Cookie"));

    const auto right = m_client->Post(path, httplib::Params{{"password", "sesame"}});
    ASSERT_EQ(right->status, 303);
    EXPECT_EQ(right->get_header_value("Location"), path);
    const std::string cookie = right->get_header_value("Set-Cookie");
    EXPECT_NE(cookie.find("HttpOnly"), std::string::npos);
    const httplib::Headers known{{"Cookie", "other=1; " + cookie.substr(0, cookie.find(';'))}};
    EXPECT_NE(m_client->Get(path, known)->body.find("Secret plan"), std::string::npos);
    EXPECT_EQ(m_client->Get(path + "/raw", known)->body, Samples::picture());
    EXPECT_EQ(m_client->Get(uploaded("", "sesame") + "/raw", known)->status, 403) << "opens another picture";
}

TEST_F(KestrelTest, LooksAtTenOfAThousandPasswords)
{
    const std::string path = uploaded("", "sesame"), other = uploaded("", "sesame");
    std::map<int, int> answers;
    for (int i = 0; i < 1000; ++i) {
        const httplib::Headers forged{{"X-Forwarded-For", "192.0.2." + std::to_string(i % 256)}};
        ++answers[m_client->Post(path, forged, httplib::Params{{"password", std::to_string(i)}})->status];
    }
    EXPECT_EQ(answers, (std::map<int, int>{{403, 10}, {429, 990}}));
    for (const std::string& picture : {path, other}) {
        const auto answer = m_client->Post(picture, httplib::Params{{"password", "sesame"}});
        EXPECT_EQ(answer->status, 429);
        EXPECT_TRUE(answer->has_header("Retry-After"));
    }
}

TEST_F(KestrelTest, KeepsAPictureNoLongerThanItsSenderWants)
{
    const auto sent = [this](const char* expire) {
        return m_client->Post("/upload", httplib::MultipartFormDataItems{{"expire", expire, "", ""},
                                             {"file", Samples::picture(), "a", ""}});
    };
    for (const char* expire : {"899", "1h", "-900", "900x", "99999999999999999999"}) {
        SCOPED_TRACE(expire);
        EXPECT_EQ(sent(expire)->status, 400);
    }
    const QJsonObject answer = answered(sent("900"));
    EXPECT_NEAR(answer[QLatin1String("expires")].toDouble(), double(std::time(nullptr)) + 900, 30);
    const std::string page = path(answer[QLatin1String("link")].toString());
    EXPECT_NE(m_client->Get(page)->body.find("here until"), std::string::npos);

    QFile info(m_folder.filePath(QStringLiteral("data/pictures") + QString::fromStdString(page).mid(2)) +
               QStringLiteral("/info.json"));
    ASSERT_TRUE(info.open(QIODevice::ReadWrite));
    QJsonObject past = QJsonDocument::fromJson(info.readAll()).object();
    past[QLatin1String("expires")] = 1000;
    info.resize(0);
    info.write(QJsonDocument(past).toJson());
    info.close();
    EXPECT_EQ(m_client->Get(page)->status, 404);
    EXPECT_EQ(m_client->Get(page + "/raw")->status, 404);
}

TEST_F(KestrelTest, TellsItsHealthToAllAndItsCountsToThisMachine)
{
    uploaded("Secret plan", "sesame");
    EXPECT_EQ(m_client->Get("/health")->status, 200);
    const auto metrics = m_client->Get("/metrics");
    ASSERT_EQ(metrics->status, 200);
    EXPECT_NE(metrics->body.find("\nkestrel_uploads_total{result=\"stored\"} 1\n"), std::string::npos);
    EXPECT_EQ(metrics->body.find("Secret"), std::string::npos);
    const httplib::Headers passedOn{{"X-Forwarded-For", "192.0.2.1"}};
    EXPECT_EQ(m_client->Get("/metrics", passedOn)->status, 403);
    httplib::Headers withToken = passedOn;
    withToken.emplace("Authorization", "Bearer token of a test");
    EXPECT_EQ(m_client->Get("/metrics", withToken)->status, 200);
}

TEST_F(KestrelTest, DeletesForTheSenderOnly)
{
    std::string deletePath;
    const std::string path = uploaded("", "", &deletePath);
    const std::string forged = path + "/delete/aaaaaaaaaaaaaaaaaaaaaa";
    EXPECT_EQ(m_client->Post(forged)->status, 404);
    EXPECT_EQ(m_client->Get(deletePath)->status, 200); // what previews links deletes nothing
    EXPECT_EQ(m_client->Get(path)->status, 200);
    EXPECT_EQ(m_client->Post(deletePath)->status, 200);
    EXPECT_EQ(m_client->Get(path)->status, 404);
    EXPECT_EQ(m_client->Get(path + "/raw")->status, 404);
    EXPECT_EQ(countIn("pictures"), 0u);
}

TEST_F(KestrelTest, RefusesWhatIsNoUploadWithAClearStatusAndKeepsNothing)
{
    using Form = httplib::MultipartFormDataItems;
    const auto fileOf = [](const std::string& bytes) { return Form{{"file", bytes, "a", ""}}; };
    const std::string jpeg = Samples::picture(), huge(5000, 'x');
    struct Case {
        const char* name;
        Form form;
        int status;
    };
    const Case cases[] = {
        {"no file", {{"title", "x", "", ""}}, 400},
        {"two files", {{"file", jpeg, "a", ""}, {"file", jpeg, "b", ""}}, 400},
        {"a huge title", {{"title", huge, "", ""}, {"file", jpeg, "a", ""}}, 400},
        {"a huge password", {{"password", huge, "", ""}, {"file", jpeg, "a", ""}}, 400},
        {"half a picture", fileOf(jpeg.substr(0, 300)), 415},
        {"a file over the limit", fileOf(std::string(20001, 'x')), 413},
        {"a form far over the limit", fileOf(std::string(200000, 'x')), 413},
        {"too many pixels", fileOf(Samples::promising(50000, 50000)), 413},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const auto answer = m_client->Post("/upload", c.form);
        ASSERT_TRUE(answer);
        EXPECT_EQ(answer->status, c.status);
    }
    for (const char* type : {"text/plain", "multipart/form-data; boundary=b"}) // its end is missing
        EXPECT_EQ(m_client->Post("/upload", "--b\r\n", type)->status, 400) << type;
    EXPECT_EQ(countIn("pictures") + countIn("incoming"), 0u);
    EXPECT_EQ(upload(jpeg)->status, 201);
}

TEST_F(KestrelTest, TellsWhenTheDiskIsFull)
{
    const auto answer = [this] {
        const FileSizeLimit limit(200);
        return upload(Samples::picture());
    }();
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->status, 507);
    EXPECT_EQ(countIn("pictures") + countIn("incoming"), 0u);
}

TEST_F(KestrelTest, KnowsNoOtherMethodsAndPaths)
{
    EXPECT_EQ(m_client->Put("/upload", "x", "text/plain")->status, 405);
    EXPECT_EQ(m_client->Delete("/p/aaaaaaaaaaaaaaaaaaaaaa")->status, 405);
    EXPECT_EQ(m_client->Post("/elsewhere", "x", "text/plain")->status, 404);
    for (const char* path : {"/", "/p/", "/p/..", "/p/aaaaaaaaaaaaaaaaaaaaaa", "/p/../../etc/passwd",
             "/p/%2e%2e/info.json", "/incoming/", "/data"}) {
        SCOPED_TRACE(path);
        const auto answer = m_client->Get(path);
        ASSERT_TRUE(answer);
        EXPECT_EQ(answer->status, 404);
    }
}
