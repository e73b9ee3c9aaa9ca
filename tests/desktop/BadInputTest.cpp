#include "tests/desktop/KeyRecorder.h"
#include "tests/desktop/ProgramTest.h"

#include <QDir>
#include <QFile>

#include <sys/mount.h>
#include <unistd.h>

namespace {

class BadInput : public ProgramTest {
protected:
    bool writeFile(const QString& path, const QByteArray& contents) const
    {
        QFile file(path);
        return file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size();
    }
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
        QDir().mkpath(m_desktop.configFolder());
        QFile::remove(m_program.logFile());
        ASSERT_TRUE(writeFile(m_program.settingsFile(), contents));
        ASSERT_TRUE(m_program.startResident());
        const QString kept = m_program.settingsFile() + QStringLiteral(".broken");
        QFile keptFile(kept);
        EXPECT_TRUE(keptFile.open(QIODevice::ReadOnly) && keptFile.readAll() == contents);
        EXPECT_EQ(logLinesWith(kept).size(), 1);
        ASSERT_TRUE(openOverlay());
        EXPECT_FALSE(savedRegion({10, 10}, {60, 60}).isNull());
        EXPECT_EQ(m_program.quitResident(), 0);
    }
}

TEST_F(BadInput, SaveFolderThatFailsIsAnsweredAndTheNextCaptureWorks)
{
    const QString folder = m_desktop.home() + QStringLiteral("/shots");
    struct Case {
        const char* what;
        std::function<void()> harm;
        std::function<void()> mend;
    };
    const auto makeFolder = [&] {
        QFile::remove(folder);
        QDir().mkdir(folder);
    };
    const Case cases[] = {
        {"missing", [] {}, makeFolder},
        {"a file", [&] { writeFile(folder, "mine"); }, makeFolder},
        {"unwritable", [&] { QFile::link(QStringLiteral("/proc"), folder); }, makeFolder},
        {"a dangling link", [&] { QFile::link(QStringLiteral("/nowhere"), folder); }, makeFolder},
    };
    m_program.writeSettings({{QStringLiteral("screenshotSavePath"), folder}});
    ASSERT_TRUE(m_program.startResident());
    m_before = m_desktop.settledScreen();
    int failures = 0;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        QDir(folder).removeRecursively();
        c.harm();
        const Answer failed = m_program.run({QStringLiteral("full")});
        EXPECT_EQ(failed.exitCode, 1);
        EXPECT_EQ(failed.out, QString());
        EXPECT_TRUE(failed.err.contains(folder)) << qPrintable(failed.err);
        ++failures;
        EXPECT_TRUE(
            waitUntil([&] { return logLinesWith(QStringLiteral("could not be saved")).size() >= failures; }));
        EXPECT_EQ(logCount("save image success"), failures - 1);
        c.mend();
        QThread::msleep(350);
        const Answer saved = m_program.run({QStringLiteral("full")});
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
        m_before = m_desktop.settledScreen();
        const Answer failed = m_program.run({QStringLiteral("full")});
        EXPECT_EQ(failed.exitCode, 1);
        EXPECT_EQ(failed.out, QString());
        EXPECT_TRUE(Program::allFiles(folder).isEmpty());
        QThread::msleep(350);
        const auto region = m_program.start({QStringLiteral("region")});
        ASSERT_TRUE(m_program.waitForOverlay(m_before));
        m_desktop.input().drag({900, 100}, {950, 150});
        m_desktop.input().chord({Key::Control, Key::S});
        const Answer saved = Program::finish(*region);
        EXPECT_TRUE(samePixels(QImage(saved.path()), m_before.copy(900, 100, 50, 50)))
            << qPrintable(saved.err);
        EXPECT_EQ(m_program.quitResident(), 0);
        QDir(folder).removeRecursively();
    }
}

TEST_F(BadInput, DisplayRemovedInMidCaptureEndsItCleanly)
{
    const QRect left(0, 0, 700, 800), right(700, 0, 580, 800);
    ASSERT_TRUE(m_desktop.setDisplay(QStringLiteral("LEFT"), left));
    ASSERT_TRUE(m_desktop.setDisplay(QStringLiteral("RIGHT"), right));
    KeyRecorder recorder(m_desktop.displayName(), {300, 600, 300, 150});
    ASSERT_TRUE(m_program.startResident());
    m_desktop.input().moveTo(right.center());
    m_before = m_desktop.settledScreen();
    const auto region = m_program.start({QStringLiteral("region")});
    ASSERT_TRUE(m_program.waitForOverlay(m_before, right));
    ASSERT_TRUE(m_desktop.removeDisplay(QStringLiteral("RIGHT")));
    EXPECT_EQ(Program::finish(*region).exitCode, 4);
    EXPECT_TRUE(m_program.waitForNoOverlay());
    EXPECT_TRUE(waitUntil([&] { return recorder.hasKeyboard(); }));
    EXPECT_FALSE(m_desktop.server().isKeyboardTaken());
    EXPECT_TRUE(Program::allFiles(m_program.saveFolder()).isEmpty());

    m_desktop.input().moveTo(left.center());
    ASSERT_TRUE(waitForRest());
    EXPECT_TRUE(samePixels(pictureAfter({Key::Super, Key::Digit2}), m_before.copy(left)));
}
