#include "commonutils/CommLog.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace {

class Log : public testing::Test {
protected:
    Log() { qputenv("XDG_CACHE_HOME", QFile::encodeName(m_cache.path())); }

    QString file() const { return m_cache.filePath(QStringLiteral("com.Lumora.Screenshot/tool.log")); }

    void leave(const QByteArray& contents) const
    {
        QDir().mkpath(QFileInfo(file()).path());
        QFile log(file());
        ASSERT_TRUE(log.open(QIODevice::WriteOnly));
        log.write(contents);
    }

    QString contents() const
    {
        QFile log(file());
        return log.open(QIODevice::ReadOnly) ? QString::fromUtf8(log.readAll()) : QString();
    }

    QTemporaryDir m_cache;
};

}

TEST_F(Log, IsEmptiedAtTheStartOnceItIsLargerThanOneMebibyte)
{
    const struct {
        qsizetype before, after;
    } cases[] = {{1, 1}, {1048576, 1048576}, {1048577, 0}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.before);
        leave(QByteArray(c.before, 'x'));
        CommLog::start(QStringLiteral("tool.app"));
        EXPECT_EQ(QFileInfo(file()).size(), c.after);
    }
}

TEST_F(Log, StampsEachMessageAndKeepsItsPercentSigns)
{
    CommLog::start(QStringLiteral("tool.app")); // makes the folder
    EXPECT_EQ(CommLog::path(), file());
    CommLog::writeStartHeader();
    CommLog::log(QStringLiteral("at 100% of %1"));
    CommLog::log(QStringLiteral("key down --->%1 %2"), QStringLiteral("%2"), QStringLiteral("é"));
    const QRegularExpression expected(
        QStringLiteral("^\\n={16}[^=\\n]+={16}\\n"
                       "\\[\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d\\] at 100% of %1\\n"
                       "\\[[-\\d]{10} [:\\d]{8}\\] key down --->%2 é\\n$"));
    EXPECT_TRUE(expected.match(contents()).hasMatch()) << contents().toStdString();
}

TEST_F(Log, KeepsTheLinesOfThreadsWhole)
{
    CommLog::start(QStringLiteral("tool"));
    const QString longText(5000, QLatin1Char('x'));
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread)
        threads.emplace_back([&longText] {
            for (int i = 0; i < 50; ++i)
                CommLog::log(longText);
        });
    for (std::thread& thread : threads)
        thread.join();
    const QStringList lines = contents().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    EXPECT_EQ(lines.size(), 200);
    for (const QString& line : lines)
        ASSERT_EQ(line.mid(22), longText);
}

TEST_F(Log, IsSilentWhereItsFileCannotBe)
{
    QDir().mkpath(file()); // a folder in its place
    CommLog::start(QStringLiteral("tool"));
    CommLog::log(QStringLiteral("on stderr only"));
    EXPECT_TRUE(QFileInfo(file()).isDir());
}
