#include "bench/desktop/ProcessorTime.h"
#include "bench/desktop/Stopwatch.h"
#include "commonutils/CommUpload.h"
#include "tests/desktop/Process.h"
#include "tests/fakes/TestCertificate.h"

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QImage>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <cstdio>

namespace {

constexpr int kRounds = 9;
constexpr int kWidth = 3000; // pixels of every picture
constexpr double kFailed = std::numeric_limits<double>::infinity();

// The height of a picture with so many bytes: noise, which is stored as it is.
constexpr int heightFor(int mebibytes)
{
    return mebibytes * (1 << 20) / (3 * kWidth);
}

QString pictureOf(const QTemporaryDir& folder, int mebibytes)
{
    QImage picture(kWidth, heightFor(mebibytes), QImage::Format_RGB888);
    QRandomGenerator random(1);
    random.fillRange(reinterpret_cast<quint32*>(picture.bits()), picture.sizeInBytes() / 4);
    const QString path = folder.filePath(QStringLiteral("%1.png").arg(mebibytes));
    picture.save(path, "PNG", 100);
    return path;
}

// The service on this machine, over TLS, with the certificate of the bench.
class Service {
public:
    Service(const QTemporaryDir& folder, const TestCertificate& certificate)
        : m_pictures(folder.filePath(QStringLiteral("data/pictures")))
        , m_process(startProcess(QStringLiteral(KESTREL),
              {QStringLiteral("--listen"), QStringLiteral("127.0.0.1:0"), QStringLiteral("--data"),
                  folder.filePath(QStringLiteral("data")), QStringLiteral("--certificate"),
                  certificate.certificate, QStringLiteral("--key"), certificate.key,
                  QStringLiteral("--max-bytes"), QString::number(200 << 20)},
              QProcessEnvironment::systemEnvironment()))
    {
        m_process->waitForReadyRead();
        m_endpoint = QString::fromUtf8(m_process->readLine().trimmed().split(' ').last());
    }
    ~Service() { endProcess(*m_process); }

    const QString& endpoint() const { return m_endpoint; }
    // Forgets all pictures.
    void clear() const
    {
        for (const QString& name : QDir(m_pictures).entryList(QDir::Dirs | QDir::NoDotAndDotDot))
            QDir(m_pictures + QLatin1Char('/') + name).removeRecursively();
    }

private:
    const QString m_pictures;
    const std::unique_ptr<QProcess> m_process;
    QString m_endpoint;
};

// Milliseconds from the beginning to the link.
double upload(const QString& endpoint, const QString& path)
{
    QEventLoop loop;
    UploadImageMeta meta;
    meta.setMetaFileName(path);
    CommUpload upload{QUrl(endpoint)};
    const Stopwatch watch;
    double taken = kFailed;
    upload.uploadImageToScreenshotWithImageMeta(
        meta, nullptr,
        [&](const UploadResult&) {
            taken = watch.milliseconds();
            loop.quit();
        },
        [&](const QString& error) {
            std::fprintf(stderr, "%s\n", qPrintable(error));
            loop.quit();
        });
    loop.exec();
    return taken;
}

// The same with curl, by its own watch.
double uploadWithCurl(const QString& endpoint, const QString& path, const QString& certificate)
{
    const auto curl = startProcess(QStringLiteral("curl"),
        {QStringLiteral("-sf"), QStringLiteral("--cacert"), certificate, QStringLiteral("-F"),
            QStringLiteral("title="), QStringLiteral("-F"), QStringLiteral("password="), QStringLiteral("-F"),
            QStringLiteral("file=@") + path, QStringLiteral("-o"), QStringLiteral("/dev/null"),
            QStringLiteral("-w"), QStringLiteral("%{time_total}"), endpoint},
        QProcessEnvironment::systemEnvironment());
    curl->waitForFinished();
    return curl->exitCode() == 0 ? curl->readAllStandardOutput().toDouble() * 1000 : kFailed;
}

// The most memory that this process ever had, in MB.
double peakMemory()
{
    QFile status(QStringLiteral("/proc/self/status"));
    status.open(QIODevice::ReadOnly);
    const QByteArray text = status.readAll();
    const QByteArray peak = text.mid(text.indexOf("VmHWM:") + 6).trimmed();
    return peak.left(peak.indexOf(' ')).toDouble() / 1024;
}

// The peak of a process that uploads one picture and nothing else.
double memoryFor(const QString& endpoint, const QString& path)
{
    const auto sender = startProcess(
        QCoreApplication::applicationFilePath(), {endpoint, path}, QProcessEnvironment::systemEnvironment());
    sender->waitForFinished();
    return sender->exitCode() == 0 ? sender->readAllStandardOutput().toDouble() : kFailed;
}

int sendAlone(const QStringList& arguments)
{
    const bool isSent = upload(arguments[1], arguments[2]) < kFailed;
    std::printf("%.2f", peakMemory());
    return isSent ? 0 : 1;
}

void compareTimes(
    const Service& service, const QTemporaryDir& folder, const QString& certificate, BenchTable& table)
{
    constexpr int kSize = 20; // MiB
    const QString path = pictureOf(folder, kSize);
    const auto ours = [&] {
        const double taken = upload(service.endpoint(), path);
        service.clear();
        return taken;
    };
    ProcessorTime::compare(
        {QStringLiteral("upload of 20 MiB"), {kWidth, heightFor(kSize)}, {}, 0, QStringLiteral("ms"), 1.5},
        kRounds, [&] { return uploadWithCurl(service.endpoint(), path, certificate); }, ours, table);
}

void compareMemory(const Service& service, const QTemporaryDir& folder, BenchTable& table)
{
    constexpr int kSmall = 1, kLarge = 100; // MiB
    const double small = memoryFor(service.endpoint(), pictureOf(folder, kSmall));
    const double large = memoryFor(service.endpoint(), pictureOf(folder, kLarge));
    service.clear();
    table.add({QStringLiteral("memory for 100 MiB, beside 1 MiB"), {kWidth, heightFor(kLarge)}, small, large,
        QStringLiteral("MB"), 1.1});
}

}

// With an endpoint and a file it sends the file and prints its own peak of memory.
int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    if (argc == 3)
        return sendAlone(QCoreApplication::arguments());
    const QTemporaryDir folder;
    const TestCertificate certificate = TestCertificate::madeIn(folder.path());
    qputenv("SSL_CERT_FILE", certificate.certificate.toLocal8Bit());
    const Service service(folder, certificate);
    BenchTable table;
    compareTimes(service, folder, certificate.certificate, table);
    compareMemory(service, folder, table);
    return table.isKept() ? 0 : 1;
}
