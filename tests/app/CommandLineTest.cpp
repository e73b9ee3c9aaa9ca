#include "app/CommandLine.h"
#include "app/ResidentLink.h"

#include <gtest/gtest.h>

TEST(CommandLine, KnowsItsVerbsAndRefusesTheRest)
{
    using Kind = CommandLine::Kind;
    struct Case {
        QStringList arguments;
        Kind kind;
    };
    const Case cases[] = {
        {{}, Kind::Start},
        {{QStringLiteral("region")}, Kind::Verb},
        {{QStringLiteral("menu")}, Kind::Verb},
        {{QStringLiteral("reopen")}, Kind::Verb},
        {{QStringLiteral("measure")}, Kind::Verb},
        {{QStringLiteral("pick")}, Kind::Verb},
        {{QStringLiteral("quit")}, Kind::Verb},
        {{QStringLiteral("--help")}, Kind::Help},
        {{QStringLiteral("--version")}, Kind::Version},
        {{QStringLiteral("start")}, Kind::Wrong},
        {{QString()}, Kind::Wrong},
        {{QStringLiteral("region"), QStringLiteral("now")}, Kind::Wrong},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.arguments.join(QLatin1Char(' ')).toStdString());
        EXPECT_EQ(CommandLine::parsed(c.arguments).kind, c.kind);
    }
}

TEST(ResidentLink, CarriesAReplyInOneLine)
{
    const Reply reply{5, QStringLiteral("/a path/with\nbreaks \u00e9.png\n"), QStringLiteral("\"words\"\n")};
    const QByteArray line = ResidentLink::encoded(reply);
    EXPECT_EQ(line.count('\n'), 1);
    const auto back = ResidentLink::decoded(line);
    ASSERT_TRUE(back);
    EXPECT_EQ(back->exitCode, reply.exitCode);
    EXPECT_EQ(back->out, reply.out);
    EXPECT_EQ(back->err, reply.err);
    EXPECT_FALSE(ResidentLink::decoded("{}\n"));
    EXPECT_FALSE(ResidentLink::decoded("gone"));
}
