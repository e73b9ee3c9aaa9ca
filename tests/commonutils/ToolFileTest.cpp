#include "commonutils/ToolFile.h"

#include "tests/commonutils/FileSizeLimit.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}

TEST(ToolFile, AppendsOrStartsAgain)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("file"));
    const struct {
        QByteArray data;
        bool append;
        QByteArray expected;
    } steps[] = {{"one", true, "one"}, {" two", true, "one two"}, {"three", false, "three"}, {"", false, ""}};
    for (const auto& step : steps) {
        SCOPED_TRACE(step.expected.toStdString());
        EXPECT_TRUE(ToolFile::writeData(step.data, path, step.append));
        EXPECT_EQ(contents(path), step.expected);
    }
    EXPECT_FALSE(ToolFile::writeData("x", folder.filePath(QStringLiteral("none/file")), true));
}

TEST(ToolFile, ReplacesAFileForItsUserAloneAndKnowsItsStamp)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("file"));
    ASSERT_TRUE(ToolFile::writeData("old", path, false));
    const auto old = FileStamp::of(path);
    QString reason;
    const auto stamp = ToolFile::replaceFile(path, "new contents", &reason);
    EXPECT_TRUE(stamp.has_value());
    EXPECT_EQ(stamp, FileStamp::of(path));
    EXPECT_NE(stamp, old);
    EXPECT_EQ(contents(path), "new contents");
    EXPECT_EQ(QFileInfo(path).permissions() & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
}

TEST(ToolFile, KeepsTheOldFileAndLeavesNothingBehindWhenAWriteFails)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("file"));
    ASSERT_TRUE(ToolFile::writeData("old", path, false));
    QString reason;
    {
        const FileSizeLimit limit(100);
        EXPECT_FALSE(ToolFile::replaceFile(path, QByteArray(1000, 'x'), &reason));
    }
    EXPECT_FALSE(reason.isEmpty());
    EXPECT_EQ(contents(path), "old");
    const QString sub = folder.filePath(QStringLiteral("folder"));
    ASSERT_TRUE(QDir().mkpath(sub));
    reason.clear();
    EXPECT_FALSE(ToolFile::replaceFile(sub, "in a folder's place", &reason));
    EXPECT_FALSE(reason.isEmpty());
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size(), 2);
}

TEST(ToolFile, FollowsLinksToTheirEnd)
{
    QTemporaryDir folder;
    const auto in = [&](const char* name) { return folder.filePath(QLatin1String(name)); };
    ASSERT_TRUE(QFile::link(in("missing"), in("dangling")));
    ASSERT_TRUE(QFile::link(in("dangling"), in("second")));
    ASSERT_TRUE(QFile::link(in("loop"), in("loop")));
    EXPECT_EQ(ToolFile::linkTarget(in("missing")), in("missing"));
    EXPECT_EQ(ToolFile::linkTarget(in("second")), in("missing"));
    ToolFile::linkTarget(in("loop")); // comes back
}
