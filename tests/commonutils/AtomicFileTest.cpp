#include "commonutils/AtomicFile.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstring>
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

constexpr AtomicFile::Access kAccess = AtomicFile::Access::Umask;

struct AtomicFileTest : testing::Test {
    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("Grüße 1.png"));
};

}

TEST_F(AtomicFileTest, WritesAndReplacesWholeFiles)
{
    for (const char* text : {"longer", "first"})
        EXPECT_EQ(AtomicFile::write(path, text, strlen(text), kAccess), QString());
    EXPECT_EQ(contentOf(path), "first");
    EXPECT_EQ(entriesIn(folder.path()), 1);
}

TEST_F(AtomicFileTest, SaysWhyNothingCanBeWritten)
{
    AtomicFile::write(path, "x", 1, kAccess);
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
        const QString reason = AtomicFile::write(c.path, "y", 1, kAccess);
        EXPECT_FALSE(reason.isEmpty());
        EXPECT_TRUE(reason.contains(QLatin1String(c.reason))) << reason.toStdString();
    }
    EXPECT_EQ(contentOf(path), "x");
    EXPECT_EQ(entriesIn(folder.path()), 2); // nothing temporary stays
}

TEST_F(AtomicFileTest, GivesTheFileItsPermissionsAndKnowsItsStamp)
{
    const auto mode = [this] {
        struct stat status { };
        EXPECT_EQ(stat(QFile::encodeName(path).constData(), &status), 0);
        return status.st_mode & 0777;
    };
    const mode_t before = umask(027);
    AtomicFile::write(path, "old", 3, kAccess);
    umask(before);
    EXPECT_EQ(mode(), 0640u);
    const auto old = FileStamp::of(path);
    std::optional<FileStamp> stamp;
    EXPECT_EQ(AtomicFile::write(path, "newer", 5, AtomicFile::Access::OwnerOnly, &stamp), QString());
    EXPECT_EQ(stamp, FileStamp::of(path));
    EXPECT_NE(stamp, old);
    EXPECT_EQ(mode(), 0600u);
}
