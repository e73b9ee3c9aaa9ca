#include "tests/desktop/ProgramTest.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTcpServer>

namespace {

// Accepts connections and says nothing.
class SilentService {
public:
    SilentService() { m_server.listen(QHostAddress::LocalHost); }
    QString address() const { return QStringLiteral("http://127.0.0.1:%1/").arg(m_server.serverPort()); }

private:
    QTcpServer m_server;
};

class Doctor : public ProgramTest {
protected:
    // The states of the findings by their subjects; no longer than a few seconds in the making.
    QMap<QString, QString> findings(int exitCode) const
    {
        QElapsedTimer timer;
        timer.start();
        const Answer answer = m_program.run("doctor --json");
        EXPECT_LT(timer.elapsed(), 8000);
        EXPECT_EQ(answer.exitCode, exitCode) << qPrintable(answer.out + answer.err);
        QMap<QString, QString> states;
        const QJsonObject report = QJsonDocument::fromJson(answer.out.toUtf8()).object();
        for (const QJsonValue& finding : report[QLatin1String("findings")].toArray())
            states[finding[QLatin1String("subject")].toString()] = finding[QLatin1String("state")].toString();
        return states;
    }
    static QStringList wrongOnes(const QMap<QString, QString>& states)
    {
        return states.keys(QStringLiteral("wrong"));
    }
};

} // namespace

TEST_F(Doctor, FindsNothingWrongAndChangesNothingWithAndWithoutTheProgram)
{
    for (const bool isRunning : {false, true}) {
        SCOPED_TRACE(isRunning ? "running" : "not running");
        ASSERT_TRUE(!isRunning || m_program.startResident());
        const QStringList before = Program::allFiles(m_desktop.configFolder());
        const auto states = findings(0);
        EXPECT_EQ(wrongOnes(states), QStringList());
        EXPECT_EQ(states.size(), 12);
        EXPECT_EQ(states.value(QStringLiteral("clipboard")), QStringLiteral("warning"));
        EXPECT_EQ(Program::allFiles(m_desktop.configFolder()), before);
        EXPECT_TRUE(m_program.savedPictures().isEmpty());
        const Answer lines = m_program.run("doctor");
        EXPECT_EQ(lines.out.count(QLatin1Char('\n')), 12);
    }
    input().chord({Key::Super, Key::Digit2});
    EXPECT_TRUE(waitUntil([this] { return m_program.savedPictures().size() == 1; })); // the hot keys live
}

TEST_F(Doctor, NamesWhatIsWrong)
{
    const SilentService silent;
    const auto set = [this](const QString& key, const QString& value) {
        m_program.writeSettings({{key, value}});
    };
    const QString endpoint = QStringLiteral("uploadEndpoint"),
                  data = m_desktop.home() + QStringLiteral("/data");
    struct Case {
        const char* subject;
        std::function<void()> harm;
    };
    const Case cases[] = {
        {"settings", [&] { writeFile(m_program.settingsFile(), "not a property list"); }},
        {"save folder", [&] { set(QStringLiteral("screenshotSavePath"), data + QStringLiteral("/gone")); }},
        {"languages",
            [&] {
                writeFile(data + QStringLiteral("/com.Lumora.Screenshot/languages/Mine.xml"), "<Language");
            }},
        {"upload", [&] { set(endpoint, silent.address()); }},
        {"upload", [&] { set(endpoint, QStringLiteral("ftp://a")); }},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.subject);
        QFile::remove(m_program.settingsFile());
        QDir(data).removeRecursively();
        c.harm();
        EXPECT_EQ(wrongOnes(findings(1)), QStringList{QLatin1String(c.subject)});
    }
    EXPECT_FALSE(QFile::exists(m_program.settingsFile() + QStringLiteral(".broken")));
}

TEST_F(Doctor, NamesHotKeysThatAnotherProgramHasAndAProgramThatHangs)
{
    Program other(m_desktop, QStringLiteral(LUMORA_PROGRAM));
    other.setEnvironment("XDG_RUNTIME_DIR", m_desktop.cacheFolder()); // a session of its own
    ASSERT_TRUE(other.startResident());
    EXPECT_EQ(wrongOnes(findings(1)), QStringList{QStringLiteral("hot keys")});
    EXPECT_EQ(other.quitResident(), 0);

    ASSERT_TRUE(m_program.startResident());
    const PausedProcess paused(m_program.resident());
    EXPECT_TRUE(wrongOnes(findings(1)).contains(QStringLiteral("program")));
}

TEST_F(Doctor, LooksAtTheFilesWhereThereIsNoDesktop)
{
    m_program.setEnvironment("DISPLAY", ":9876");
    const auto states = findings(1);
    EXPECT_EQ(wrongOnes(states), QStringList{QStringLiteral("desktop")});
    EXPECT_EQ(states.value(QStringLiteral("languages")), QStringLiteral("right"));
    m_program.setEnvironment("DISPLAY", m_desktop.displayName());
}
