#include "tests/desktop/ProgramTest.h"
#include "tests/desktop/Relay.h"
#include "tests/desktop/Toolbars.h"
#include "tests/fakes/TestCertificate.h"

#include <QFileInfo>
#include <QUrl>

#include <optional>
#include <utility>

namespace {

constexpr QPoint kFrom{100, 60};
constexpr int kWindowDrawnMs = 300; // after it has the keyboard

// A capture's way to the real service, over TLS on loopback, and what the user sees of it. All that is sent
// passes a relay. Device pixels.
class Upload : public ProgramTest {
protected:
    explicit Upload(QSize size = {1280, 800}, QPoint to = {700, 460})
        : ProgramTest({size})
        , m_to(to)
    {
    }
    void SetUp() override
    {
        ProgramTest::SetUp();
        ASSERT_TRUE(startService(0));
        m_relay.emplace(m_servicePort);
        standInForTheBrowser();
        m_program.removeEnvironment("LUMORA_NOTICES");
        m_program.setEnvironment("SSL_CERT_FILE", m_certificate.certificate);
        writeSettings(endpoint(), true);
        ASSERT_TRUE(m_program.startResident());
    }
    void TearDown() override
    {
        ProgramTest::TearDown();
        if (m_service)
            endService();
    }

    // Port 0 takes any free one.
    bool startService(quint16 port)
    {
        m_service = startProcess(QStringLiteral(KESTREL),
            words(qPrintable(
                QStringLiteral("--listen 127.0.0.1:%1 --data %2 --certificate %3 --key %4")
                    .arg(QString::number(port), in("data"), m_certificate.certificate, m_certificate.key))),
            m_desktop.environment());
        if (!m_service->waitForReadyRead())
            return false;
        m_servicePort =
            quint16(QUrl(QString::fromUtf8(m_service->readLine().trimmed().split(' ').last())).port());
        return m_servicePort > 0;
    }
    QString endpoint() const { return QStringLiteral("https://127.0.0.1:%1/upload").arg(m_relay->port()); }
    void endService()
    {
        m_service->kill();
        m_service->waitForFinished();
    }
    void writeSettings(const QString& endpoint, bool isLinkOpened) const
    {
        m_program.writeSettings({{QStringLiteral("uploadEndpoint"), endpoint},
            {QStringLiteral("openScreenshotLinkAfterUpload"), isLinkOpened}});
    }
    QString in(const char* name) const { return m_desktop.home() + QLatin1Char('/') + QLatin1String(name); }

    void chooseRegion()
    {
        ASSERT_TRUE(openOverlay());
        input().drag(kFrom, m_to);
    }
    void chooseRegionAndUpload()
    {
        chooseRegion();
        input().chord({Key::Control, Key::U});
    }
    // A click on the share item, one on the network.
    void share(int target)
    {
        chooseRegion();
        const Toolbars toolbars(m_before.rect(), 1, spannedBy(kFrom, m_to));
        input().clickAt(toolbars.share());
        input().clickAt(toolbars.shareTarget(target));
    }
    // Waits until a window of a width has the keyboard and has been drawn.
    bool waitForWindow(int width) const
    {
        const bool hasCome =
            waitUntil([&] { return server().geometry(server().focusedWindow()).width() == width; });
        QThread::msleep(kWindowDrawnMs);
        return hasCome;
    }

    QString opened() const
    {
        waitUntil([this] { return !openedAddresses().isEmpty(); });
        return openedAddresses().join(QLatin1Char('\n'));
    }
    // What a browser gets from an address; a password goes with it as from the page's form.
    QByteArray fetched(const QString& link, const QStringList& more = {}) const
    {
        const QString line = QStringLiteral("-sL --cacert %1 -b %2 -c %2 %3")
                                 .arg(m_certificate.certificate, in("cookies"), link);
        const auto curl =
            startProcess(QStringLiteral("curl"), words(qPrintable(line)) + more, m_desktop.environment());
        curl->waitForFinished();
        return curl->readAllStandardOutput();
    }
    // The region as it was frozen, but for what JPEG loses.
    testing::AssertionResult isRegion(const QByteArray& picture) const
    {
        const QImage expected = m_before.copy(spannedBy(kFrom, m_to));
        const double difference = meanDifference(QImage::fromData(picture), expected);
        return difference < 12 ? testing::AssertionSuccess()
                               : testing::AssertionFailure() << "they differ by " << difference;
    }
    // How much of the notice's bar is filled; 0 without one.
    double shownProgress() const
    {
        const QImage row = server().pixels({QPoint(m_before.width() - 380, 37 + 41), QSize(380, 1)});
        int done = 0, rest = 0;
        for (int x = 0; x < row.width(); ++x) {
            done += row.pixelColor(x, 0) == QColor(42, 123, 244);
            rest += row.pixelColor(x, 0) == QColor(237, 229, 253);
        }
        return done + rest == 0 ? 0 : double(done) / (done + rest);
    }
    // Once it does not move any more.
    double settledProgress() const
    {
        double before = 0, now = -1;
        waitUntil([&] {
            before = std::exchange(now, shownProgress());
            QThread::msleep(300);
            return now == before;
        });
        return now;
    }
    // The first word of the doctor's line.
    std::string doctorOnUploads() const
    {
        const QString lines = m_program.run("doctor").out;
        const QStringList found = lines.split(QLatin1Char('\n')).filter(QStringLiteral(" upload "));
        return found.value(0).section(QLatin1Char(' '), 0, 0).toStdString();
    }
    bool waitForNoPicture() const
    {
        return waitUntil([this] { return m_program.savedPictures().isEmpty(); });
    }

    static constexpr int kForm = 482, kAlert = 420; // widths of windows
    const QPoint m_to;
    const TestCertificate m_certificate = TestCertificate::madeIn(m_desktop.home());
    std::unique_ptr<QProcess> m_service;
    quint16 m_servicePort = 0;
    std::optional<Relay> m_relay;
};

// A picture with more bytes than the system takes from a program in advance, and only some get through. The
// system asks for more when a third of what it took is out.
class HalfAnUpload : public Upload {
protected:
    HalfAnUpload()
        : Upload({3200, 1800}, {3000, 1700})
    {
    }
    // Shares and waits until no more of it gets out; gives the bytes of the picture.
    qint64 shareHalf()
    {
        m_relay->letThrough(kHalf);
        share(0);
        EXPECT_TRUE(waitForRest());
        EXPECT_TRUE(waitUntil([this] { return settledProgress() > 0.1; }));
        EXPECT_EQ(m_program.savedPictures().size(), 1);
        return QFileInfo(m_program.savedPictures().value(0)).size();
    }

    static constexpr QPoint kCloseButton{3200 - 10 - 18, 37 + 18}; // of the notice
    static constexpr qint64 kHalf = 2000000;                       // bytes
    static constexpr qint64 kMore = 1500000;
    static constexpr qint64 kInAdvance = 4500000; // bytes that the system takes at most
};

}

TEST_F(Upload, OfARegionEndsWithItsPageInTheBrowser)
{
    chooseRegionAndUpload();
    ASSERT_TRUE(waitForWindow(kForm));
    input().type({Key::A, Key::S, Key::D, Key::Return});
    const QString link = opened();
    ASSERT_TRUE(link.startsWith(QLatin1String("https://127.0.0.1:"))) << link.toStdString();
    EXPECT_TRUE(fetched(link).contains("<h1>asd</h1>"));
    EXPECT_TRUE(isRegion(fetched(link + QStringLiteral("/raw"))));
    EXPECT_TRUE(waitForNoPicture()) << "the temporary file stays";
    EXPECT_TRUE(waitUntil([this] { return settledProgress() == 1; })) << "it ended while its notice came";
    EXPECT_EQ(doctorOnUploads(), "right");
}

TEST_F(Upload, OfAPrivateRegionIsShownWithItsPasswordOnly)
{
    chooseRegionAndUpload();
    ASSERT_TRUE(waitForWindow(kForm));
    input().type({Key::Tab, Key::Space, Key::Tab, Key::Tab, Key::Q, Key::C, Key::Z, Key::Return});
    const QString link = opened();
    EXPECT_TRUE(fetched(link).contains("type=\"password\""));
    fetched(link, words("--data password=qcz"));
    EXPECT_TRUE(isRegion(fetched(link + QStringLiteral("/raw"))));
}

TEST_F(Upload, OfAFormThatIsClosedSendsNothing)
{
    chooseRegionAndUpload();
    ASSERT_TRUE(waitForWindow(kForm));
    input().type({Key::Escape});
    EXPECT_TRUE(waitForNoPicture());
    EXPECT_TRUE(Program::allFiles(in("data/pictures")).isEmpty());
    EXPECT_TRUE(m_program.logLines().filter(QStringLiteral(" -- upload")).isEmpty());
}

TEST_F(Upload, OpensTheNetworkThatTheRegionIsSharedTo)
{
    const char* const addresses[] = {"https://www.facebook.com/", "https://mail.google.com/",
        "https://twitter.com/", "https://www.pinterest.com/"};
    for (int target = 0; target < 4; ++target) {
        SCOPED_TRACE(target);
        QFile::remove(in("opened"));
        share(target);
        EXPECT_TRUE(opened().startsWith(QLatin1String(addresses[target]))) << opened().toStdString();
        ASSERT_TRUE(waitForRest());
    }
}

TEST_F(HalfAnUpload, ShowsHowManyBytesAreOut)
{
    const auto size = double(shareHalf());
    const double half = settledProgress();
    EXPECT_GE(half, 0.99 * kHalf / size);
    EXPECT_LE(half, (kHalf + kInAdvance) / size);
    m_relay->letThrough(kHalf + kMore);
    EXPECT_TRUE(waitUntil([&] { return shownProgress() >= half + 0.5 * kMore / size; }));
    EXPECT_LT(settledProgress(), 0.99);
    m_relay->letThrough(Relay::kEverything);
    EXPECT_TRUE(opened().startsWith(QLatin1String("https://www.facebook.com/")));
}

TEST_F(HalfAnUpload, IsAskedAboutAndTriedAgain)
{
    shareHalf();
    endService();
    ASSERT_TRUE(waitForWindow(kAlert));
    m_relay->letThrough(Relay::kEverything);
    ASSERT_TRUE(startService(m_servicePort));

    ASSERT_TRUE(openOverlay()); // a capture works beside the question
    EXPECT_TRUE(savesRegion({10, 10}, {60, 60}));
    input().clickAt(m_desktop.screen().rect().center() - QPoint(0, 40));
    ASSERT_TRUE(waitForWindow(kAlert));
    input().type({Key::Return});
    EXPECT_TRUE(opened().startsWith(QLatin1String("https://www.facebook.com/")));
    EXPECT_TRUE(waitUntil([this] { return m_program.savedPictures().size() == 1; }));
    const QString said = m_program.logLines().filter(QStringLiteral(" -- upload")).value(0);
    EXPECT_TRUE(fetched(said.section(QLatin1Char(' '), 0, 0)).contains("<h1>Upload failed</h1>"));
}

TEST_F(HalfAnUpload, ThatIsCancelledLeavesThePicture)
{
    shareHalf();
    input().clickAt(kCloseButton);
    EXPECT_TRUE(waitUntil([this] {
        return m_program.logLines().filter(QStringLiteral("User cancel the upload file :")).size() == 1;
    }));
    EXPECT_EQ(m_program.savedPictures().size(), 1);
    m_relay.reset();
    EXPECT_TRUE(waitUntil([this] { return Program::allFiles(in("data/incoming")).isEmpty(); }));
    EXPECT_TRUE(Program::allFiles(in("data/pictures")).isEmpty());
}

TEST_F(Upload, ThatIsAskedAboutIsNotLostWhenTheProgramQuits)
{
    endService();
    share(0);
    ASSERT_TRUE(waitForWindow(kAlert));
    EXPECT_EQ(m_program.quitResident(), 0);
    EXPECT_EQ(m_program.savedPictures().size(), 1);
    ASSERT_TRUE(m_program.startResident());
    ASSERT_TRUE(waitForWindow(kAlert));
    input().type({Key::Return});
    ASSERT_TRUE(waitForWindow(kForm));
    EXPECT_EQ(m_program.quitResident(), 0);
    EXPECT_EQ(m_program.savedPictures().size(), 1);
}

TEST_F(Upload, WithoutAnAddressSavesThePicture)
{
    writeSettings(QString(), true);
    QThread::msleep(kWindowDrawnMs);
    chooseRegionAndUpload();
    EXPECT_TRUE(waitUntil([this] { return m_program.savedPictures().size() == 1; }));
    ASSERT_TRUE(waitForRest());
    EXPECT_TRUE(samePixels(QImage(m_program.savedPictures().first()), m_before.copy(spannedBy(kFrom, m_to))));
    EXPECT_TRUE(Program::allFiles(in("data/pictures")).isEmpty());
}

TEST_F(HalfAnUpload, OfACrashAndOfAProgramThatQuitsIsOfferedAgain)
{
    for (const bool isCrash : {true, false}) {
        SCOPED_TRACE(isCrash ? "a crash" : "a program that quits");
        QFile::remove(in("opened"));
        shareHalf();
        if (isCrash)
            m_program.killResident();
        else
            EXPECT_EQ(m_program.quitResident(), 0);
        ASSERT_TRUE(m_program.startResident());
        ASSERT_TRUE(waitForWindow(kAlert));
        m_relay->letThrough(Relay::kEverything);
        input().type({Key::Return});
        ASSERT_TRUE(waitForWindow(kForm));
        input().type({Key::Return});
        EXPECT_TRUE(opened().startsWith(QLatin1String("https://127.0.0.1:")));
        EXPECT_TRUE(waitForNoPicture());
    }
}

TEST_F(Upload, GivesNothingToAServerWithAnotherCertificateAndIsGivenUpWithEscape)
{
    m_program.quitResident();
    m_program.removeEnvironment("SSL_CERT_FILE");
    ASSERT_TRUE(m_program.startResident());
    share(0);
    ASSERT_TRUE(waitForWindow(kAlert));
    EXPECT_EQ(m_program.savedPictures().size(), 1);
    EXPECT_TRUE(Program::allFiles(in("data/pictures")).isEmpty());
    EXPECT_EQ(doctorOnUploads(), "wrong");
    input().type({Key::Escape});
    EXPECT_TRUE(waitForNoPicture());
}
