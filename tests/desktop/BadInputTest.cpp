#include "tests/desktop/ProgramTest.h"

#include <sys/mount.h>
#include <unistd.h>

namespace {

class BadInput : public ProgramTest {
protected:
    QStringList logLinesWith(const QString& text) const { return m_program.logLines().filter(text); }
};

// A save folder of 64 KiB, as long as it lives; not mounted where the user may not.
class SmallDisk {
public:
    explicit SmallDisk(const QString& folder)
        : m_folder(folder.toLocal8Bit())
    {
        QDir().mkpath(folder);
        m_isMounted = mount("tmpfs", m_folder.constData(), "tmpfs", 0, "size=64k") == 0;
    }
    ~SmallDisk()
    {
        if (m_isMounted)
            umount2(m_folder.constData(), MNT_DETACH);
    }
    bool isMounted() const { return m_isMounted; }

private:
    QByteArray m_folder;
    bool m_isMounted = false;
};

} // namespace

TEST_F(BadInput, BrokenSettingsAreKeptBesideAndDefaultsApply)
{
    const QByteArray broken[] = {"not a property list", "<plist><dict><key>hotkeyRegionScreenShot</key>",
        QByteArray("bplist00\xff\xff\xff\xff", 12), QByteArray(100000, '\0')};
    for (const QByteArray& contents : broken) {
        SCOPED_TRACE(contents.left(30).constData());
        QDir(m_desktop.configFolder()).removeRecursively();
        QFile::remove(m_program.logFile());
        ASSERT_TRUE(writeFile(m_program.settingsFile(), contents));
        ASSERT_TRUE(m_program.startResident());
        const QString kept = m_program.settingsFile() + QStringLiteral(".broken");
        EXPECT_EQ(readFile(kept), contents);
        EXPECT_EQ(logLinesWith(kept).size(), 1);
        ASSERT_TRUE(openOverlay());
        EXPECT_TRUE(savesRegion({10, 10}, {60, 60}));
        EXPECT_EQ(m_program.quitResident(), 0);
    }
}

TEST_F(BadInput, SaveFolderThatFailsIsAnsweredAndTheNextCaptureWorks)
{
    const QString folder = m_desktop.home() + QStringLiteral("/shots");
    struct Case {
        const char* what;
        std::function<void()> harm;
    };
    const Case cases[] = {
        {"missing", [] {}},
        {"a file", [&] { writeFile(folder, "mine"); }},
        {"unwritable", [&] { QFile::link(QStringLiteral("/proc"), folder); }},
        {"a dangling link", [&] { QFile::link(QStringLiteral("/nowhere"), folder); }},
    };
    m_program.writeSettings({{QStringLiteral("screenshotSavePath"), folder}});
    ASSERT_TRUE(m_program.startResident());
    m_before = m_desktop.settledScreen();
    int failures = 0;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        QDir(folder).removeRecursively();
        c.harm();
        const Answer failed = m_program.run("full");
        EXPECT_EQ(failed.exitCode, 1);
        EXPECT_EQ(failed.out, QString());
        EXPECT_TRUE(failed.err.contains(folder)) << qPrintable(failed.err);
        ++failures;
        EXPECT_TRUE(
            waitUntil([&] { return logLinesWith(QStringLiteral("could not be saved")).size() >= failures; }));
        EXPECT_EQ(logCount("save image success"), failures - 1);
        QFile::remove(folder);
        QDir().mkdir(folder);
        QThread::msleep(350);
        const Answer saved = m_program.run("full");
        EXPECT_EQ(Program::allFiles(folder), QStringList(saved.path()));
        EXPECT_TRUE(samePixels(QImage(saved.path()), m_before));
        QThread::msleep(350);
    }
}

TEST_F(BadInput, FullDiskLeavesNothingBehindAndASmallerPictureFits)
{
    const QString folder = m_desktop.home() + QStringLiteral("/small");
    for (const bool isLimit : {true, false}) {
        SCOPED_TRACE(isLimit ? "file-size limit" : "full disk");
        std::unique_ptr<SmallDisk> disk;
        QDir().mkpath(folder);
        if (!isLimit) {
            disk = std::make_unique<SmallDisk>(folder);
            if (!disk->isMounted())
                GTEST_SKIP() << "mounting is not allowed here";
        }
        m_program.writeSettings({{QStringLiteral("screenshotSavePath"), folder}});
        ASSERT_TRUE(m_program.startResidentBehind(
            isLimit ? QStringLiteral("ulimit -f 128; exec") : QStringLiteral("exec")));
        const Answer failed = m_program.run("full");
        EXPECT_EQ(failed.exitCode, 1);
        EXPECT_EQ(failed.out, QString());
        EXPECT_TRUE(Program::allFiles(folder).isEmpty());
        QThread::msleep(350);
        const auto region = startRegion();
        ASSERT_TRUE(region);
        input().drag({900, 100}, {950, 150});
        input().chord({Key::Control, Key::S});
        const Answer saved = Program::finish(*region);
        EXPECT_TRUE(samePixels(QImage(saved.path()), m_before.copy(900, 100, 50, 50)))
            << qPrintable(saved.err);
        EXPECT_EQ(m_program.quitResident(), 0);
        QDir(folder).removeRecursively();
    }
}
