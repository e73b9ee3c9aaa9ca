#include "output/AtomicFile.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <csignal>

#include <sys/resource.h>
#include <sys/stat.h>

namespace {

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("missing");
}

int entriesIn(const QString& folder)
{
    return int(QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size());
}

// Files of this process end at `bytes` while it lives.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes)
        : m_handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }

private:
    void (*m_handler)(int);
    rlimit m_before{};
};

struct AtomicFileTest : testing::Test {
    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("Grüße 1.png"));
};

}

TEST_F(AtomicFileTest, WritesAndReplacesWholeFiles)
{
    EXPECT_EQ(AtomicFile::write(path, "first", 5), QString());
    EXPECT_EQ(AtomicFile::write(path, "second", 6), QString());
    EXPECT_EQ(contentOf(path), "second");
    EXPECT_EQ(entriesIn(folder.path()), 1);
}

TEST_F(AtomicFileTest, GivesTheFileTheUsersPermissions)
{
    const mode_t before = umask(027);
    AtomicFile::write(path, "x", 1);
    umask(before);
    struct stat status { };
    ASSERT_EQ(stat(QFile::encodeName(path).constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0640u);
}

TEST_F(AtomicFileTest, SaysWhyNothingCanBeWritten)
{
    AtomicFile::write(path, "x", 1);
    QDir(folder.path()).mkdir(QStringLiteral("taken"));
    const struct {
        QString path;
        const char* reason;
    } cases[] = {
        {folder.filePath(QStringLiteral("missing/a.png")), "No such file or directory"},
        {path + QStringLiteral("/a.png"), "Not a directory"},
        {QStringLiteral("/proc/a.png"), ""}, // not writable for anybody; the words differ
        {folder.filePath(QStringLiteral("taken")), "Is a directory"},
        {QString(), ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.path.toStdString());
        const QString reason = AtomicFile::write(c.path, "y", 1);
        EXPECT_FALSE(reason.isEmpty());
        EXPECT_TRUE(reason.contains(QLatin1String(c.reason))) << reason.toStdString();
    }
    EXPECT_EQ(contentOf(path), "x");
    EXPECT_EQ(entriesIn(folder.path()), 2); // nothing temporary stays
}

TEST_F(AtomicFileTest, KeepsTheOldFileWhenTheNewOneDoesNotFit)
{
    AtomicFile::write(path, "old", 3);
    const QByteArray large(300000, 'n');
    QString reason;
    {
        const FileSizeLimit limit(100000);
        reason = AtomicFile::write(path, large.constData(), size_t(large.size()));
    }
    EXPECT_TRUE(reason.contains(QLatin1String("File too large"))) << reason.toStdString();
    EXPECT_EQ(contentOf(path), "old");
    EXPECT_EQ(entriesIn(folder.path()), 1);
}
