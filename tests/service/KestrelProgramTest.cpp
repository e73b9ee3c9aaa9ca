#include "tests/service/FakeBucket.h"
#include "tests/service/Samples.h"

#include <gtest/gtest.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRandomGenerator>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QUrl>

#include <httplib.h>

#include <filesystem>
#include <fstream>
#include <future>

namespace fs = std::filesystem;

namespace {

// The program itself, on a free port of loopback.
class KestrelProgramTest : public testing::Test {
protected:
    ~KestrelProgramTest() override
    {
        m_program.kill();
        m_program.waitForFinished();
    }

    void start(const QStringList& more = {})
    {
        m_program.setStandardErrorFile(QProcess::nullDevice());
        m_program.start(
            QStringLiteral(KESTREL), QStringList{QStringLiteral("--listen"), QStringLiteral("127.0.0.1:0"),
                                         QStringLiteral("--data"), m_folder.path()} +
                                         more);
        ASSERT_TRUE(m_program.waitForReadyRead());
        m_address = QUrl(QString::fromUtf8(m_program.readLine().trimmed().split(' ').last()));
        ASSERT_TRUE(m_address.isValid());
    }
    size_t countIn(const char* part) const
    {
        const fs::path folder = fs::path(m_folder.path().toStdString()) / part;
        return size_t(std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
    }
    // Sends a form of `promised` bytes as far as they are given, and waits until the service has them.
    void sendPart(QTcpSocket& socket, const QByteArray& form, qsizetype promised)
    {
        socket.connectToHost(m_address.host(), quint16(m_address.port()));
        ASSERT_TRUE(socket.waitForConnected());
        socket.write("POST /upload HTTP/1.1\r\nHost: x\r\nContent-Type: multipart/form-data; boundary=b\r\n"
                     "Content-Length: " +
                     QByteArray::number(promised) + "\r\n\r\n" + form);
        socket.flush();
        for (int i = 0; i < 100 && countIn("incoming") == 0; ++i)
            socket.waitForReadyRead(50);
        ASSERT_EQ(countIn("incoming"), 1u);
    }

    httplib::Client client() const
    {
        httplib::Client client(m_address.host().toStdString(), m_address.port());
        client.set_connection_timeout(60);
        client.set_read_timeout(60);
        return client;
    }
    // The link's path; empty when the service did not say that it has the picture.
    std::string upload(const std::string& form) const
    {
        const auto answer = client().Post(
            "/upload", form.size(),
            [&form](size_t offset, size_t length, httplib::DataSink& sink) {
                return sink.write(form.data() + offset, length);
            },
            "multipart/form-data; boundary=b");
        if (!answer || answer->status != 201)
            return {};
        const auto json = QJsonDocument::fromJson(QByteArray::fromStdString(answer->body)).object();
        return QUrl(json[QLatin1String("link")].toString()).path().toStdString();
    }
    // The most that the program ever had, in KiB.
    long mostMemory() const
    {
        std::ifstream status("/proc/" + std::to_string(m_program.processId()) + "/status");
        for (std::string line; std::getline(status, line);) {
            if (line.starts_with("VmHWM:"))
                return std::stol(line.substr(6));
        }
        return 0;
    }

    QTemporaryDir m_folder;
    QProcess m_program;
    QUrl m_address;
};

// The same program with the pictures in its folder, or in a bucket.
class KestrelLoadTest : public KestrelProgramTest, public testing::WithParamInterface<bool> {
protected:
    void startUnlimited()
    {
        QStringList options{QStringLiteral("--uploads-per-minute"), QStringLiteral("0"),
            QStringLiteral("--requests-per-minute"), QStringLiteral("0")};
        if (GetParam()) {
            const BucketPlace place = m_bucket.place();
            qputenv("AWS_ACCESS_KEY_ID", QByteArray::fromStdString(place.accessKey));
            qputenv("AWS_SECRET_ACCESS_KEY", QByteArray::fromStdString(place.secretKey));
            options += {QStringLiteral("--s3-endpoint"), QString::fromStdString(place.endpoint),
                QStringLiteral("--s3-bucket"), QString::fromStdString(place.bucket),
                QStringLiteral("--s3-region"), QString::fromStdString(place.region)};
        }
        start(options);
    }
    size_t storedPictures() const { return GetParam() ? m_bucket.count("pictures/") : countIn("pictures"); }

    FakeBucket m_bucket;
};

const QByteArray kHead = QByteArrayLiteral("--b\r\nContent-Disposition: form-data; name=\"file\"; "
                                           "filename=\"a\"\r\n\r\n");

std::string formWith(const std::string& picture)
{
    return kHead.toStdString() + picture + "\r\n--b--\r\n";
}

// A PNG of random pixels, which nothing packs.
std::string noise(int side)
{
    QImage image(side, side, QImage::Format_RGB888);
    for (int y = 0; y < side; ++y)
        QRandomGenerator(quint32(y)).fillRange(reinterpret_cast<quint32*>(image.scanLine(y)), side * 3 / 4);
    QBuffer file;
    image.save(&file, "PNG");
    return file.data().toStdString();
}

}

TEST_F(KestrelProgramTest, LeavesNoHalfPictureWhenItsSenderOrItselfGoesAway)
{
    start();
    const QByteArray form = kHead + QByteArray::fromStdString(Samples::picture());
    QTcpSocket socket;
    sendPart(socket, form, 1000000);
    socket.disconnectFromHost();
    for (int i = 0; i < 100 && countIn("incoming") > 0; ++i)
        m_program.waitForReadyRead(20);
    EXPECT_EQ(countIn("pictures") + countIn("incoming"), 0u);
    sendPart(socket, form, 1000000);
    m_program.kill();
    ASSERT_TRUE(m_program.waitForFinished());
    EXPECT_EQ(countIn("pictures"), 0u);
    start();
    EXPECT_EQ(countIn("pictures") + countIn("incoming"), 0u);
}

TEST_F(KestrelProgramTest, SaysWhenAnotherHasItsAddressAndEndsWhenItIsAskedTo)
{
    start();
    QProcess second;
    second.start(
        QStringLiteral(KESTREL), {QStringLiteral("--listen"), m_address.authority(), QStringLiteral("--data"),
                                     m_folder.filePath(QStringLiteral("second"))});
    ASSERT_TRUE(second.waitForFinished());
    EXPECT_EQ(second.exitCode(), 1);
    EXPECT_TRUE(second.readAllStandardError().contains("cannot be had"));
    m_program.terminate();
    ASSERT_TRUE(m_program.waitForFinished());
    EXPECT_EQ(m_program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(m_program.exitCode(), 0);
}

INSTANTIATE_TEST_SUITE_P(Homes, KestrelLoadTest, testing::Bool(),
    [](const auto& home) { return std::string(home.param ? "Bucket" : "Folder"); });

TEST_P(KestrelLoadTest, TakesTwoHundredMebibytesAtOnceInLittleMemory)
{
    startUnlimited();
    const std::string form = formWith(noise(592));
    ASSERT_GT(form.size(), 1u << 20);
    std::vector<std::future<std::string>> uploads;
    for (int i = 0; i < 200; ++i)
        uploads.push_back(std::async(std::launch::async, [&] { return upload(form); }));
    for (auto& link : uploads)
        EXPECT_NE(link.get(), "");
    EXPECT_EQ(storedPictures(), 200u);
    EXPECT_EQ(countIn("incoming"), 0u);
#ifndef __SANITIZE_ADDRESS__ // which keeps what is freed
    EXPECT_LT(mostMemory(), 300 * 1024);
#endif
    RecordProperty("KiB", int(mostMemory()));
}

TEST_P(KestrelLoadTest, HasEachPictureThatItAnsweredForWhenItIsKilledUnderLoad)
{
    startUnlimited();
    const std::string picture = noise(100), form = formWith(picture);
    std::mutex mutex;
    std::vector<std::string> links;
    const auto sendUntilItIsGone = [&] {
        for (std::string link = upload(form); !link.empty(); link = upload(form)) {
            const std::lock_guard lock(mutex);
            links.push_back(link);
        }
    };
    std::vector<std::jthread> senders;
    for (int i = 0; i < 8; ++i)
        senders.emplace_back(sendUntilItIsGone);
    for (size_t stored = 0; stored < 40; stored = storedPictures())
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    m_program.kill();
    ASSERT_TRUE(m_program.waitForFinished());
    senders.clear();
    startUnlimited();
    EXPECT_GE(links.size(), 30u);
    EXPECT_EQ(countIn("incoming"), 0u);
    for (const std::string& link : links) {
        const auto answer = client().Get(link + "/raw");
        EXPECT_TRUE(answer && answer->body == picture) << link;
    }
    if (GetParam())
        return;
    for (const auto& entry : fs::directory_iterator(m_folder.path().toStdString() + "/pictures"))
        EXPECT_EQ(fs::file_size(entry.path() / "picture"), picture.size()) << "half a picture";
}

TEST_F(KestrelProgramTest, WaitsForNoSenderLongerThanItIsTold)
{
    start({QStringLiteral("--upload-seconds"), QStringLiteral("2"), QStringLiteral("--stall-seconds"),
        QStringLiteral("1")});
    for (const bool isDribbling : {true, false}) {
        SCOPED_TRACE(isDribbling);
        QTcpSocket socket;
        sendPart(socket, kHead, 1000000);
        for (int i = 0; i < 50 && socket.bytesAvailable() == 0; ++i) {
            if (isDribbling)
                socket.write(QByteArray(100, 'x'));
            socket.waitForReadyRead(100);
        }
        EXPECT_TRUE(socket.readAll().startsWith("HTTP/1.1 408 "));
        EXPECT_EQ(countIn("incoming") + countIn("pictures"), 0u);
    }
}

TEST_F(KestrelProgramTest, AnswersWhoAsksTooOften)
{
    start({QStringLiteral("--uploads-per-minute"), QStringLiteral("2"),
        QStringLiteral("--requests-per-minute"), QStringLiteral("3")});
    const std::string form = formWith(Samples::picture());
    EXPECT_NE(upload(form), "");
    EXPECT_NE(upload(form), "");
    EXPECT_EQ(upload(form), "");
    EXPECT_EQ(countIn("pictures"), 2u);
    for (const int status : {200, 200, 200, 429})
        EXPECT_EQ(client().Get("/kestrel.css")->status, status);
}

TEST_P(KestrelLoadTest, AnswersThatItCannotWhenItsStorageIsGoneAndGoesOnWhenItIsBack)
{
    startUnlimited();
    const std::string form = formWith(Samples::picture()), folder = m_folder.path().toStdString();
    const std::string link = upload(form);
    const auto takeAway = [&](bool isGone) {
        m_bucket.failWith(isGone ? 500 : 0);
        if (!GetParam())
            fs::rename(folder + (isGone ? "/pictures" : "/gone"), folder + (isGone ? "/gone" : "/pictures"));
    };
    takeAway(true);
    const auto refused = client().Post("/upload", form, "multipart/form-data; boundary=b");
    EXPECT_EQ(refused->status, GetParam() ? 503 : 507);
    EXPECT_NE(refused->body.find("\"error\""), std::string::npos);
    EXPECT_EQ(client().Get(link)->status, GetParam() ? 503 : 404);
    EXPECT_EQ(client().Get("/health")->status, 503);
    takeAway(false);
    EXPECT_EQ(client().Get(link + "/raw")->body, Samples::picture());
    EXPECT_EQ(client().Get("/health")->status, 200);
    EXPECT_EQ(storedPictures(), 1u);
    EXPECT_EQ(countIn("incoming"), 0u);
}
