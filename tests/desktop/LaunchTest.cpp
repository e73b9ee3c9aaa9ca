#include "tests/desktop/ProgramTest.h"

#include <QFile>

namespace {

class Launch : public ProgramTest {
protected:
    Launch()
        : ProgramTest({{640, 480}, false, false})
    {
    }
    QString autostart() const { return m_desktop.configFolder() + QStringLiteral("/autostart"); }
};

} // namespace

TEST_F(Launch, GoesItsStepsInOrder)
{
    ASSERT_TRUE(m_program.startResident());
    const QStringList expected{QStringLiteral("tool tips"), QStringLiteral("registered defaults"),
        QStringLiteral("channel"), QStringLiteral("common utilities"), QStringLiteral("languages"),
        QStringLiteral("save folder"), QStringLiteral("status bar"), QStringLiteral("update check"),
        QStringLiteral("display list"), QStringLiteral("start window"), QStringLiteral("notifications"),
        QStringLiteral("status menu"), QStringLiteral("capture manager"), QStringLiteral("hot keys"),
        QStringLiteral("left-over uploads"), QStringLiteral("access to the save folder")};
    QStringList steps;
    for (const QString& line : m_program.logLines())
        if (line.startsWith(QLatin1String("launch: ")))
            steps << line.mid(8);
    EXPECT_EQ(steps, expected) << qPrintable(steps.join(QLatin1Char(',')));
}

TEST_F(Launch, LeavesOneLoginEntryBehindWhereItStartsAtLogin)
{
    for (const bool isWanted : {true, false}) {
        SCOPED_TRACE(isWanted);
        QDir(autostart()).removeRecursively();
        QDir().mkpath(autostart());
        m_program.writeSettings({{QStringLiteral("applicationAutoLaunch"), isWanted}});
        for (const char* name : {"one.desktop", "two.desktop"}) {
            QFile entry(autostart() + QLatin1Char('/') + QLatin1String(name));
            ASSERT_TRUE(entry.open(QIODevice::WriteOnly));
            entry.write("[Desktop Entry]\nType=Application\nExec=\"" LUMORA_PROGRAM "\"\n");
        }
        ASSERT_TRUE(m_program.startResident());
        EXPECT_EQ(m_program.quitResident(), 0);
        EXPECT_EQ(Program::allFiles(autostart()).size(), isWanted ? 1 : 2);
    }
}
