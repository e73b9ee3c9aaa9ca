#include "commonutils/CommUtils.h"

#include "commonutils/CommFeedback.h"
#include "commonutils/LinkText.h"
#include "commonutils/ModalSession.h"
#include "commonutils/NotificationCenter.h"
#include "tests/fakes/FakeWorkspace.h"

#include <gtest/gtest.h>

TEST(CommUtils, OpensOnlyLinksOfTheBrowserAndEscapesOnlyWhatNoLinkMayHold)
{
    struct Case {
        const char* link;
        const char* opened; // empty: refused
    };
    const Case cases[] = {
        {"https://example.org/a%20b?q=1#end", "https://example.org/a%20b?q=1#end"},
        {"https://example.org/a b", "https://example.org/a%20b"},
        {"mailto:someone@example.org?subject=It%20works", "mailto:someone@example.org?subject=It%20works"},
        {"file:///etc/passwd", ""},
        {"example.org", ""},
        {"", ""},
    };
    FakeWorkspace workspace;
    CommUtils::initWithCommAppInfo({}, workspace);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.link);
        workspace.opened.clear();
        EXPECT_EQ(CommUtils::OpenURL(QString::fromLatin1(c.link)), *c.opened != '\0');
        const QUrl opened = workspace.opened.empty() ? QUrl() : workspace.opened.front();
        EXPECT_EQ(opened.toString(QUrl::FullyEncoded), QString::fromLatin1(c.opened));
    }
    CommUtils::dispose();
    EXPECT_FALSE(CommUtils::OpenURL(QStringLiteral("https://example.org")));
}

TEST(CommFeedback, NamesTheProgramInTheSubjectOfAMail)
{
    CommAppInfo info;
    info.appLocalizedName = QStringLiteral("A & B");
    info.appVersion = QStringLiteral("v1");
    const std::pair<const char*, const char*> cases[] = {
        {"", ""},
        {"https://example.org/form", "https://example.org/form"},
        {"mailto:us@example.org", "mailto:us@example.org?subject=A%20%26%20B%20v1"},
        {"mailto:us@example.org?subject=Hello", "mailto:us@example.org?subject=Hello"},
    };
    for (const auto& [link, expected] : cases) {
        info.feedbackURL = QString::fromLatin1(link);
        EXPECT_EQ(CommFeedback::linkOf(info), QString::fromLatin1(expected));
    }
}

TEST(LinkText, MakesLinksClickableAndNothingElse)
{
    const std::pair<const char*, const char*> cases[] = {
        {"a < b\nc", "a &lt; b<br>c"},
        {"See https://example.org/x?a=1&b=2.",
            "See <a href=\"https://example.org/x?a=1&amp;b=2\">https://example.org/x?a=1&amp;b=2</a>."},
        {"(www.example.org)", "(<a href=\"https://www.example.org\">www.example.org</a>)"},
        {"mailto:us@example.org", "<a href=\"mailto:us@example.org\">mailto:us@example.org</a>"},
        {"http:// and www", "http:// and www"},
    };
    for (const auto& [text, html] : cases)
        EXPECT_EQ(htmlWithLinks(QString::fromLatin1(text)), QString::fromLatin1(html));
}

TEST(ModalSession, RunsFromTheFirstBeginningToTheLastEnd)
{
    QObject observer;
    std::vector<bool> told;
    NotificationCenter::defaultCenter().addObserver(observer, QString::fromUtf16(ModalSession::kChanged),
        [&](const QVariantMap&) { told.push_back(ModalSession::isRunning()); });
    {
        const ModalSession outer;
        const ModalSession inner;
        EXPECT_TRUE(ModalSession::isRunning());
    }
    EXPECT_FALSE(ModalSession::isRunning());
    EXPECT_EQ(told, (std::vector<bool>{true, false}));
}
