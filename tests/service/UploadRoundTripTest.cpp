#include "commonutils/CommUpload.h"
#include "service/Kestrel.h"
#include "tests/fakes/TestCertificate.h"
#include "tests/service/Samples.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QTemporaryDir>

#include <future>
#include <thread>

namespace {

// The tool's client and the service, over TLS with a certificate that nobody else has signed.
class UploadRoundTripTest : public testing::Test {
protected:
    UploadRoundTripTest()
    {
        EXPECT_EQ(m_kestrel.open(), "");
        m_run = std::async(std::launch::async, [this] { m_kestrel.run(); });
        while (!m_kestrel.isRunning())
            std::this_thread::yield();
        QFile file(m_folder.filePath(QStringLiteral("a.jpg")));
        file.open(QIODevice::WriteOnly);
        file.write(QByteArray::fromStdString(Samples::picture()));
    }
    ~UploadRoundTripTest() override
    {
        qunsetenv("SSL_CERT_FILE");
        m_kestrel.stop();
        m_run.wait();
    }

    ServiceOptions options() const
    {
        ServiceOptions options;
        options.port = 0;
        options.dataFolder = m_folder.filePath(QStringLiteral("data")).toStdString();
        options.certificate = m_certificate.certificate.toStdString();
        options.key = m_certificate.key.toStdString();
        return options;
    }
    void send()
    {
        UploadImageMeta meta;
        meta.setMetaFileName(m_folder.filePath(QStringLiteral("a.jpg")));
        CommUpload upload(QUrl(QString::fromStdString(m_kestrel.uploadUrl())));
        QEventLoop loop;
        upload.uploadImageToScreenshotWithImageMeta(
            meta, {},
            [&](const UploadResult& answer) {
                m_result = answer;
                loop.quit();
            },
            [&](const QString& reason) {
                m_error = reason;
                loop.quit();
            });
        loop.exec();
    }

    int m_argc = 0;
    QCoreApplication m_application{m_argc, nullptr};
    QTemporaryDir m_folder;
    const TestCertificate m_certificate = TestCertificate::madeIn(m_folder.path());
    Kestrel m_kestrel{options()};
    std::future<void> m_run;
    UploadResult m_result;
    QString m_error;
};

}

TEST_F(UploadRoundTripTest, EndsWithLinksForEverything)
{
    qputenv("SSL_CERT_FILE", m_certificate.certificate.toLocal8Bit());
    send();
    EXPECT_EQ(m_error.toStdString(), "");
    EXPECT_TRUE(m_result.link.startsWith(QLatin1String("https://127.0.0.1:")));
    EXPECT_TRUE(m_result.deleteLink.startsWith(m_result.link));
    EXPECT_EQ(m_result.share.size(), 4);
}

TEST_F(UploadRoundTripTest, GivesNothingToAServerWithACertificateThatNobodyVouchesFor)
{
    send();
    EXPECT_TRUE(m_error.contains(QLatin1String("certificate"))) << m_error.toStdString();
    EXPECT_EQ(m_result.link, QString());
    const QDir pictures(m_folder.filePath(QStringLiteral("data/pictures")));
    EXPECT_TRUE(pictures.exists() && pictures.isEmpty());
}
