#include "commonutils/ToolFile.h"

#include <QFile>
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
