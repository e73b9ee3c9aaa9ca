#include "app/CommandLine.h"
#include "app/ResidentLink.h"

#include <gtest/gtest.h>

TEST(CommandLine, KnowsItsVerbsAndTheirOptions)
{
    using Kind = CommandLine::Kind;
    struct Case {
        const char* arguments;
        Kind kind;
        VerbRequest request;
    };
    const QString output = QStringLiteral("a.JPG");
    const Case cases[] = {
        {"", Kind::Start, {}},
        {"region", Kind::Verb, {.verb = QStringLiteral("region")}},
        {"window", Kind::Verb, {.verb = QStringLiteral("window")}},
        {"doctor --json", Kind::Doctor, {.verb = QStringLiteral("doctor"), .isJson = true}},
        {"--help", Kind::Help, {}},
        {"full --help", Kind::Help, {}},
        {"--version", Kind::Version, {}},
        {"full --display 2 --json", Kind::Verb,
            {.verb = QStringLiteral("full"), .display = QStringLiteral("2"), .isJson = true}},
        {"full --display=HDMI-1", Kind::Verb,
            {.verb = QStringLiteral("full"), .display = QStringLiteral("HDMI-1")}},
        {"region --last --clipboard", Kind::Verb,
            {.verb = QStringLiteral("region"), .isLast = true, .toClipboard = true}},
        {"region --delay 5 --geometry 10x20-0+5", Kind::Verb,
            {.verb = QStringLiteral("region"), .geometry = QStringLiteral("10x20-0+5"), .delay = 5}},
        {"window --output a.JPG", Kind::Verb, {.verb = QStringLiteral("window"), .output = output}},
        {"full --output -", Kind::Verb, {.verb = QStringLiteral("full"), .output = VerbRequest::kToCaller}},
        {"full --output shot", Kind::Verb,
            {.verb = QStringLiteral("full"), .output = QStringLiteral("shot")}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.arguments);
        const CommandLine line =
            CommandLine::parsed(QString::fromLatin1(c.arguments).split(QLatin1Char(' '), Qt::SkipEmptyParts));
        EXPECT_EQ(line.kind, c.kind) << line.problem.toStdString();
        EXPECT_EQ(line.request, c.request);
    }
}

TEST(CommandLine, SaysWhatIsWrong)
{
    struct Case {
        const char* arguments; // between bars
        const char* problem;   // a part of it
    };
    const Case cases[] = {
        {"start", "start"},
        {"", "verb"},
        {"region|now", "now"},
        {"--version|now", "verb"},
        {"region|--frob", "--frob"},
        {"full|--last", "means nothing with full"},
        {"region|--display|1", "means nothing with region"},
        {"window|--geometry|1x1+0+0", "means nothing with window"},
        {"quit|--json", "means nothing with quit"},
        {"pick|--delay|1", "means nothing with pick"},
        {"region|--geometry", "needs a value"},
        {"full|--output=", "needs a value"},
        {"region|--last=yes", "takes no value"},
        {"full|--delay|-1", "from 0 to 3600"},
        {"full|--delay|3601", "from 0 to 3600"},
        {"full|--delay|soon", "from 0 to 3600"},
        {"region|--geometry|10x10", "WxH+X+Y"},
        {"full|--output|a.txt", ".txt"},
        {"region|--last|--geometry|1x1+0+0", "two regions"},
        {"full|--clipboard|--output|a.png", "two places"},
        {"full|--json|--output|-", "stdout"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.arguments);
        const CommandLine line =
            CommandLine::parsed(QString::fromLatin1(c.arguments).split(QLatin1Char('|')));
        EXPECT_EQ(line.kind, CommandLine::Kind::Wrong);
        EXPECT_TRUE(line.problem.contains(QLatin1String(c.problem))) << line.problem.toStdString();
    }
}

TEST(ResidentLink, CarriesARequestAndAReplyInOneLineEach)
{
    const VerbRequest request{QStringLiteral("full"), QStringLiteral("2"), QStringLiteral("1x2+3+4"), true, 5,
        QStringLiteral("/a path/with\nbreaks \u00e9.png"), true, true};
    const QByteArray requestLine = ResidentLink::encoded(request);
    EXPECT_EQ(requestLine.count('\n'), 1);
    EXPECT_EQ(ResidentLink::decodedRequest(requestLine), request);
    EXPECT_FALSE(ResidentLink::decodedRequest("full\n"));

    const Reply reply{5, QStringLiteral("/a path\n"), QStringLiteral("\"words\"\n"), QByteArray("\n\0\n", 3)};
    const QByteArray line = ResidentLink::encoded(reply);
    EXPECT_EQ(line.count('\n'), 1);
    qint64 rawSize = 0;
    const auto back = ResidentLink::decoded(line, &rawSize);
    ASSERT_TRUE(back);
    EXPECT_EQ(back->exitCode, reply.exitCode);
    EXPECT_EQ(back->out, reply.out);
    EXPECT_EQ(back->err, reply.err);
    EXPECT_EQ(rawSize, reply.raw.size());
    EXPECT_FALSE(ResidentLink::decoded("{}\n", &rawSize));
    EXPECT_FALSE(ResidentLink::decoded("gone", &rawSize));
}
