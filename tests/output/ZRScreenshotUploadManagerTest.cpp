#include "output/ZRScreenshotUploadManager.h"

#include "commonutils/CommUtils.h"
#include "commonutils/NotificationCenter.h"
#include "output/ZRBasicLocalNotification.h"
#include "output/ZRCustomAlert.h"
#include "output/ZRLocalNotificationCenter.h"
#include "output/ZRNotificationWindow.h"
#include "settings/AppSettings.h"
#include "settings/LanguageCatalogue.h"
#include "tests/fakes/FakeWorkspace.h"
#include "tests/fakes/ScriptedServer.h"
#include "tests/settings/SettingsFolder.h"

#include <QApplication>
#include <QClipboard>
#include <QTest>

#include <gtest/gtest.h>

namespace {

const QByteArray kAnswer = R"({"link": "http://h/p/1", "delete": "http://h/d/1",
    "share": {"facebook": "http://f", "google": "http://g", "twitter": "http://t", "pinterest": "http://p"}})";

class ZRScreenshotUploadManagerTest : public testing::Test {
protected:
    ZRScreenshotUploadManagerTest()
    {
        UserDefaults::setStandardUserDefaults(&m_store);
        LanguageCatalogue::updateLangMenu({QStringLiteral(LANGUAGES)});
        AppSettings::setClientLanguage(QStringLiteral("English"));
        CommUtils::initWithCommAppInfo({}, m_workspace);
        writePicture();
    }
    ~ZRScreenshotUploadManagerTest() override
    {
        while (ZRCustomAlert::current())
            ZRCustomAlert::current()->alertReturnCancel();
        for (const auto& window : notices())
            window->stop();
        waitFor([this] { return notices().empty(); });
        CommUtils::dispose();
        UserDefaults::setStandardUserDefaults(nullptr);
    }

    static const std::vector<std::unique_ptr<ZRNotificationWindow>>& notices()
    {
        return ZRLocalNotificationCenter::defaultLocalNotificationCenter().windows();
    }
    // Of the newest notice; null when it shows no upload.
    static ZRScreenshotUploadingView* view()
    {
        if (notices().empty())
            return nullptr;
        for (QWidget* widget : notices().back()->findChildren<QWidget*>()) {
            if (auto* found = dynamic_cast<ZRScreenshotUploadingView*>(widget))
                return found;
        }
        return nullptr;
    }
    static void waitFor(const std::function<bool()>& condition)
    {
        EXPECT_TRUE(QTest::qWaitFor(condition, 5000));
    }
    // As a capture leaves it for its upload.
    void writePicture()
    {
        m_manager.journal().add(m_path);
        QFile file(m_path);
        file.open(QIODevice::WriteOnly);
        file.write("picture");
    }
    void upload(const ScriptedServer& server, unsigned shareType = 0)
    {
        AppSettings::setUploadEndpoint(server.endpoint().toString());
        m_manager.uploadScreenShotToCloud(
            m_path, QString(), QStringLiteral("My title"), QStringLiteral("sesame"), shareType);
    }
    static bool isFinished() { return view() && view()->isFinished(); }
    bool isFileThere() const { return QFile::exists(m_path); }
    static QByteArray text(QStringView key) { return AppSettings::getXMLValueForKeywords(key).toUtf8(); }

    SettingsFolder m_folder;
    UserDefaults m_store = m_folder.store();
    FakeWorkspace m_workspace;
    const QString m_path = m_folder.in(QStringLiteral("shot.jpg"));
    ZRScreenshotUploadManager m_manager{
        m_folder.in(QStringLiteral("uploads.json")), m_folder.in(QStringLiteral("history/uploads.txt"))};
};

}

TEST_F(ZRScreenshotUploadManagerTest, ShowsTheLinkAndRemovesTheTemporaryFile)
{
    AppSettings::setIsOpenScreenshotLinkAfterUpload(false);
    const ScriptedServer server(ScriptedServer::answer(201, kAnswer));
    upload(server);
    waitFor(isFinished);
    EXPECT_EQ(view()->progressView().progress(), 1);
    EXPECT_TRUE(view()->finishedText().contains(AppSettings::getXMLValueForKeywords(u"Upload:LearnMore")));
    EXPECT_FALSE(isFileThere());
    EXPECT_FALSE(m_manager.journal().contains(m_path));
    EXPECT_TRUE(m_workspace.opened.empty());
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("http://h/p/1"));
    EXPECT_EQ(view()->finishedNote().toUtf8(), text(u"Lumora:Upload:LinkCopied"));
    const QByteArray history = SettingsFolder::contents(m_folder.in(QStringLiteral("history/uploads.txt")));
    EXPECT_TRUE(history.endsWith(" http://h/p/1 http://h/d/1\n"));
    EXPECT_TRUE(server.request().contains("\r\n\r\nMy title\r\n"));
    EXPECT_TRUE(server.request().contains("\r\n\r\nsesame\r\n"));
}

TEST_F(ZRScreenshotUploadManagerTest, LetsTheNoticeGoOnlyWhenTheUploadHasEnded)
{
    for (const bool isLinkOpened : {false, true}) {
        SCOPED_TRACE(isLinkOpened);
        writePicture();
        AppSettings::setIsOpenScreenshotLinkAfterUpload(isLinkOpened);
        const ScriptedServer server(ScriptedServer::answer(201, kAnswer));
        upload(server);
        const auto* notice = dynamic_cast<ZRCustomLocalNotification*>(view()->parentWidget());
        ASSERT_TRUE(notice);
        EXPECT_FALSE(notice->isAutoHidden());
        EXPECT_FALSE(notice->mouseDownExitWithFadeOutEnable());
        waitFor([this] { return !isFileThere(); });
        EXPECT_EQ(m_workspace.opened.size(), isLinkOpened);
        EXPECT_EQ(view()->isFinished(), !isLinkOpened);
        EXPECT_TRUE(notice->isAutoHidden());
        EXPECT_TRUE(notice->mouseDownExitWithFadeOutEnable());
        EXPECT_EQ(notice->autoHiddenDelayTime(), 4);
    }
}

TEST_F(ZRScreenshotUploadManagerTest, TellsOfAFileThatIsNotThere)
{
    QFile::remove(m_path);
    const ScriptedServer server(ScriptedServer::answer(201, kAnswer));
    upload(server);
    ASSERT_EQ(notices().size(), 1u);
    EXPECT_FALSE(view());
    bool isTold = false;
    for (const QLabel* label : notices().back()->findChildren<QLabel*>())
        isTold |= label->text().contains(QLatin1String("shot"));
    EXPECT_TRUE(isTold);
}

TEST_F(ZRScreenshotUploadManagerTest, AsksWhetherToTryAgainAndThenUsesItsOwnTitle)
{
    const ScriptedServer broken(ScriptedServer::answer(500, "")), good(ScriptedServer::answer(201, kAnswer));
    upload(broken);
    waitFor([] { return ZRCustomAlert::current(); });
    EXPECT_TRUE(isFileThere());
    EXPECT_EQ(m_manager.journal().leftOver(), QStringList{m_path}) << "a crash would lose it";
    EXPECT_TRUE(m_workspace.opened.empty());
    EXPECT_TRUE(ZRCustomAlert::current()->message()->toPlainText().startsWith(m_path));
    AppSettings::setUploadEndpoint(good.endpoint().toString());
    AppSettings::setIsOpenScreenshotLinkAfterUpload(false);
    QTest::keyClick(ZRCustomAlert::current(), Qt::Key_Return);
    waitFor(isFinished);
    EXPECT_TRUE(good.request().contains("\r\n\r\n" + text(u"Upload:UploadFailed") + "\r\n"));
    EXPECT_TRUE(good.request().contains("\r\n\r\nsesame\r\n"));
    EXPECT_FALSE(isFileThere());
}

TEST_F(ZRScreenshotUploadManagerTest, LeavesACancelledPictureToTheUser)
{
    const ScriptedServer silent({});
    upload(silent);
    view()->actionForCancel();
    waitFor([] { return notices().empty(); });
    EXPECT_FALSE(ZRCustomAlert::current());
    EXPECT_TRUE(isFileThere());
    EXPECT_FALSE(m_manager.journal().contains(m_path));
}

TEST_F(ZRScreenshotUploadManagerTest, NeverRemovesAFileThatTheJournalDoesNotList)
{
    m_manager.journal().remove(m_path);
    AppSettings::setIsOpenScreenshotLinkAfterUpload(false);
    const ScriptedServer server(ScriptedServer::answer(201, kAnswer));
    upload(server);
    waitFor(isFinished);
    EXPECT_TRUE(isFileThere());
}

TEST_F(ZRScreenshotUploadManagerTest, OffersWhatAnEarlierRunLeft)
{
    m_manager.offerLeftOver();
    EXPECT_FALSE(ZRCustomAlert::current()) << "asked although there is nowhere to send it";
    AppSettings::setUploadEndpoint(QStringLiteral("https://h/upload"));
    struct Case {
        int code;
        bool isFileThere, isListed;
    };
    const Case cases[] = {{ZRCustomAlert::kCancel, true, false}, {ZRCustomAlert::kOther, false, false}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.code);
        m_manager.journal().add(m_path);
        m_manager.offerLeftOver();
        ASSERT_TRUE(ZRCustomAlert::current());
        ZRCustomAlert::current()->closeAlertWithRetunCode(c.code);
        EXPECT_EQ(isFileThere(), c.isFileThere);
        EXPECT_EQ(m_manager.journal().contains(m_path), c.isListed);
    }
}

TEST_F(ZRScreenshotUploadManagerTest, TakesReportsByNotification)
{
    AppSettings::setIsOpenScreenshotLinkAfterUpload(false);
    const ScriptedServer silent({});
    upload(silent);
    NotificationCenter& center = NotificationCenter::defaultCenter();
    const QString path = QStringLiteral("uploadImage.response.uploadFilePath");
    const QString progress = QStringLiteral("UploadImage.response.updateProgress");
    for (const auto& [fraction, shown] : {std::pair{0.25, 0.25}, {1.0, 0.99}}) {
        center.post(QStringLiteral("notification.easyHttp.uploadImageProgress"),
            {{path, m_path}, {progress, fraction}});
        EXPECT_EQ(view()->progressView().progress(), shown);
    }
    center.post(QStringLiteral("notification.easyHttp.uploadImage"),
        {{path, QStringLiteral("/unknown")}, {QStringLiteral("uploadImage.response.finishStatus"), true}});
    EXPECT_FALSE(view()->isFinished());
    center.post(QStringLiteral("notification.easyHttp.uploadImage"),
        {{path, m_path}, {QStringLiteral("uploadImage.response.finishStatus"), true},
            {QStringLiteral("uploadImage.response.urlLink"), QStringLiteral("https://h/1")}});
    EXPECT_TRUE(view()->isFinished());
    EXPECT_FALSE(isFileThere());
}

TEST_F(ZRScreenshotUploadManagerTest, KeepsTheTitleOfAnUploadThatReportsItsFailureByNotification)
{
    AppSettings::setIsOpenScreenshotLinkAfterUpload(false);
    const ScriptedServer silent({}), good(ScriptedServer::answer(201, kAnswer));
    upload(silent);
    NotificationCenter::defaultCenter().post(QStringLiteral("notification.easyHttp.uploadImage"),
        {{QStringLiteral("uploadImage.response.uploadFilePath"), m_path},
            {QStringLiteral("uploadImage.response.finishStatus"), false},
            {QStringLiteral("uploadImage.response.errorInfo"), QStringLiteral("lost")}});
    ASSERT_TRUE(ZRCustomAlert::current());
    AppSettings::setUploadEndpoint(good.endpoint().toString());
    ZRCustomAlert::current()->alertReturnDefault();
    waitFor(isFinished);
    EXPECT_TRUE(good.request().contains("\r\n\r\nMy title\r\n"));
}
