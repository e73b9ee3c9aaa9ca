#include "settings/LanguageCatalogue.h"

#include "settings/AppSettings.h"
#include "settings/LanguageCodes.h"
#include "settings/SettingsKeys.h"
#include "settings/XMLParser.h"
#include "settings/ZRParserManager.h"
#include "tests/settings/SettingsFolder.h"

#include <QLocale>

#include <gtest/gtest.h>

namespace {

class LanguageCatalogueTest : public testing::Test {
protected:
    LanguageCatalogueTest()
        : m_store(m_folder.path(), AppSettings::AppBundleId(), AppSettings::AppOldBundleId())
    {
        UserDefaults::setStandardUserDefaults(&m_store);
        for (const QString& folder : {m_own, m_shipped, m_own + QStringLiteral("/sub")})
            QDir().mkpath(folder);
    }
    ~LanguageCatalogueTest() override { ZRParserManager::clearCache(); }

    static void put(const QString& folder, const char* file, const char* name, const char* about)
    {
        SettingsFolder::put(folder + QLatin1Char('/') + QLatin1String(file),
            QByteArray("<r LangName='") + name + "'>\n<Comm>\n<About>" + about + "</About>\n</Comm>\n</r>");
    }
    static QStringList listed()
    {
        QStringList names;
        for (const LanguageCatalogue::Language& language : LanguageCatalogue::languages())
            names.append(language.id + QLatin1Char('=') + language.name);
        return names;
    }
    void putThree() const
    {
        put(m_shipped, "German.xml", "Deutsch", "Über");
        put(m_shipped, "English.xml", "English", "About");
        put(m_shipped, "Norwegian.xml", "Norsk", "Om");
    }

    SettingsFolder m_folder;
    const QString m_own = m_folder.in(QStringLiteral("own"));
    const QString m_shipped = m_folder.in(QStringLiteral("shipped"));
    const QStringList m_folders{m_own, m_shipped, m_folder.in(QStringLiteral("missing"))};
    UserDefaults m_store;
};

}

TEST_F(LanguageCatalogueTest, ListsTheFilesThatHaveAName)
{
    putThree();
    put(m_shipped, "Link.xml", "a link", "");
    put(m_shipped, "LINK.XML", "a link", "");
    put(m_shipped, "Nameless.xml", "", "");
    put(m_shipped, "notes.txt", "a note", "");
    put(m_own, "Greek.XML", "Ελληνικά", "Σχετικά");
    put(m_own, "German.xml", "Mein Deutsch", "Mein Über");
    put(m_own, "sub/Danish.xml", "Dansk", "Om");
    put(m_own, "English.xml", "", "without a name");
    SettingsFolder::put(m_own + QStringLiteral("/Norwegian.xml"), "<broken");
    testing::internal::CaptureStderr();
    LanguageCatalogue::updateLangMenu(m_folders);
    const std::string log = testing::internal::GetCapturedStderr();

    const QStringList ids{QStringLiteral("English"), QStringLiteral("German"), QStringLiteral("Greek"),
        QStringLiteral("Norwegian")};
    EXPECT_EQ(listed(), (QStringList{QStringLiteral("English=English"), QStringLiteral("German=Mein Deutsch"),
                            QStringLiteral("Greek=Ελληνικά"), QStringLiteral("Norwegian=Norsk")}));
    EXPECT_EQ(AppSettings::getLangMenu(), ids);
    EXPECT_EQ(ZRParserManager::getValueForKeywords(u"Comm:About", u"English"), QStringLiteral("About"));
    for (const char* left :
        {"own/English.xml is left out", "own/Norwegian.xml is left out", "shipped/Nameless.xml is left out"})
        EXPECT_NE(log.find(left), std::string::npos) << left;
    EXPECT_EQ(std::ranges::count(log, '\n'), 3);
}

TEST_F(LanguageCatalogueTest, SettlesTheLanguage)
{
    const struct {
        QVariant chosen;
        QStringList desktop;
        QString expected;
    } cases[] = {
        {{}, {QStringLiteral("de-AT"), QStringLiteral("en")}, QStringLiteral("German")},
        {{}, {QStringLiteral("fr-FR"), QStringLiteral("nb-NO")}, QStringLiteral("Norwegian")},
        {{}, {QStringLiteral("fr-FR")}, QStringLiteral("English")},
        {QStringLiteral("Norwegian"), {QStringLiteral("de-AT")}, QStringLiteral("Norwegian")},
        {QStringLiteral("Klingon"), {QStringLiteral("de-AT")}, QStringLiteral("German")},
        {3, {}, QStringLiteral("English")},
    };
    putThree();
    LanguageCatalogue::updateLangMenu(m_folders);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.expected.toStdString());
        m_store.setObject(c.chosen, SettingsKeys::kClientLanguage);
        LanguageCatalogue::settleLanguage(c.desktop);
        EXPECT_EQ(AppSettings::ClientLanguage(), c.expected);
    }
    LanguageCatalogue::updateLangMenu({});
    m_store.setObject({}, SettingsKeys::kClientLanguage);
    LanguageCatalogue::settleLanguage({});
    EXPECT_FALSE(m_store.objectForKey(SettingsKeys::kClientLanguage).isValid()) << "there is none to choose";
}

TEST_F(LanguageCatalogueTest, LogsAMissingTextOnce)
{
    putThree();
    LanguageCatalogue::updateLangMenu(m_folders);
    AppSettings::setClientLanguage(QStringLiteral("German"));
    EXPECT_EQ(AppSettings::getXMLValueForKeywords(u"Comm:About"), QStringLiteral("Über"));
    testing::internal::CaptureStderr();
    for (int i = 0; i < 3; ++i)
        EXPECT_TRUE(AppSettings::getXMLValueForKeywords(u"Comm:Nowhere").isNull());
    const std::string log = testing::internal::GetCapturedStderr();
    EXPECT_EQ(std::ranges::count(log, '\n'), 1);
    EXPECT_NE(log.find("Comm:Nowhere"), std::string::npos);
    AppSettings::setClientLanguage(QStringLiteral("Norwegian"));
    EXPECT_EQ(AppSettings::getXMLValueForKeywords(u"Comm:About"), QStringLiteral("Om"));
    AppSettings::setClientLanguage(QStringLiteral("Klingon"));
    EXPECT_TRUE(AppSettings::getXMLValueForKeywords(u"Comm:About").isNull());
}

TEST_F(LanguageCatalogueTest, KeepsTheFirstFileOfAName)
{
    put(m_own, "German.xml", "first", "1");
    put(m_shipped, "German.xml", "second", "2");
    XMLError error;
    for (const QString& folder : {m_own, m_shipped})
        EXPECT_TRUE(ZRParserManager::parseWithFilePath(folder + QStringLiteral("/German.xml"), &error));
    EXPECT_EQ(ZRParserManager::getValueForKey(u"LangName", u"German"), QStringLiteral("first"));
    EXPECT_EQ(ZRParserManager::getValuesForKey(u"About", u"German"), QStringList(QStringLiteral("1")));
    const QStringView way[] = {u"Comm"};
    EXPECT_EQ(ZRParserManager::getValueForkey(u"About", way, u"German"), QStringLiteral("1"));
    ZRParserManager::clearCache();
    EXPECT_FALSE(ZRParserManager::isExistWithParserIdentifier(u"German"));
    EXPECT_TRUE(ZRParserManager::getValueForKey(u"LangName", u"German").isNull());
}

TEST(LanguageCodes, NameTheLanguagesOfLocales)
{
    const std::pair<const char*, const char*> cases[] = {{"en_GB", "English"}, {"de", "German"},
        {"zh_CN", "ChineseSimplified"}, {"zh_TW", "ChineseTraditional"}, {"zh-Hant-HK", "ChineseTraditional"},
        {"zh-Hans-HK", "ChineseSimplified"}, {"pt_PT", "PortugueseBrazil"}, {"nb_NO", "Norwegian"},
        {"nn_NO", "Norwegian"}, {"nl_BE", "Dutch"}, {"cs_CZ", "Czech"}, {"da_DK", "Danish"},
        {"sv_FI", "Swedish"}, {"se_NO", ""}, {"el_GR", "Greek"}, {"C", ""}, {"uk_UA", ""}};
    for (const auto& [locale, expected] : cases) {
        SCOPED_TRACE(locale);
        EXPECT_EQ(languageNameOfLocale(QLocale(QLatin1String(locale))).toStdString(), expected);
    }
}
