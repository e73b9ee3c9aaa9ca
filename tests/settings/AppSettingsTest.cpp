#include "settings/AppSettings.h"

#include "settings/SettingsKeys.h"
#include "settings/ZRUserDefaultKit.h"
#include "tests/fakes/FakeWorkspace.h"
#include "tests/settings/SettingsFolder.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace SettingsKeys;

namespace {

class Settings : public testing::Test {
protected:
    Settings()
    {
        SettingsFolder::put(m_folder.in(AppSettings::AppOldBundleId() + QStringLiteral(".plist")),
            PropertyList::xml(QVariantMap{{m_oldKey, 5}, {kRegionHotKey, QStringLiteral("ALT 9")}}));
        m_store = std::make_unique<UserDefaults>(
            m_folder.path(), AppSettings::AppBundleId(), AppSettings::AppOldBundleId());
        UserDefaults::setStandardUserDefaults(m_store.get());
    }

    const QString m_oldKey = QStringLiteral("old");
    SettingsFolder m_folder;
    std::unique_ptr<UserDefaults> m_store;
};

}

TEST_F(Settings, AskTheCurrentDomainThenTheOlderOneThenTheRegisteredValues)
{
    m_store->registerDefaults({{m_oldKey, 7}, {QStringLiteral("new"), 8}});
    EXPECT_EQ(AppSettings::getFromUserDefaultsInteger(m_oldKey), 5);
    EXPECT_EQ(AppSettings::getFromUserDefaultsInteger(QStringLiteral("new")), 8);
    EXPECT_EQ(ZRUserDefaultKit::getFromUserDefaultsInteger(m_oldKey), 7) << "no older domain here";
    EXPECT_EQ(AppSettings::regionScreenShotHotKey(), QStringLiteral("alt 9"));
    AppSettings::saveToUserDefaultsForKeyIngeterValue(m_oldKey, 6);
    EXPECT_EQ(AppSettings::getFromUserDefaultsInteger(m_oldKey), 6);
    m_store->setObject(QVariant(), m_oldKey);
    EXPECT_EQ(m_store->integerForKey(m_oldKey), 7);
    EXPECT_FALSE(m_store->getObject(m_oldKey, AppSettings::AppBundleId()).isValid());
}

TEST_F(Settings, ReadHandMadeValues)
{
    const QString yes = QStringLiteral("YES");
    const struct {
        QString key;
        QVariant stored;
        std::function<QVariant()> read;
        QVariant expected;
    } cases[] = {
        {kFullScreenHotKey, {}, AppSettings::fullScreenShotHotKey, QStringLiteral("cmd 2")},
        {kFullScreenHotKey, QStringLiteral("CMD 5"), AppSettings::fullScreenShotHotKey,
            QStringLiteral("cmd 5")},
        {kFullScreenHotKey, QString(), AppSettings::fullScreenShotHotKey, QString()},
        {kFullScreenHotKey, QVariantList{1}, AppSettings::fullScreenShotHotKey, QStringLiteral("cmd 2")},
        {kScreenshotType, QStringLiteral(".JPG"), AppSettings::screenshotType, QStringLiteral(".jpg")},
        {kImageQuality, 4, AppSettings::imageQualityUserNeed, 8},
        {kImageQuality, QStringLiteral("16"), AppSettings::imageQualityUserNeed, 16},
        {kOpenLink, false, AppSettings::IsOpenScreenshotLinkAfterUpload, false},
        {kMosaicMode, 0.5, AppSettings::getMosicModel, false},
        {kKeepLastCapture, {}, AppSettings::isLastCaptureKept, true},
        {kKeepLastCapture, false, AppSettings::isLastCaptureKept, false},
        {kAutoLaunch, yes, AppSettings::isNeedAppStartWhenComputerPowerOn, true},
        {kClientLanguage, 3, AppSettings::ClientLanguage, QStringLiteral("English")},
        {kLanguageMenu, QByteArray("junk"), AppSettings::getLangMenu, QStringList()},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.key.toStdString());
        m_store->setObject(c.stored, c.key);
        EXPECT_EQ(c.read(), c.expected);
    }
}

TEST_F(Settings, StoreUnderTheirKeys)
{
    AppSettings::setScreenshotType(QStringLiteral(".TIFF"));
    AppSettings::setLangMenu({QStringLiteral("English"), QStringLiteral("Greek")});
    const ScreenInfo screen(QStringLiteral("DP-1"), {-5, 0.25, 1920, 1080}, 77, 1.25);
    AppSettings::setCurrentScreenInfo(screen);
    AppSettings::setFistScreenInfo(screen);
    EXPECT_EQ(m_store->objectForKey(kScreenshotType), QStringLiteral(".tiff"));
    EXPECT_EQ(m_store->objectForKey(kLanguageMenu).typeId(), QMetaType::QByteArray);
    EXPECT_EQ(AppSettings::getLangMenu(), (QStringList{QStringLiteral("English"), QStringLiteral("Greek")}));
    EXPECT_EQ(AppSettings::getCurrentScreenInfo(), screen);
    AppSettings::setCurrentScreenInfo(std::nullopt);
    EXPECT_EQ(AppSettings::getCurrentScreenInfo(), std::nullopt);
    EXPECT_EQ(AppSettings::getFistScreenInfo(), screen);
}

TEST_F(Settings, KeepArraysArchived)
{
    const QString key = QStringLiteral("array");
    const QVariantList fallback{qint64(1)};
    EXPECT_EQ(ZRUserDefaultKit::getFromUserDefaultsArray(key, fallback), fallback);
    ZRUserDefaultKit::saveToUserDefaultsForKeyArrayValue(key, {});
    EXPECT_EQ(ZRUserDefaultKit::getFromUserDefaultsArray(key, fallback), QVariantList());
    ZRUserDefaultKit::saveToUserDefaultsForKeyObjectValue(key, QByteArray());
    EXPECT_EQ(ZRUserDefaultKit::getFromUserDefaultsArray(key, fallback), fallback);
}

TEST_F(Settings, MakeAndRememberTheDefaultSaveFolderOnce)
{
    qputenv("HOME", QFile::encodeName(m_folder.path()));
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_folder.path()));
    const QString folder = AppSettings::defaultChooseScreenshotSavePath();
    EXPECT_EQ(folder, m_folder.in(QStringLiteral("Pictures/Lumora Mac Screenshot")));
    m_folder.put(m_folder.in(QStringLiteral("Pictures")), "a file in the way");
    EXPECT_EQ(AppSettings::choosedScreenshotSavePath(), folder);
    EXPECT_FALSE(m_store->objectForKey(kSavePath).isValid()) << "not made, not remembered";
    QFile::remove(m_folder.in(QStringLiteral("Pictures")));
    EXPECT_EQ(AppSettings::choosedScreenshotSavePath(), folder);
    EXPECT_TRUE(QFileInfo(folder).isDir());
    EXPECT_EQ(m_store->objectForKey(kSavePath), folder);
    m_store->setObject(QVariant(), kSavePath);
    EXPECT_EQ(AppSettings::choosedScreenshotSavePath(), folder);
    EXPECT_FALSE(m_store->objectForKey(kSavePath).isValid()) << "it stood already";
    AppSettings::setScreenshotSavePath(QStringLiteral("/chosen"));
    const QRegularExpression expected(
        QStringLiteral("^/chosen/Screenshot \\d{4}-\\d\\d-\\d\\d_\\d\\d-\\d\\d-\\d\\d-\\d{3}\\.png$"));
    EXPECT_TRUE(expected.match(AppSettings::screenshotSavePath()).hasMatch());
    AppSettings::checkDefaultPicturesSavePath();
    EXPECT_EQ(m_store->objectForKey(kSavePath), QStringLiteral("/chosen"));
    ASSERT_TRUE(QDir().rmdir(folder));
    AppSettings::checkDefaultPicturesSavePath();
    EXPECT_EQ(m_store->objectForKey(kSavePath), folder) << "made anew, it is the save folder again";
}

TEST_F(Settings, GiveTheApplicationTheLinksThatAreConfigured)
{
    m_store->registerDefaults({{kForumLink, QStringLiteral("https://forum")}, {kFAQLink, QString()}});
    AppSettings::saveToUserDefaultsForKeyObjectValue(kSupportLink, QStringLiteral(" https://help\n"));
    EXPECT_EQ(AppSettings::getCommAppInfo().forumURL, QStringLiteral("https://forum"));
    EXPECT_EQ(AppSettings::getCommAppInfo().supportURL, QStringLiteral("https://help"));
    EXPECT_EQ(AppSettings::onlineHelpURL(), QStringLiteral("https://help"));
    EXPECT_EQ(AppSettings::FAQUrl(), QString());
}

TEST_F(Settings, RegisterTheDefaultsFileAndSurviveItsAbsence)
{
    const QString file = m_folder.in(QStringLiteral("defaults"));
    AppSettings::initSettingInNeed(file);
    EXPECT_FALSE(AppSettings::isNeedShowStartWindowAgain());
    for (const QByteArray& contents :
        {PropertyList::xml(QVariantMap{{kShowStartWindow, true}}), QByteArray("junk")}) {
        SettingsFolder::put(file, contents);
        AppSettings::initSettingInNeed(file);
        EXPECT_TRUE(AppSettings::isNeedShowStartWindowAgain());
    }
}

TEST_F(Settings, AreHarmlessWithoutAStore)
{
    UserDefaults::setStandardUserDefaults(nullptr);
    AppSettings::setUseWindowRecognize(true);
    ZRUserDefaultKit::saveToUserDefaultsForKeyBOOLValue(kWindowRecognize, true);
    EXPECT_FALSE(AppSettings::canUseWindowRecognize());
    EXPECT_EQ(AppSettings::regionScreenShotHotKey(), QStringLiteral("cmd 1"));
}

TEST(HotKeyStrings, SplitIntoTheirKeyAndModifierFlags)
{
    const struct {
        const char* text;
        const char* key;
        quint32 flags;
    } cases[] = {
        {"cmd shift 3", "3", 0x100000 | 0x20000},
        {"ctrl alt f1", "f1", 0x40000 | 0x80000},
        {"cmd", "cmd", 0},
        {"Cmd 3", "3", 0},
        {"cmd cmd 3", "3", 0x100000},
        {"", "", 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(AppSettings::getKeyValueOfShortcut(QLatin1String(c.text)), QLatin1String(c.key));
        EXPECT_EQ(AppSettings::getModifiterFlagsValueOfShortcut(QLatin1String(c.text)), c.flags);
    }
}

TEST(LanguageCodes, NameALanguageOrNothing)
{
    const struct {
        const char *code, *name;
    } cases[] = {{"JP", "Japanese"}, {"ja", "Japanese"}, {"zh", "ChineseSimplified"}, {"nl", "Dutch"},
        {"gr", "Greek"}, {"hk,zh", ""}, {"xx", ""}, {"", ""}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.code);
        EXPECT_EQ(AppSettings::GetLangNameFromCode(QLatin1String(c.code)), QLatin1String(c.name));
    }
}

TEST(ActiveApplicationMemory, IsRestoredOnceAndOnlyWhenThereIsOne)
{
    FakeWorkspace workspace;
    workspace.active = {};
    AppSettings::install(&workspace, nullptr);
    AppSettings::updateLastRunningAndActiveApp();
    AppSettings::restoreLastRunningAndActiveApp();
    EXPECT_TRUE(workspace.activated.empty());
    workspace.active = {.window = 4};
    AppSettings::updateLastRunningAndActiveApp();
    workspace.active = {.window = 9};
    AppSettings::restoreLastRunningAndActiveApp();
    AppSettings::restoreLastRunningAndActiveApp();
    AppSettings::install(nullptr, nullptr);
    ASSERT_EQ(workspace.activated.size(), 1U);
    EXPECT_EQ(workspace.activated[0].window, 4U);
}

TEST(PixelReader, ReadsTheNearestPixelFromTheTopAndNothingOutside)
{
    QImage image(4, 3, QImage::Format_RGB32);
    image.fill(Qt::black);
    image.setPixel(2, 1, qRgb(50, 166, 255));
    const struct {
        QPointF at;
        std::optional<QColor> expected;
    } cases[] = {
        {{2, 1}, QColor(50, 166, 255)},
        {{1.5, 0.5}, QColor(50, 166, 255)},
        {{-0.4, 2}, QColor(Qt::black)},
        {{3.5, 1}, std::nullopt},
        {{-1, 0}, std::nullopt},
        {{0, 1e30}, std::nullopt},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.at.x());
        EXPECT_EQ(AppSettings::getPixelColorAtLocation(c.at, image), c.expected);
    }
    QImage clear(1, 1, QImage::Format_ARGB32);
    clear.fill(qRgba(255, 0, 0, 51));
    EXPECT_EQ(AppSettings::getPixelColorAtLocation({0, 0}, clear), QColor(51, 0, 0, 51));
    EXPECT_EQ(AppSettings::ToHex(5) + AppSettings::ToHex(166), QStringLiteral("05a6"));
}
