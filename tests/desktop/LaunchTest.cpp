#include "tests/desktop/ProgramTest.h"

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
    const QString expected =
        QStringLiteral("tool tips,registered defaults,channel,common utilities,languages,save folder,"
                       "status bar,update check,display list,start window,notifications,status menu,"
                       "capture manager,hot keys,left-over uploads,access to the save folder");
    QStringList steps;
    for (const QString& line : m_program.logLines())
        if (line.startsWith(QLatin1String("launch: ")))
            steps << line.mid(8);
    EXPECT_EQ(steps.join(QLatin1Char(',')).toStdString(), expected.toStdString());
}

TEST_F(Launch, LeavesOneLoginEntryBehindWhereItStartsAtLogin)
{
    for (const bool isWanted : {true, false}) {
        SCOPED_TRACE(isWanted);
        QDir(autostart()).removeRecursively();
        m_program.writeSettings({{QStringLiteral("applicationAutoLaunch"), isWanted}});
        for (const char* name : {"one.desktop", "two.desktop"}) {
            ASSERT_TRUE(writeFile(autostart() + QLatin1Char('/') + QLatin1String(name),
                "[Desktop Entry]\nType=Application\nExec=\"" LUMORA_PROGRAM "\"\n"));
        }
        ASSERT_TRUE(m_program.startResident());
        EXPECT_EQ(m_program.quitResident(), 0);
        EXPECT_EQ(Program::allFiles(autostart()).size(), isWanted ? 1 : 2);
    }
}
