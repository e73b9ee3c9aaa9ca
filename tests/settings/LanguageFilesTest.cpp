#include "settings/XMLParser.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

// The texts that the program ships, held against each other and against the code.
namespace {

const QString kSources = QStringLiteral(SOURCE_FOLDER);
const QString kEnglish = QStringLiteral("English");

struct Text {
    QString key; // "Group:Key"
    QString text;
};
using Texts = std::vector<Text>;

QByteArray contents(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

QString pathOf(const QString& language)
{
    return kSources + QStringLiteral("/resources/languages/%1.xml").arg(language);
}

QStringList languages()
{
    QStringList names = QDir(kSources + QStringLiteral("/resources/languages")).entryList(QDir::Files);
    return names.replaceInStrings(QStringLiteral(".xml"), QString());
}

// As any XML reader has them, in the file's order.
Texts textsOf(const QString& language)
{
    Texts texts;
    QStringList path;
    QString text;
    bool isText = false; // no element has ended since the last one began
    QXmlStreamReader reader(contents(pathOf(language)));
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement()) {
            path.append(reader.name().toString());
            text.clear();
        } else if (reader.isCharacters()) {
            text.append(reader.text());
        } else if (reader.isEndElement()) {
            if (isText)
                texts.push_back({path.mid(1).join(u':'), text});
            path.removeLast();
        }
        isText = reader.isStartElement() || (isText && reader.isCharacters());
    }
    EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
    return texts;
}

std::set<std::string> matches(const QString& text, const QString& pattern)
{
    std::set<std::string> found;
    for (const QRegularExpressionMatch& match : QRegularExpression(pattern).globalMatch(text))
        found.insert(match.captured(match.lastCapturedIndex()).toStdString());
    return found;
}

// A line for each text: its key and the markers that the program fills in.
std::string shapeOf(const Texts& texts)
{
    std::string shape;
    for (const Text& text : texts) {
        shape += text.key.toStdString();
        for (const std::string& marker : matches(text.text, QStringLiteral("\\[#\\w+#\\]")))
            shape += ' ' + marker;
        shape += '\n';
    }
    return shape;
}

std::set<std::string> groupsOf(const Texts& texts)
{
    std::set<std::string> groups;
    for (const Text& text : texts)
        groups.insert(text.key.section(u':', 0, 0).toStdString());
    return groups;
}

// Each literal of the folder's sources that names a text of one of the groups, or its beginning, up to a ":".
std::set<std::string> keysAskedIn(const QString& folder, const std::set<std::string>& groups)
{
    std::set<std::string> keys;
    QDirIterator files(folder, {QStringLiteral("*.h"), QStringLiteral("*.cpp"), QStringLiteral("*.mm")},
        QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext())
        for (const std::string& key :
            matches(QString::fromUtf8(contents(files.next())), QStringLiteral("\"([A-Za-z]+:[A-Za-z:]*)\"")))
            if (groups.contains(key.substr(0, key.find(':'))))
                keys.insert(key);
    return keys;
}

// A beginning is in where a key goes on from it.
bool isIn(const std::set<std::string>& keys, const std::string& key)
{
    const auto nearest = keys.lower_bound(key);
    return nearest != keys.end() && (key.ends_with(':') ? nearest->starts_with(key) : *nearest == key);
}

// Stands on a button, in a narrow item or in a tool's tip.
bool mustBeShort(const QString& key)
{
    return matches(key, QStringLiteral("^(Button|ImageEditor|PaintEdit|Lumora:Editor):")).size() == 1;
}

}

TEST(LanguageFiles, HoldTheSameKeysAndMarkersInTheSameOrder)
{
    const std::string english = shapeOf(textsOf(kEnglish));
    for (const QString& language : languages()) {
        SCOPED_TRACE(language.toStdString());
        EXPECT_EQ(shapeOf(textsOf(language)), english);
    }
}

TEST(LanguageFiles, AreAnsweredWhole)
{
    std::set<QString> names;
    for (const QString& language : languages()) {
        SCOPED_TRACE(language.toStdString());
        XMLParser parser;
        XMLError error;
        ASSERT_TRUE(parser.parseWithFilePath(pathOf(language), &error)) << error.message.toStdString();
        names.insert(parser.getValueForKeywords(u"LangName"));
        for (const Text& text : textsOf(language)) {
            EXPECT_FALSE(text.text.isEmpty()) << text.key.toStdString();
            EXPECT_EQ(parser.getValueForKeywords(text.key), text.text) << text.key.toStdString();
        }
        EXPECT_FALSE(parser.getValueForKeywords(u"Upload:UploadCompleted")
                         .contains(parser.getValueForKeywords(u"Upload:LearnMore")))
            << "the link is laid over its own words within that sentence";
    }
    EXPECT_FALSE(names.contains(QString()));
    EXPECT_EQ(names.size(), languages().size()) << "a name stands twice";
}

TEST(LanguageFiles, HaveEveryTextThatTheCodeAsksFor)
{
    const Texts texts = textsOf(kEnglish);
    std::set<std::string> keys;
    for (const Text& text : texts)
        keys.insert(text.key.toStdString());
    size_t asked = 0;
    for (const char* folder :
        {"platform", "commonutils", "settings", "customui", "output", "editor", "capture", "app"})
        for (const std::string& key :
            keysAskedIn(kSources + QLatin1Char('/') + QLatin1String(folder), groupsOf(texts))) {
            ++asked;
            EXPECT_TRUE(isIn(keys, key)) << folder << " asks for " << key;
        }
    EXPECT_GT(asked, 0u);
}

TEST(LanguageFiles, KeepShortWhereThereIsLittleRoom)
{
    const Texts english = textsOf(kEnglish);
    for (const QString& language : languages()) {
        SCOPED_TRACE(language.toStdString());
        const Texts texts = textsOf(language);
        ASSERT_EQ(texts.size(), english.size());
        for (size_t i = 0; i < texts.size(); ++i) {
            if (mustBeShort(texts[i].key)) {
                EXPECT_LE(texts[i].text.size(), std::max<qsizetype>(24, 2 * english[i].text.size()))
                    << texts[i].key.toStdString();
            }
        }
    }
}
