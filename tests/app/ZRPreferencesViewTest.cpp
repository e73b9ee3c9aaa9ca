#include "app/ZRPreferencesView.h"
#include "app/PreferencesWindow.h"

#include "app/EndpointTest.h"
#include "app/EventMonitor.h"
#include "app/ZRShortcutRecorderControl.h"
#include "commonutils/NotificationCenter.h"
#include "settings/ZRBookmark.h"
#include "tests/app/KeyStroke.h"
#include "tests/app/Languages.h"
#include "tests/app/TextFit.h"
#include "tests/fakes/FakeFileBookmarks.h"
#include "tests/fakes/FakeHotKeys.h"
#include "tests/fakes/FakeLoginItem.h"
#include "tests/fakes/FakeWorkspace.h"

#include <QCheckBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTest>

namespace {

class FakeEndpointTest final : public EndpointTest {
public:
    void ask(const QString& address, Answer answer) override
    {
        asked << address;
        pending = std::move(answer);
    }
    QStringList asked;
    Answer pending;
};

class Preferences : public LanguagesTest {
protected:
    Preferences()
    {
        AppSettings::install(&workspace, &loginItem);
        ZRBookmark::defaultShareBookmark().install(&bookmarks);
        EventMonitor::install(&hotKeys);
        AppSettings::setScreenshotSavePath(folder.path());
        EventMonitor::registerHotKeyMonitorWithAction([](const QString&) {});
        NotificationCenter::defaultCenter().addObserver(
            observer, QStringLiteral("needUpdateHotKeyBindRegister"), [this](const QVariantMap& object) {
                updates << object[QStringLiteral("needUpdateHotKeyName")].toString();
            });
        view.initialize();
        view.show();
        QApplication::setActiveWindow(&view);
    }
    ~Preferences() override
    {
        EventMonitor::install(nullptr);
        ZRBookmark::defaultShareBookmark().install(nullptr);
        AppSettings::install(nullptr, nullptr);
    }

    template <class Part>
    Part& part(const char* name) const
    {
        return *view.findChild<Part*>(QLatin1String(name));
    }
    void click(const char* name) const { part<QAbstractButton>(name).click(); }
    static void choose(const QPushButton& button, const QString& title)
    {
        for (QAction* item : button.menu()->actions())
            if (item->text() == title)
                item->trigger();
    }
    void record(const char* name, KeyStroke::Position key) const
    {
        auto& field = part<ZRShortcutRecorderControl>(name);
        QTest::mouseClick(&field, Qt::LeftButton);
        KeyStroke::press(field, key, Qt::MetaModifier);
        KeyStroke::release(field, key, Qt::MetaModifier);
        EXPECT_TRUE(QTest::qWaitFor([&field] { return !field.isTyping(); }, 2000));
    }

    QTemporaryDir folder;
    FakeWorkspace workspace;
    FakeLoginItem loginItem;
    FakeFileBookmarks bookmarks;
    FakeHotKeys hotKeys;
    FakeEndpointTest endpointTest;
    QObject observer;
    QStringList updates;
    ZRPreferencesView view{workspace, endpointTest};
};

}

TEST_F(Preferences, WriteEachSwitchAtOnceAndShowWhatIsStored)
{
    const struct {
        const char* button;
        bool (*isOn)();
        void (*store)(bool);
    } cases[] = {
        {"mAutoStartBtn", AppSettings::isNeedAppStartWhenComputerPowerOn,
            AppSettings::setNeedAppStartWhenComputerPowerOn},
        {"mConfirmBeforeUploadBtn", AppSettings::isNeedShowUploadToCloudView,
            AppSettings::setIsNeedShowUploadToCloudView},
        {"mOpenWebLinkAfterUpload", AppSettings::IsOpenScreenshotLinkAfterUpload,
            AppSettings::setIsOpenScreenshotLinkAfterUpload},
        {"mSecureMosaicBtn", AppSettings::isMosaicSecure, AppSettings::setMosaicSecure},
        {"mKeepLastCaptureBtn", AppSettings::isLastCaptureKept, AppSettings::setLastCaptureKept},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.button);
        const bool before = c.isOn();
        EXPECT_EQ(part<QCheckBox>(c.button).isChecked(), before);
        click(c.button);
        EXPECT_EQ(c.isOn(), !before);
        c.store(before);
        view.initialize();
        EXPECT_EQ(part<QCheckBox>(c.button).isChecked(), before);
    }
}

TEST_F(Preferences, WriteEachChoiceAtOnce)
{
    EXPECT_TRUE(part<QAbstractButton>("mRetinaQualityBtn").isChecked());
    click("mNormalQualityBtn");
    EXPECT_EQ(AppSettings::imageQualityUserNeed(), 16);
    view.initialize();
    EXPECT_TRUE(part<QAbstractButton>("mNormalQualityBtn").isChecked());
    click("mRetinaQualityBtn");
    EXPECT_EQ(AppSettings::imageQualityUserNeed(), 8);

    choose(part<QPushButton>("mFileFormatBtn"), QStringLiteral("jpg"));
    EXPECT_EQ(AppSettings::screenshotType(), QStringLiteral(".jpg"));
    EXPECT_EQ(part<QPushButton>("mFileFormatBtn").text(), QStringLiteral("jpg"));

    QTest::keyClicks(&part<QLineEdit>("mEndpointField"), QStringLiteral("https://a.example "));
    EXPECT_EQ(AppSettings::uploadEndpoint(), QStringLiteral("https://a.example"));
}

TEST_F(Preferences, StartAtLoginFromTheClickOn)
{
    click("mAutoStartBtn");
    EXPECT_TRUE(loginItem.registered);
    click("mAutoStartBtn");
    EXPECT_FALSE(loginItem.registered);
}

TEST_F(Preferences, StoreARecordedHotKeyOfEitherCapture)
{
    record("mRegionShortcutsField", KeyStroke::kDigit5);
    EXPECT_EQ(AppSettings::regionScreenShotHotKey(), QStringLiteral("cmd 5"));
    record("mFullShortcutsField", KeyStroke::kSemicolon);
    EXPECT_EQ(AppSettings::fullScreenShotHotKey(), QStringLiteral("cmd k"));
    EXPECT_EQ(updates, (QStringList{QStringLiteral("regionHotKey"), QStringLiteral("fullHotKey")}));
    EXPECT_EQ(hotKeys.keys.at(2), (FakeHotKeys::Key{41, 256}));
}

TEST_F(Preferences, ClearOneHotKeyAndKeepTheOther)
{
    auto& field = part<ZRShortcutRecorderControl>("mRegionShortcutsField");
    QTest::mouseClick(&field, Qt::LeftButton);
    EXPECT_TRUE(hotKeys.keys.empty()); // they rest
    QTest::mouseClick(&field, Qt::LeftButton, {}, field.clearButtonRect().center().toPoint());
    EXPECT_EQ(AppSettings::regionScreenShotHotKey(), QString());
    ASSERT_EQ(hotKeys.keys.size(), 1U);
    EXPECT_EQ(hotKeys.keys.begin()->second, (FakeHotKeys::Key{19, 256}));
}

TEST_F(Preferences, MarkAHotKeyThatIsRefusedUntilItWorks)
{
    hotKeys.refusal = HotKeyRefusal::kTaken;
    record("mRegionShortcutsField", KeyStroke::kDigit5);
    const auto& label = part<QLabel>("mRegionRefusalLabel");
    EXPECT_EQ(label.text(), AppSettings::getXMLValueForKeywords(u"Lumora:HotKey:TakenByOther"));
    EXPECT_TRUE(label.isVisible());
    hotKeys.onStateChange(1, {});
    EXPECT_FALSE(label.isVisible());
    hotKeys.onStateChange(1, QStringLiteral("some reason"));
    EXPECT_TRUE(label.text().contains(QStringLiteral("Cmd+5")));
}

TEST_F(Preferences, TellOfAFolderThatCannotBeUsed)
{
    const auto& problem = part<QLabel>("mFolderProblemLabel");
    EXPECT_FALSE(problem.isVisible());
    QDir(folder.path()).removeRecursively();
    click("mOpenFolder");
    EXPECT_TRUE(problem.isVisible());
    EXPECT_TRUE(problem.text().contains(folder.path()));
}

TEST_F(Preferences, TestTheUploadAddress)
{
    const auto& result = part<QLabel>("mEndpointResultLabel");
    EXPECT_FALSE(part<QPushButton>("mEndpointTestBtn").isEnabled()); // there is no address
    AppSettings::setUploadEndpoint(QStringLiteral("https://b.example"));
    for (const QString& failure : {QString(), QStringLiteral("refused")}) {
        SCOPED_TRACE(failure.toStdString());
        view.initialize();
        click("mEndpointTestBtn");
        EXPECT_FALSE(part<QPushButton>("mEndpointTestBtn").isEnabled());
        EXPECT_EQ(endpointTest.asked.last(), QStringLiteral("https://b.example"));
        endpointTest.pending(failure);
        EXPECT_TRUE(result.isVisible() && part<QPushButton>("mEndpointTestBtn").isEnabled());
        EXPECT_EQ(result.text().contains(QStringLiteral("refused")), !failure.isEmpty());
    }
}

TEST_F(Preferences, ChangeTheLanguageAndSayIt)
{
    int told = 0;
    NotificationCenter::defaultCenter().addObserver(observer,
        QStringLiteral("needChangeClientLanguageRegister"), [&told](const QVariantMap&) { ++told; });
    const auto& button = part<QPushButton>("mLangMenuBtn");
    EXPECT_EQ(button.menu()->actions().size(), 19);
    choose(button, QStringLiteral("English")); // which it is
    EXPECT_EQ(told, 0);
    choose(button, QStringLiteral("Deutsch"));
    EXPECT_EQ(AppSettings::ClientLanguage(), QStringLiteral("German"));
    EXPECT_EQ(told, 1);
    view.changeText();
    EXPECT_EQ(button.text(), QStringLiteral("Deutsch"));
}

TEST_F(Preferences, CloseWithoutTouchingAShortcutThatIsBeingRecorded)
{
    PreferencesWindow window(workspace);
    window.showPreferences();
    auto& field = *window.findChild<ZRShortcutRecorderControl*>();
    QTest::mouseClick(&field, Qt::LeftButton);
    KeyStroke::press(field, KeyStroke::kEscape);
    EXPECT_TRUE(window.isVisible() && field.isRecoding());
    window.close();
    EXPECT_FALSE(field.isTyping());
    EXPECT_EQ(AppSettings::regionScreenShotHotKey(), QStringLiteral("cmd 1"));
    window.showPreferences();
    KeyStroke::press(field, KeyStroke::kEscape);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(Preferences, CutNoTextInAnyLanguage)
{
    AppSettings::setFullScreenShotHotKey(AppSettings::regionScreenShotHotKey());
    PreferencesWindow window(workspace);
    window.showPreferences();
    hotKeys.refusal = HotKeyRefusal::kUsedTwice;
    EventMonitor::registerHotKeyMonitorWithAction([](const QString&) {});
    QDir(folder.path()).removeRecursively();
    inEveryLanguage([&] {
        window.changeText();
        QCoreApplication::processEvents();
        const TextFit fit = textFitOf(window);
        EXPECT_EQ(fit.texts.size(), 22);
        EXPECT_FALSE(fit.texts.contains(QString()));
        EXPECT_EQ(fit.cut, QStringList());
    });
}
