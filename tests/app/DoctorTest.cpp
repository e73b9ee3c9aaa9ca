#include "app/DesktopChecks.h"
#include "app/FileChecks.h"
#include "settings/UserDefaults.h"
#include "tests/fakes/FakeDisplays.h"
#include "tests/fakes/FakeHotKeys.h"
#include "tests/fakes/FakeWindowServer.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <span>

namespace {

using State = Finding::State;

struct Case {
    const char* what;
    Finding finding;
    State state;
    const char* message; // a part of it
};

class DoctorTest : public testing::Test {
protected:
    static void expectThat(std::span<const Case> cases)
    {
        for (const Case& c : cases) {
            SCOPED_TRACE(c.what);
            EXPECT_EQ(c.finding.state, c.state);
            EXPECT_TRUE(c.finding.message.contains(QLatin1String(c.message)))
                << c.finding.message.toStdString();
            EXPECT_EQ(c.finding.remedy.isEmpty(), c.state == State::Right);
        }
    }
    QString path(const char* name) const { return m_folder.filePath(QString::fromLatin1(name)); }
    QString written(const char* name, const QByteArray& bytes) const
    {
        QFile file(path(name));
        if (file.open(QIODevice::WriteOnly))
            file.write(bytes);
        return file.fileName();
    }
    QString made(const char* name) const
    {
        QDir().mkpath(path(name));
        return path(name);
    }
    int count() const { return int(QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::Hidden).size()); }

    QTemporaryDir m_folder;
};

}

TEST_F(DoctorTest, FilesAreRightWhereTheProgramCanUseThem)
{
    const QByteArray list = "<plist version=\"1.0\"><dict><key>a</key><string>b</string></dict></plist>";
    const QByteArray language =
        "<Language LangName=\"Mine\">\n<Comm>\n<About>x</About>\n</Comm>\n</Language>";
    const QString good = made("good");
    const QString bad = made("bad");
    QFile::copy(written("good/Mine.xml", language), bad + QStringLiteral("/Mine.xml"));
    written("good/Link.xml", "whatever");
    written("bad/Broken.xml", "<Language");
    QFile::setPermissions(made("open"), QFile::Permissions(0x7755));
    QFile::setPermissions(made("own"), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    constexpr qint64 kGibibyte = 1 << 30;
    const Case cases[] = {
        {"settings", FileChecks::settingsFile(written("whole.plist", list)), State::Right, "whole"},
        {"no settings", FileChecks::settingsFile(path("none.plist")), State::Right, "defaults"},
        {"broken settings", FileChecks::settingsFile(written("broken.plist", "<plist")), State::Wrong,
            "cannot be read"},
        {"folder", FileChecks::saveFolder(good, true), State::Right, "good"},
        {"default folder to be made", FileChecks::saveFolder(path("none/shots"), false), State::Right,
            "first picture"},
        {"chosen folder that is gone", FileChecks::saveFolder(path("none/shots"), true), State::Wrong,
            "no folder"},
        {"folder that is a file", FileChecks::saveFolder(path("whole.plist"), false), State::Wrong,
            "no folder"},
        {"folder below a file", FileChecks::saveFolder(path("whole.plist/shots"), false), State::Wrong,
            "cannot be written"},
        {"much space", FileChecks::freeSpace(good, kGibibyte), State::Right, "GiB"},
        {"little space", FileChecks::freeSpace(good, 100'000'000), State::Warning, "MiB"},
        {"no space", FileChecks::freeSpace(good, 1'000'000), State::Wrong, "KiB"},
        {"languages", FileChecks::languages({good, path("none")}), State::Right, "1 language"},
        {"broken language", FileChecks::languages({good, bad}), State::Wrong, "Broken.xml"},
        {"no languages", FileChecks::languages({path("none")}), State::Wrong, "no language"},
        {"journal", FileChecks::journal(path("own"), true), State::Right, "own"},
        {"journal to be made", FileChecks::journal(path("none/journal"), true), State::Right, "journal"},
        {"open journal", FileChecks::journal(path("open"), true), State::Warning, "others"},
        {"no journal", FileChecks::journal(path("open"), false), State::Right, "not kept"},
        {"journal below a file", FileChecks::journal(path("whole.plist/j"), true), State::Wrong,
            "cannot be written"},
    };
    const int before = count();
    expectThat(cases);
    EXPECT_EQ(count(), before); // nothing was made, moved or left behind
}

TEST_F(DoctorTest, TheDesktopIsRightWhereACaptureWorksOnIt)
{
    UserDefaults settings(m_folder.path(), QStringLiteral("test"), QStringLiteral("older"));
    UserDefaults::setStandardUserDefaults(&settings);
    FakeDisplays displays;
    FakeDisplays none;
    none.displays.clear();
    FakeWindowServer server;
    FakeWindowServer blind;
    blind.refusal = QStringLiteral("it is dark");
    FakeHotKeys keys;
    FakeHotKeys takenKeys;
    takenKeys.refusal = HotKeyRefusal::kTaken;
    const QStringList live;
    const QStringList refused{QStringLiteral("the hot key \"cmd 1\" does not work")};
    const Case cases[] = {
        {"displays", DesktopChecks::displays(displays), State::Right, "800x600+0+0; scale 1"},
        {"no display", DesktopChecks::displays(none), State::Wrong, "none"},
        {"capture", DesktopChecks::capture(displays, server, {24, true, true}), State::Right, "depth 24"},
        {"slow capture", DesktopChecks::capture(displays, server, {24, false, true}), State::Warning,
            "without shared memory"},
        {"no capture", DesktopChecks::capture(displays, blind, {8, true, true}), State::Wrong, "it is dark"},
        {"hot keys", DesktopChecks::hotKeys(&live, takenKeys), State::Right, "work"},
        {"free hot keys", DesktopChecks::hotKeys(nullptr, keys), State::Right, "free"},
        {"refused hot keys", DesktopChecks::hotKeys(&refused, keys), State::Wrong, "cmd 1"},
        {"taken hot keys", DesktopChecks::hotKeys(nullptr, takenKeys), State::Wrong, "cmd 2"},
        {"clipboard", DesktopChecks::clipboard({24, true, true}), State::Right, "outlive"},
        {"no manager", DesktopChecks::clipboard({24, true, false}), State::Warning, "clipboard manager"},
        {"tray", DesktopChecks::tray(true), State::Right, "place"},
        {"no tray", DesktopChecks::tray(false), State::Warning, "no place"},
    };
    expectThat(cases);
    UserDefaults::setStandardUserDefaults(nullptr);
}

TEST(DoctorReport, IsALineAFindingAndWrongOnlyWhereSomethingIs)
{
    const Finding right{State::Right, QStringLiteral("capture"), QStringLiteral("it works")};
    const Finding warning{
        State::Warning, QStringLiteral("tray"), QStringLiteral("there is none"), QStringLiteral("start one")};
    const Finding wrong{State::Wrong, QStringLiteral("languages"), QStringLiteral("\"a\" is broken"),
        QStringLiteral("remove it")};
    EXPECT_TRUE(DoctorReport::isRight({right, warning}));
    EXPECT_FALSE(DoctorReport::isRight({right, wrong, warning}));
    EXPECT_EQ(DoctorReport::text({right, warning}).toStdString(),
        "right    capture       it works\n"
        "warning  tray          there is none; to mend it, start one\n");
    const QJsonObject json = QJsonDocument::fromJson(DoctorReport::json({right, wrong}).toUtf8()).object();
    EXPECT_EQ(json[QLatin1String("right")].toBool(true), false);
    const QJsonObject second = json[QLatin1String("findings")].toArray()[1].toObject();
    EXPECT_EQ(second[QLatin1String("state")].toString(), QStringLiteral("wrong"));
    EXPECT_EQ(second[QLatin1String("message")].toString(), wrong.message);
    EXPECT_EQ(second[QLatin1String("remedy")].toString(), wrong.remedy);
}
