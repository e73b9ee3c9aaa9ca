#include "settings/XMLParser.h"

#include "tests/settings/SettingsFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace {

constexpr const char* kFile = R"(<?xml version="1.0" encoding="UTF-8"?>
<!-- texts of a test -->
<Texts LangName="Sample" Comm="an attribute">
  <!-- shown everywhere -->
  <Comm>
    <!-- a comment before the first child -->
    <About>About &amp; more</About>
    <Empty></Empty>
    <Comm>inner</Comm>
    <Lost>two
lines</Lost>
    <After>after</After>
    <About>the second</About>
  </Comm>
  <Options>
    <General note="once">
      <Title>General</Title>
      <AutoStart note="twice"><![CDATA[<start>]]></AutoStart>
    </General>
    <Title>Options</Title>
  </Options>
  <Line><Inner>x</Inner>
  </Line>
  <LangName>an element</LangName>
</Texts>
)";

XMLParser parsed(const QByteArray& bytes)
{
    XMLParser parser;
    XMLError error;
    EXPECT_TRUE(parser.parse(bytes, &error)) << error.message.toStdString();
    return parser;
}

QByteArray nested(int levels, const char* between)
{
    return (QByteArray("<a>") + between).repeated(levels) + QByteArray("</a>").repeated(levels);
}

QByteArray doubledEntities(int levels)
{
    QByteArray declarations = "<!ENTITY e0 \"laugh\">";
    for (int i = 1; i <= levels; ++i) {
        const QByteArray last = "&e" + QByteArray::number(i - 1) + ';';
        declarations += "<!ENTITY e" + QByteArray::number(i) + " \"" + last + last + "\">";
    }
    return "<!DOCTYPE a [" + declarations + "]><a>\n&e" + QByteArray::number(levels) + ";</a>";
}

QByteArray utf16(const QString& text)
{
    return QByteArray(reinterpret_cast<const char*>(text.utf16()), text.size() * 2);
}

}

TEST(XMLParser, LooksUpByKeywords)
{
    const XMLParser parser = parsed(kFile);
    const struct {
        const char16_t* keywords;
        const char16_t* expected; // null for none
    } cases[] = {
        {u"Comm:About", u"About & more"},
        {u"Comm:Empty", u""},
        {u"Comm:After", u"after"},
        {u"Comm:Lost", nullptr},
        {u"Comm:Missing", nullptr},
        {u"Texts:Comm:About", nullptr},
        {u"Options:Title", u"Options"},
        {u"Options:General:Title", u"General"},
        {u"Options:General:AutoStart", u"<start>"},
        {u"Options:General:Title:Title", u"General"},
        {u"Comm:Comm", nullptr}, // the group, met first, bears the key
        {u"Line:Inner", nullptr},
        {u"LangName", u"Sample"},
        {u"Comm", u"an attribute"},
        {u"note", u"twice"},
        {u"Texts", nullptr},
        {u":", nullptr},
        {u"Comm::About", nullptr},
        {u"comm:about", nullptr},
        {u"a:b:c:d:e:f:g:h:i:j:k", nullptr},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(QString::fromUtf16(c.keywords).toStdString());
        const QString text = parser.getValueForKeywords(c.keywords);
        EXPECT_EQ(text.isNull(), c.expected == nullptr);
        EXPECT_EQ(text, QString::fromUtf16(c.expected ? c.expected : u""));
    }
}

TEST(XMLParser, WalksSuperKeysThatLackTheKey)
{
    const XMLParser parser = parsed(kFile);
    const QStringView way[] = {u"Options", u"General"};
    EXPECT_EQ(parser.getValueForkey(u"Title", way), QStringLiteral("General"));
    EXPECT_EQ(parser.getValueForkey(u"General", way), QString());
    EXPECT_EQ(parser.getValueForkey(u"LangName", {}), QStringLiteral("an element"));
    EXPECT_EQ(parser.getValuesForKey(u"Title"), QStringList(QStringLiteral("General")));
    EXPECT_EQ(XMLParser().getValuesForKey(u"About"), QStringList());
}

TEST(XMLParser, KeepsAGroupOpenThatEndsOnItsLastChildsLine)
{
    const XMLParser parser = parsed("<r>\n<A>\n<x>1</x></A>\n<B>\n<y>2</y>\n</B>\n</r>");
    EXPECT_EQ(parser.getValueForKeywords(u"A:x"), QStringLiteral("1"));
    const QStringView way[] = {u"A"};
    EXPECT_EQ(parser.getValueForkey(u"r", way), QString());
    EXPECT_EQ(parser.getValueForKeywords(u"B:y"), QString());
    EXPECT_EQ(parser.getValueForKeywords(u"A:B:y"), QStringLiteral("2"));
    const XMLParser below = parsed("<r>\n<G>\n<A>\n<x>1</x></A>\n</G>\n<B>\n<y>2</y>\n</B>\n</r>");
    EXPECT_EQ(below.getValueForKeywords(u"G:A:B:y"), QStringLiteral("2")) << "open beyond its parent's end";
    const XMLParser taken = parsed("<r>\n<a r=\"1\">x</a>\n<b>y</b>\n</r>");
    EXPECT_EQ(taken.getValueForKeywords(u"r"), QStringLiteral("1")) << "an attribute took the root's name";
    EXPECT_EQ(taken.getValueForKeywords(u"b:b"), QString());
}

TEST(XMLParser, RefusesWhatIsNotAFileOfBoundedSizeInUtf8)
{
    QByteArray manyAttributes;
    for (int i = 0; i < 2'000; ++i)
        manyAttributes += " a" + QByteArray::number(i) + "=''";
    const struct {
        const char* name;
        QByteArray bytes;
        bool isAccepted;
    } cases[] = {
        {"whole", kFile, true},
        {"empty", "", false},
        {"cut short", QByteArray(kFile).chopped(20), false},
        {"a wrong end", "<a>\n</b>", false},
        {"an unknown entity", "<a>\n<b>&copy;</b>\n</a>", false},
        {"an undeclared prefix", "<a>\n<n:b>x</n:b>\n</a>", true},
        {"a byte order mark", QByteArray("\xEF\xBB\xBF") + kFile, true},
        {"not UTF-8", "<a>\n<b>\xE9t\xE9</b>\n</a>", false},
        {"Latin 1", "<?xml version='1.0' encoding='ISO-8859-1'?><a>\n<b>\xE9</b>\n</a>", false},
        {"UTF-16", utf16(QString(QChar(0xFEFF)) + QString::fromUtf8(kFile)), false},
        {"a document type", "<!DOCTYPE a><a>\n</a>", false},
        {"entities in entities", doubledEntities(40), false},
        {"at the depth", nested(XMLParser::kDeepest, "\n"), true},
        {"below the depth", nested(XMLParser::kDeepest + 1, "\n"), false},
        {"deep on one line", nested(XMLParser::kDeepest + 1, ""), false},
        {"groups left open", "<a>\n" + QByteArray("<b>\n<c/></b>").repeated(100) + "\n</a>", false},
        {"very many attributes", "<a" + manyAttributes + ">\n</a>", false},
        {"the longest text", "<a>\n<b>" + QByteArray(XMLParser::kLongestPiece - 3, 'x') + "</b>\n</a>", true},
        {"too long a text", "<a>\n<b>" + QByteArray(XMLParser::kLongestPiece - 2, 'x') + "</b>\n</a>", false},
        {"too large", "<a>\n" + QByteArray("<b/>\n").repeated(XMLParser::kLargest / 5) + "</a>", false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        XMLParser parser;
        XMLError error;
        EXPECT_EQ(parser.parse(c.bytes, &error), c.isAccepted) << error.message.toStdString();
        EXPECT_EQ(error.message.isEmpty(), c.isAccepted);
        if (!c.isAccepted) {
            EXPECT_EQ(parser.getValueForkey(u"LangName"), QString()) << "nothing remains";
        }
    }
}

TEST(XMLParser, NamesTheErrorsOfFiles)
{
    const SettingsFolder folder;
    const QString good = folder.in(QStringLiteral("My.Own.xml"));
    SettingsFolder::put(good, kFile);
    const QString large = folder.in(QStringLiteral("Large.xml"));
    ASSERT_TRUE(QFile(large).open(QIODevice::WriteOnly) && QFile::resize(large, 50 << 20));
    const QString pipe = folder.in(QStringLiteral("Pipe.xml"));
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    const struct {
        QString path;
        QLatin1String domain;
        int code;
    } cases[] = {
        {{}, XMLError::kUrlDomain, -1100},
        {folder.in(QStringLiteral("Missing.xml")), XMLError::kXmlDomain, -1},
        {folder.path(), XMLError::kXmlDomain, -1},
        {pipe, XMLError::kXmlDomain, -1},
        {large, XMLError::kXmlDomain, XMLError::kOutOfBounds},
    };
    XMLParser parser;
    XMLError error;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.path.toStdString());
        EXPECT_FALSE(parser.parseWithFilePath(c.path, &error));
        EXPECT_EQ(error.domain, c.domain);
        EXPECT_EQ(error.code, c.code);
    }
    ASSERT_TRUE(parser.parseWithFilePath(good, &error));
    EXPECT_EQ(parser.identifiter(), QStringLiteral("My.Own"));
}
