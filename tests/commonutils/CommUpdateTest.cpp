#include "commonutils/CommUpdate.h"

#include "tests/fakes/ScriptedServer.h"

#include <QTest>

#include <gtest/gtest.h>

namespace {

using Kind = UpdateResult::Kind;

class CommUpdateTest : public testing::Test {
protected:
    CommUpdateTest()
    {
        m_update.onResult = [this](const UpdateResult& result) { results.push_back(result.kind); };
    }
    bool waitForResult()
    {
        return QTest::qWaitFor([this] { return !results.empty(); }, 5000);
    }

    int m_argc = 0;
    QCoreApplication m_application{m_argc, nullptr};
    CommUpdate m_update{QStringLiteral("1.2.0")};
    std::vector<Kind> results;
};

}

TEST(CommUpdate, ReadsBothFormsOfAnAnswer)
{
    struct Case {
        const char* answer;
        Kind kind;
        const char* version;
        const char* link;
    };
    const Case cases[] = {
        {"1.2.1\n", Kind::Available, "1.2.1", ""},
        {"1.2", Kind::UpToDate, "1.2", ""},
        {"1.10.0", Kind::Available, "1.10.0", ""},
        {R"({"version":"2.0.0","link":"https://example.org"})", Kind::Available, "2.0.0",
            "https://example.org"},
        {R"({"link":"https://example.org"})", Kind::Failed, "", ""},
        {"<html>404</html>", Kind::Failed, "", ""},
        {"3.0.0 <script>", Kind::Failed, "", ""},
        {"", Kind::Failed, "", ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.answer);
        const UpdateResult result = CommUpdate::resultOf(c.answer, QStringLiteral("1.2.0"));
        EXPECT_EQ(result.kind, c.kind);
        EXPECT_EQ(result.version, QString::fromLatin1(c.version));
        EXPECT_EQ(result.link, QString::fromLatin1(c.link));
    }
}

TEST_F(CommUpdateTest, TellsWhatTheAddressAnswers)
{
    const std::pair<ScriptedServer::Script, Kind> cases[] = {
        {ScriptedServer::answer(200, "1.3.0"), Kind::Available},
        {ScriptedServer::answer(200, "1.2.0"), Kind::UpToDate},
        {ScriptedServer::answer(200, "1.3.0" + QByteArray(100000, ' ')), Kind::Failed},
        {ScriptedServer::answer(404, "1.3.0"), Kind::Failed},
        {{"nonsense", {}, 0}, Kind::Failed},
    };
    for (const auto& [script, kind] : cases) {
        SCOPED_TRACE(script.answer.left(60).toStdString());
        const ScriptedServer server(script);
        results.clear();
        m_update.check(server.endpoint().toString());
        EXPECT_TRUE(waitForResult());
        EXPECT_EQ(results, std::vector{kind});
    }
}

TEST_F(CommUpdateTest, IsSilentWhereThereIsNothingNewAndAsksNobodyWithoutAnAddress)
{
    const ScriptedServer old(ScriptedServer::answer(200, "1.2.0"));
    m_update.checkSilent(old.endpoint().toString());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !old.request().isEmpty(); }, 5000));
    QTest::qWait(50);
    m_update.check(QString());
    QTest::qWait(50);
    EXPECT_TRUE(results.empty());
    const ScriptedServer newer(ScriptedServer::answer(200, "1.2.1"));
    m_update.checkSilent(newer.endpoint().toString());
    EXPECT_TRUE(waitForResult());
    EXPECT_EQ(results, std::vector{Kind::Available});
}
