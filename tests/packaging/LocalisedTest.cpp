#include "packaging/linux/Localised.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <set>

namespace {

const QString kLanguages = QStringLiteral(SOURCE_FOLDER "/resources/languages");

Translation translation(const char* locale, const char* name)
{
    return {QLatin1String(locale), [text = QString::fromUtf8(name)](
                                       QStringView key) { return key == u"Group:Name" ? text : QString(); }};
}

}

TEST(Localised, RepeatsALineWithAMarkerInEachLanguage)
{
    const std::vector<Translation> translations{translation("", "Cut & save"), translation("de", "Schnitt"),
        translation("fr", "Cut & save"), translation("pt_BR", ""), translation("zh_TW", "<\u622a>")};
    struct Case {
        const char* text;
        const char* expected;
    };
    const Case cases[] = {
        {"Exec=it\n", "Exec=it\n"},
        {"[A]\nName=[#Group:Name#]\nB=c\n",
            "[A]\nName=Cut & save\nName[de]=Schnitt\nName[zh_TW]=<\u622a>\nB=c\n"},
        {"  <name>[#Group:Name#]</name>\n", "  <name>Cut &amp; save</name>\n"
                                            "  <name xml:lang=\"de\">Schnitt</name>\n"
                                            "  <name xml:lang=\"zh-TW\">&lt;\u622a&gt;</name>\n"},
        {"Name=[#Group:Other#]\n", ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(localised(QString::fromUtf8(c.text), translations).toStdString(), c.expected);
    }
}

TEST(Localised, SpeaksEveryLanguageThatIsShipped)
{
    std::set<QString> summaries;
    for (const Translation& translation : translationsIn(kLanguages))
        summaries.insert(translation.text(u"Lumora:Desktop:Summary"));
    EXPECT_FALSE(summaries.contains(QString()));
    EXPECT_EQ(summaries.size(), QDir(kLanguages).entryList({QStringLiteral("*.xml")}).size());
    EXPECT_TRUE(translationsIn(QStringLiteral("/none")).empty());
}

TEST(Localised, HasATextForEveryMarker)
{
    for (const char* name : {"com.Lumora.Screenshot.desktop.in", "com.lumora.screenshot.metainfo.xml.in"}) {
        SCOPED_TRACE(name);
        QFile file(QStringLiteral(SOURCE_FOLDER "/packaging/linux/") + QLatin1String(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(file.readAll());
        const QRegularExpression marker(QStringLiteral(R"(\[#([\w:]+)#\])"));
        EXPECT_TRUE(marker.match(text).hasMatch());
        for (const QRegularExpressionMatch& found : marker.globalMatch(text)) {
            for (const Translation& translation : translationsIn(kLanguages))
                EXPECT_FALSE(translation.text(found.captured(1)).isEmpty())
                    << qPrintable(found.captured(1) + u' ' + translation.locale);
        }
    }
}
