#include "platform/macos/BookmarkRules.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

// A bookmark is "scoped:<path>" or "plain:<path>"; the file may have moved to `target`.
class FakeService final : public BookmarkService {
public:
    QByteArray make(const QString& path, bool isScoped) const override
    {
        return isScoped ? (makesScoped ? "scoped:" + path.toUtf8() : QByteArray())
                        : (makesPlain ? "plain:" + path.toUtf8() : QByteArray());
    }
    std::optional<Target> resolve(const QByteArray& bookmark, bool isScoped) override
    {
        if (!bookmark.startsWith(isScoped ? "scoped:" : "plain:"))
            return std::nullopt;
        return Target{target, isStale};
    }

    bool makesScoped = true;
    bool makesPlain = true;
    bool isStale = false;
    QString target;
};

class MacBookmarks : public testing::Test {
protected:
    MacBookmarks() { m_service.target = m_folder.path(); }

    QByteArray with(const char* kind) const { return kind + m_folder.path().toUtf8(); }

    const QTemporaryDir m_folder;
    FakeService m_service;
    QByteArray m_renewed;
};

}

TEST_F(MacBookmarks, AreTheBestKindThatTheSystemMakes)
{
    struct Case {
        bool makesScoped, makesPlain;
        const char* kind;
    };
    for (const Case& c : {Case{true, true, "scoped:"}, {false, true, "plain:"}, {false, false, ""}}) {
        SCOPED_TRACE(c.kind);
        m_service.makesScoped = c.makesScoped;
        m_service.makesPlain = c.makesPlain;
        const QByteArray bookmark = BookmarkRules::dataFor(m_service, m_folder.path());
        EXPECT_EQ(bookmark, with(c.kind));
        EXPECT_EQ(BookmarkRules::resolved(m_service, bookmark, &m_renewed), m_folder.path());
        EXPECT_EQ(m_renewed, QByteArray());
    }
    EXPECT_EQ(BookmarkRules::dataFor(m_service, m_folder.filePath(QStringLiteral("none"))), QByteArray());
}

TEST_F(MacBookmarks, AreMadeAnewWhenStale)
{
    m_service.isStale = true;
    EXPECT_EQ(BookmarkRules::resolved(m_service, "scoped:/moved/away", &m_renewed), m_folder.path());
    EXPECT_EQ(m_renewed, with("scoped:"));
    EXPECT_EQ(BookmarkRules::resolved(m_service, "scoped:/moved/away", nullptr), m_folder.path());
}

TEST_F(MacBookmarks, LeadNowhereWhenTheyAreNone)
{
    const QByteArray gone = m_folder.filePath(QStringLiteral("none")).toUtf8();
    for (const QByteArray& bookmark : {QByteArray("garbage"), QByteArray(), QByteArray("."), gone}) {
        SCOPED_TRACE(bookmark.constData());
        EXPECT_EQ(BookmarkRules::resolved(m_service, bookmark, &m_renewed), QString());
    }
}
