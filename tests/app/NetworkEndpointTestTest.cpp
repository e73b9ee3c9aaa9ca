#include "app/NetworkEndpointTest.h"

#include "tests/fakes/ScriptedServer.h"

#include <QTest>

#include <gtest/gtest.h>

#include <optional>

namespace {

// Nothing when no answer comes.
std::optional<QString> failureOf(const QString& address)
{
    NetworkEndpointTest test;
    std::optional<QString> failure;
    test.ask(address, [&failure](const QString& reason) { failure = reason; });
    EXPECT_FALSE(failure); // not before the event loop
    return QTest::qWaitFor([&] { return failure.has_value(); }, 2000) ? failure : std::nullopt;
}

}

TEST(NetworkEndpointTest, TakesAnyAnswerOfAServerThatIsWhole)
{
    for (const auto& [status, isFine] : {std::pair{200, true}, {405, true}, {302, true}, {503, false}}) {
        SCOPED_TRACE(status);
        const ScriptedServer server(ScriptedServer::answer(status, {}));
        const auto failure = failureOf(server.endpoint().toString());
        ASSERT_TRUE(failure);
        EXPECT_EQ(failure->isEmpty(), isFine) << failure->toStdString();
    }
}

TEST(NetworkEndpointTest, SaysWhyNobodyAnswers)
{
    const QString closed = ScriptedServer({}).endpoint().toString();
    for (const QString& address :
        {closed, QString(), QStringLiteral("example"), QStringLiteral("file:///etc"),
            QStringLiteral("https://"), QStringLiteral("http://192.0.2.1/")}) {
        SCOPED_TRACE(address.toStdString());
        const auto failure = failureOf(address);
        ASSERT_TRUE(failure);
        EXPECT_FALSE(failure->isEmpty());
    }
}

TEST(NetworkEndpointTest, GivesUpAnOpenQuestionForTheNext)
{
    const ScriptedServer silent({}), server(ScriptedServer::answer(200, {}));
    NetworkEndpointTest test;
    QStringList answered;
    test.ask(silent.endpoint().toString(), [&](const QString&) { answered << QStringLiteral("first"); });
    QTest::qWait(50);
    test.ask(server.endpoint().toString(), [&](const QString&) { answered << QStringLiteral("second"); });
    EXPECT_TRUE(QTest::qWaitFor([&] { return !answered.isEmpty(); }, 2000));
    EXPECT_EQ(answered, QStringList{QStringLiteral("second")});
}
