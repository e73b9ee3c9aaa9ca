#include "tests/desktop/KeyRecorder.h"
#include "tests/desktop/ProgramTest.h"

#include <QImageReader>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

constexpr QRect kFirst{640, 100, 800, 600}; // device pixels of the root
constexpr QRect kSecond{0, 20, 640, 480};
constexpr int kPauseMs = 320; // in which another capture is refused

// Two displays of unlike scale, the second one left of and above the first, and the program on them.
class Verbs : public EachDesktopTest {
protected:
    Verbs()
        : EachDesktopTest({1440, 900})
    {
    }
    void SetUp() override
    {
        EachDesktopTest::SetUp();
        m_program.setEnvironment("PROGRAM", QStringLiteral(LUMORA_PROGRAM));
        m_program.setEnvironment("FOLDER", m_desktop.home());
        ASSERT_TRUE(startOnDisplays(kFirst, kSecond, "FIRST=2;SECOND=1.25"));
        m_before = m_desktop.settledScreen();
    }

    // After the pause of the capture before.
    Answer run(const char* arguments) const
    {
        QThread::msleep(kPauseMs);
        return m_program.run(arguments);
    }
    // A line of the shell in the desktop's home.
    Answer shell(const char* line) const
    {
        QThread::msleep(kPauseMs);
        const auto process = m_program.startOther(QStringLiteral("sh"),
            {QStringLiteral("-c"), QStringLiteral("cd \"$FOLDER\" && ") + QString::fromUtf8(line)});
        return Program::finish(*process);
    }
    QString file(const char* name) const { return m_desktop.home() + QLatin1Char('/') + QLatin1String(name); }
    xcb_window_t countdown() const
    {
        const auto windows = server().windowsTitled("Lumora Countdown");
        return windows.empty() ? xcb_window_t(XCB_NONE) : windows.front();
    }
};

} // namespace

LUMORA_ON_EACH_DESKTOP(Verbs);

TEST_P(Verbs, CaptureExactlyWhatTheyName)
{
    KeyRecorder front(m_desktop.displayName(), {560, 330, 200, 120}); // most of it on the first display
    const QRect frontPixels = server().outline(server().topmost(front.window())) & kFirst;
    m_before = m_desktop.settledScreen();
    struct Case {
        const char* arguments;
        QRect pixels;
        const char* display;
        double scale;
    };
    const Case cases[] = {
        {"full", kFirst, "FIRST", 2},
        {"full --display 1", kFirst, "FIRST", 2},
        {"full --display 2", kSecond, "SECOND", 1.25},
        {"full --display=SECOND", kSecond, "SECOND", 1.25},
        {"region --geometry 201x99+701+151", {701, 151, 201, 99}, "FIRST", 2},
        {"region --geometry 50x40-0-200", {1390, 660, 50, 40}, "FIRST", 2},
        {"region --geometry 33x21+7+20", {7, 20, 33, 21}, "SECOND", 1.25},
        {"window", frontPixels, "FIRST", 2},
        {"window --delay 1", frontPixels, "FIRST", 2},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.arguments);
        const Answer answer = run(qPrintable(QLatin1String(c.arguments) + QLatin1String(" --json")));
        EXPECT_EQ(answer.exitCode, 0) << qPrintable(answer.err);
        const QJsonObject json = QJsonDocument::fromJson(answer.out.toUtf8()).object();
        const QImage picture(json[QLatin1String("path")].toString());
        EXPECT_TRUE(samePixels(picture, m_before.copy(c.pixels)));
        const QJsonObject region = json[QLatin1String("region")].toObject();
        EXPECT_EQ(QRect(region[QLatin1String("x")].toInt(), region[QLatin1String("y")].toInt(),
                      region[QLatin1String("width")].toInt(), region[QLatin1String("height")].toInt()),
            c.pixels);
        EXPECT_EQ(json[QLatin1String("size")].toObject()[QLatin1String("width")].toInt(), c.pixels.width());
        EXPECT_EQ(json[QLatin1String("display")].toString(), QLatin1String(c.display));
        EXPECT_EQ(json[QLatin1String("scale")].toDouble(), c.scale);
    }
    EXPECT_TRUE(front.hasKeyboard());
}

TEST_P(Verbs, WhatIsNotThereIsSaidAndLeavesNothing)
{
    struct Case {
        const char* arguments;
        int exitCode;
        const char* err; // a part of it
    };
    const Case cases[] = {
        {"full --display 3", 7, "2 SECOND 640x480+0+20"},
        {"full --display THIRD --delay 5", 7, "THIRD"},
        {"region --last", 7, "no last region"},
        {"region --geometry 100x100+1400+150", 7, "not all on one display"},
        {"region --geometry 100x100+600+150", 7, "not all on one display"},
        {"region --geometry 10x10+0+0", 7, "not all on one display"},
        {"full --output /nowhere/a.png", 6, "/nowhere"},
        {"full --output /tmp", 6, "not a file"},
        {"full --output /dev/null", 6, "not a file"},
        {"full --output a.txt", 2, ".txt"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.arguments);
        const Answer answer = m_program.run(c.arguments);
        EXPECT_EQ(answer.exitCode, c.exitCode);
        EXPECT_EQ(answer.out, QString());
        EXPECT_TRUE(answer.err.contains(QLatin1String(c.err))) << qPrintable(answer.err);
    }
    EXPECT_EQ(m_program.savedPictures(), QStringList());
}

TEST_P(Verbs, TheLastRegionIsTakenAgainAlsoAfterARestart)
{
    const QPoint from(kSecond.topLeft() + QPoint(41, 53));
    const QPoint to(kSecond.topLeft() + QPoint(341, 253));
    input().moveTo(kSecond.center());
    m_before = m_desktop.settledScreen();
    ASSERT_TRUE(openOverlay(kSecond));
    ASSERT_TRUE(savesRegion(from, to));
    input().moveTo(kFirst.center());
    for (const bool isAfterRestart : {false, true}) {
        SCOPED_TRACE(isAfterRestart ? "after a restart" : "at once");
        if (isAfterRestart) {
            ASSERT_EQ(m_program.quitResident(), 0);
            ASSERT_TRUE(m_program.startResident());
        }
        m_before = m_desktop.settledScreen();
        const Answer answer = run("region --last");
        EXPECT_EQ(answer.exitCode, 0) << qPrintable(answer.err);
        EXPECT_TRUE(samePixels(QImage(answer.path()), m_before.copy(spannedBy(from, to))));
    }
    ASSERT_TRUE(m_desktop.removeDisplay("SECOND"));
    EXPECT_TRUE(waitUntil([this] { return run("region --last").exitCode == 7; }));
}

TEST_P(Verbs, AnOutputIsTheCallersFileOfTheTypeItsNameSays)
{
    struct Case {
        const char* name;
        const char* format;
    };
    const Case cases[] = {{"a.png", "png"}, {"with blanks \u00e9.JPG", "jpeg"}, {"a.bmp", "bmp"},
        {"a.tiff", "tiff"}, {"a.gif", "gif"}, {"shot", "png"}, {"a.png", "png"}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        m_program.setEnvironment("NAME", QString::fromUtf8(c.name));
        const Answer answer = shell("\"$PROGRAM\" full --output \"$NAME\"");
        EXPECT_EQ(answer.exitCode, 0) << qPrintable(answer.err);
        EXPECT_EQ(answer.path(), m_desktop.home() + QLatin1Char('/') + QString::fromUtf8(c.name));
        QImageReader reader(answer.path());
        reader.setDecideFormatFromContent(true);
        EXPECT_EQ(reader.size(), kFirst.size());
        EXPECT_EQ(reader.format(), c.format);
    }
    const Answer copied = run("full --clipboard");
    EXPECT_EQ(copied.exitCode, 0);
    EXPECT_EQ(copied.out, QString());
    EXPECT_TRUE(samePixels(QImage::fromData(clipboard("image/png")), m_before.copy(kFirst)));
    EXPECT_EQ(m_program.savedPictures(), QStringList());
}

TEST_P(Verbs, StdoutGetsThePictureOrTheCallerIsTold)
{
    struct Case {
        const char* line;
        int exitCode;
        const char* err;    // a part of it
        qsizetype pictures; // in the save folder
    };
    const Case cases[] = {
        {"\"$PROGRAM\" full --output - >raw.png", 0, "", 0},
        {"\"$PROGRAM\" full --output - | cat >piped.png", 0, "", 0},
        {"\"$PROGRAM\" full --output - >&-", 6, "stdout", 0},
        {"\"$PROGRAM\" full --output - >/dev/full", 6, "stdout", 0},
        {"{ sleep 0.2; \"$PROGRAM\" full --output -; echo $? >code; } | true; exit $(cat code)", 6, "stdout",
            0},
        {"\"$PROGRAM\" full --output - --display 9 >none.png", 7, "display 9", 0},
        {"\"$PROGRAM\" full >/dev/full", 6, ".png", 1},
        {"\"$PROGRAM\" full >&-", 6, ".png", 2},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.line);
        const Answer answer = shell(c.line);
        EXPECT_EQ(answer.exitCode, c.exitCode);
        EXPECT_EQ(answer.out, QString());
        EXPECT_TRUE(answer.err.contains(QLatin1String(c.err))) << qPrintable(answer.err);
        EXPECT_EQ(m_program.savedPictures().size(), c.pictures);
    }
    EXPECT_TRUE(samePixels(QImage(file("raw.png")), m_before.copy(kFirst)));
    EXPECT_EQ(readFile(file("raw.png")), readFile(m_program.savedPictures().value(0)));
    EXPECT_EQ(readFile(file("piped.png")), readFile(file("raw.png")));
    EXPECT_EQ(readFile(file("none.png")), QByteArray());
}

TEST_P(Verbs, ACountdownShowsAndEndsBeforeTheFreeze)
{
    const auto full = m_program.start("full --delay 1");
    ASSERT_TRUE(waitUntil([this] { return countdown() != XCB_NONE; }));
    EXPECT_TRUE(kFirst.contains(server().geometry(countdown())));
    for (const char* other : {"full", "region --last", "full --delay 3", "measure"})
        EXPECT_EQ(m_program.run(other).exitCode, 5) << other;
    const Answer answer = Program::finish(*full);
    EXPECT_EQ(answer.exitCode, 0) << qPrintable(answer.err);
    EXPECT_TRUE(samePixels(QImage(answer.path()), m_before.copy(kFirst)));
}

TEST_P(Verbs, ACountdownIsCalledOff)
{
    struct Case {
        const char* what;
        std::function<void()> act; // on the countdown; empty for the end of its caller
    };
    const Case cases[] = {
        {"the end of its caller", nullptr},
        {"cancel", [this] { EXPECT_EQ(m_program.run("cancel").exitCode, 0); }},
        {"Escape", [this] { input().chord({Key::Escape}); }},
        {"a click",
            [this] {
                input().clickAt(server().geometry(countdown()).center());
                input().moveTo(kFirst.center());
            }},
        {"another capture",
            [this] {
                EXPECT_TRUE(samePixels(pictureAfter({Key::Super, Key::Digit2}), m_before.copy(kFirst)));
            }},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const auto full = m_program.start("full --delay 60");
        ASSERT_TRUE(waitUntil([this] { return countdown() != XCB_NONE; }));
        if (c.act)
            c.act();
        else
            full->terminate();
        const Answer answer = Program::finish(*full);
        EXPECT_EQ(answer.exitCode, c.act ? 4 : -1);
        EXPECT_EQ(answer.out, QString());
        EXPECT_TRUE(waitUntil([this] { return countdown() == XCB_NONE; }));
    }
    EXPECT_EQ(m_program.savedPictures().size(), 1);
}
