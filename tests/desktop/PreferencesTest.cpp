#include "tests/desktop/ProgramTest.h"
#include "tests/desktop/TestWindow.h"

#include <QRegularExpression>

namespace {

// The parts of the window in English, from its content's corner.
constexpr QPoint kAutoStart(44, 57);
constexpr QPoint kLanguage(158, 89);
constexpr QPoint kRegionField(264, 180);
constexpr QPoint kSnapBack(327, 180);
constexpr QPoint kClear(351, 180);
constexpr QPoint kFullField(264, 218);
constexpr QPoint kChangeFolder(421, 331);
constexpr QPoint kOpenFolder(519, 331);
constexpr QPoint kConfirm(44, 372);
constexpr QPoint kOpenPage(44, 400);
constexpr QPoint kEndpoint(290, 432);
constexpr QPoint kTest(543, 432);
constexpr QPoint kNormalQuality(140, 473);
constexpr QPoint kRetinaQuality(230, 473);
constexpr QPoint kFormat(152, 505);
constexpr QPoint kSecureMosaic(44, 537);
constexpr QPoint kKeepLast(44, 565);

constexpr Key kDigit5 = Key(14);
constexpr Key kSemicolon = Key(47);
constexpr Key kF2 = Key(68);
constexpr Key kPageDown = Key(117);

// The preferences, opened from the menu as a user does.
class PreferencesWindow : public ProgramTest {
protected:
    explicit PreferencesWindow(int scale = 1)
        : ProgramTest({QSize(1280, 800) * scale, true, false})
        , m_scale(scale)
    {
    }
    void SetUp() override
    {
        ProgramTest::SetUp();
        m_program.setEnvironment("QT_SCALE_FACTOR", QString::number(m_scale));
        ASSERT_TRUE(m_program.startResident());
        ASSERT_TRUE(openPreferences());
    }

    bool openPreferences()
    {
        input().moveTo({100, 100});
        m_program.run("menu");
        waitUntil([this] { return server().isKeyboardTaken(); });
        input().type({Key::Up, Key::Up, Key::Up, Key::Return}); // the last entry but two
        return waitForTitle("Preferences");
    }
    bool waitForTitle(const char* title)
    {
        const bool isThere = waitForFocus(title);
        m_window = server().focusedWindow();
        m_desktop.settledScreen();
        return isThere;
    }
    void click(QPoint part)
    {
        const QPoint corner = server().geometry(server().parent(m_window)).topLeft();
        const QPoint place = corner + server().geometry(m_window).topLeft() + part * m_scale;
        input().moveTo(place - QPoint(2, 0));
        input().clickAt(place);
    }
    void startRecording(QPoint field)
    {
        const QImage before = m_desktop.settledScreen();
        click(field);
        EXPECT_TRUE(waitUntil([&] { return m_desktop.screen() != before; }));
        m_desktop.settledScreen(); // asking for the keyboard earlier might take it from the field
        EXPECT_TRUE(server().isKeyboardTaken());
    }
    void record(QPoint field, const std::vector<Key>& keys)
    {
        startRecording(field);
        input().chord(keys);
        EXPECT_TRUE(waitUntil([this] { return !server().isKeyboardTaken(); }));
    }

    // The settings file's value of a key as it is written; null when there is none.
    QString stored(const char* key) const
    {
        const QRegularExpression entry(
            QStringLiteral("<key>%1</key>\\s*<(?:(true|false)/>|\\w+>([^<]*)<|string/>)")
                .arg(QLatin1String(key)));
        const QRegularExpressionMatch match =
            entry.match(QString::fromUtf8(readFile(m_program.settingsFile())));
        return match.hasMatch() ? QLatin1String("") + match.captured(1) + match.captured(2) : QString();
    }
    testing::AssertionResult becomes(const char* key, const char* value) const
    {
        if (waitUntil([&] { return !stored(key).isNull() && stored(key) == QLatin1String(value); }))
            return testing::AssertionSuccess();
        return testing::AssertionFailure() << key << " is " << qPrintable(stored(key));
    }
    bool startsAtLogin() const
    {
        return !Program::allFiles(m_desktop.configFolder() + QStringLiteral("/autostart")).isEmpty();
    }

    int height() const { return server().geometry(m_window).height(); }
    // Whether the window has room for one more line than it had, or no longer.
    bool grows(int from) const
    {
        return waitUntil([&] { return height() > from; });
    }
    bool shrinks(int to) const
    {
        return waitUntil([&] { return height() == to; });
    }

    const int m_scale;
    xcb_window_t m_window = XCB_NONE;
};

class PreferencesAtScale2 : public PreferencesWindow {
protected:
    PreferencesAtScale2()
        : PreferencesWindow(2)
    {
    }
};

constexpr const char* kRegionKey = "hotkeyRegionScreenShot";
constexpr const char* kFullKey = "hotkeyFullScreenShot";

} // namespace

TEST_F(PreferencesWindow, RecordHotKeysThatWorkAtOnceAndAfterARestartAndMarkARefusedOne)
{
    record(kRegionField, {Key::Super, Key::Digit1}); // the one that is shown
    EXPECT_EQ(m_program.overlay(), XCB_NONE);
    EXPECT_TRUE(becomes(kRegionKey, "cmd 1"));
    takeHotKey(Key::Digit9);
    const int before = height();
    record(kRegionField, {Key::Super, Key::Digit9});
    EXPECT_TRUE(becomes(kRegionKey, "cmd 9"));
    EXPECT_TRUE(grows(before)) << "the refused one is marked";
    record(kRegionField, {Key::Shift, Key::Super, Key::Digit9});
    EXPECT_TRUE(becomes(kRegionKey, "shift cmd 9"));
    EXPECT_TRUE(shrinks(before));
    record(kFullField, {Key::Super, kDigit5});
    EXPECT_TRUE(becomes(kFullKey, "cmd 5"));
    EXPECT_FALSE(opensOverlay({Key::Super, Key::Digit1}, 300));
    for (const char* when : {"at once", "after a restart"}) {
        SCOPED_TRACE(when);
        EXPECT_TRUE(opensOverlay({Key::Shift, Key::Super, Key::Digit9}, 5000));
        EXPECT_FALSE(pictureAfter({Key::Super, kDigit5}).isNull());
        ASSERT_EQ(m_program.quitResident(), 0);
        ASSERT_TRUE(m_program.startResident());
    }
}

TEST_F(PreferencesWindow, StartNothingWhileTheRecordedKeyIsHeld)
{
    startRecording(kRegionField);
    input().press(Key::Super);
    input().press(Key::Digit9);
    EXPECT_TRUE(becomes(kRegionKey, "cmd 9"));
    QThread::msleep(900); // the key repeats
    EXPECT_EQ(m_program.overlay(), XCB_NONE);
    input().releaseAll();
    EXPECT_TRUE(waitUntil([this] { return !server().isKeyboardTaken(); }));
    EXPECT_TRUE(waitUntil([this] { return opensOverlay({Key::Super, Key::Digit9}, 300); }));
}

TEST_F(PreferencesWindow, RecordNoKeyWithoutAPlaceOfItsOwn)
{
    startRecording(kRegionField);
    for (const std::vector<Key>& keys : std::vector<std::vector<Key>>{
             {kDigit5}, {Key::Escape}, {Key::Tab}, {Key::Super, Key::Left}, {Key::Super, kF2}})
        input().chord(keys);
    EXPECT_TRUE(server().isKeyboardTaken());
    input().chord({Key::Super, kSemicolon});
    EXPECT_TRUE(becomes(kRegionKey, "cmd K"));
    record(kFullField, {Key::Super, kPageDown});
    EXPECT_TRUE(becomes(kFullKey, "cmd F2"));
    m_before = m_desktop.settledScreen();
    EXPECT_TRUE(samePixels(pictureAfter({Key::Super, kPageDown}), m_before));
}

TEST_F(PreferencesWindow, ClearOneHotKeyAndLeaveTheOther)
{
    startRecording(kRegionField);
    click(kClear);
    EXPECT_TRUE(becomes(kRegionKey, ""));
    EXPECT_FALSE(opensOverlay({Key::Super, Key::Digit1}, 300));
    m_before = m_desktop.settledScreen();
    EXPECT_TRUE(samePixels(pictureAfter({Key::Super, Key::Digit2}), m_before));
    startRecording(kFullField);
    click(kSnapBack + QPoint(0, kFullField.y() - kRegionField.y()));
    EXPECT_TRUE(waitUntil([this] { return !server().isKeyboardTaken(); }));
    EXPECT_FALSE(pictureAfter({Key::Super, Key::Digit2}).isNull());
    ASSERT_EQ(m_program.quitResident(), 0);
    ASSERT_TRUE(m_program.startResident());
    EXPECT_FALSE(opensOverlay({Key::Super, Key::Digit1}, 300));
    EXPECT_FALSE(pictureAfter({Key::Super, Key::Digit2}).isNull());
}

TEST_F(PreferencesWindow, LoseAShortcutWithTheFocus)
{
    const TestWindow other(m_desktop.displayName(), {{20, 40, 200, 200}});
    startRecording(kRegionField);
    input().clickAt({100, 120});
    EXPECT_TRUE(becomes(kRegionKey, ""));
    EXPECT_TRUE(waitUntil([this] { return !server().isKeyboardTaken(); }));
}

TEST_F(PreferencesWindow, ChooseTheFolderInADialog)
{
    const QString folder = m_program.saveFolder() + QStringLiteral("/a");
    ASSERT_TRUE(QDir().mkpath(folder));
    for (const Key end : {Key::Escape, Key::Return}) {
        SCOPED_TRACE(int(end));
        click(kChangeFolder);
        ASSERT_TRUE(waitForTitle("Screenshot folder"));
        EXPECT_EQ(m_program.run("menu").exitCode, 5);
        if (end == Key::Return)
            input().chord({Key::A});
        input().chord({end});
        ASSERT_TRUE(waitForTitle("Preferences"));
    }
    EXPECT_TRUE(becomes("screenshotSavePath", qPrintable(folder)));
    input().chord({Key::Super, Key::Digit2});
    EXPECT_TRUE(waitUntil([&] { return Program::allFiles(folder).size() == 1; }));
}

TEST_F(PreferencesWindow, WriteEveryOptionAtOnce)
{
    const struct {
        QPoint part;
        const char* key;
        const char* once;
        const char* twice;
    } cases[] = {
        {kAutoStart, "applicationAutoLaunch", "true", "false"},
        {kConfirm, "needShowUplopadToCloundView", "false", "true"},
        {kOpenPage, "openScreenshotLinkAfterUpload", "false", "true"},
        {kSecureMosaic, "mosaicIsSecure", "true", "false"},
        {kKeepLast, "lastCaptureIsKept", "false", "true"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.key);
        click(c.part);
        EXPECT_TRUE(becomes(c.key, c.once));
        EXPECT_TRUE(waitUntil([&] { return startsAtLogin() == (c.part == kAutoStart); }));
        click(c.part);
        EXPECT_TRUE(becomes(c.key, c.twice));
    }
    click(kEndpoint);
    m_desktop.settledScreen(); // a click may pass through the window manager, a key does not
    input().chord({Key::A});
    EXPECT_TRUE(becomes("uploadEndpoint", "a"));
    const int before = height();
    click(kTest);
    EXPECT_TRUE(grows(before));
}

TEST_F(PreferencesWindow, KeepTheLastCaptureOnlyWhileAskedTo)
{
    const auto capture = [this] {
        EXPECT_TRUE(openOverlay());
        input().drag({900, 100}, {1100, 200});
        m_desktop.settledScreen();
        EXPECT_TRUE(cancelCapture());
    };
    click(kKeepLast);
    ASSERT_TRUE(becomes("lastCaptureIsKept", "false"));
    capture();
    EXPECT_EQ(m_program.run("reopen").exitCode, 1);
    ASSERT_TRUE(waitForRest());
    click(kKeepLast);
    ASSERT_TRUE(becomes("lastCaptureIsKept", "true"));
    capture();
    const auto verb = m_program.start("reopen");
    EXPECT_TRUE(m_program.waitForOverlay(m_before));
    input().chord({Key::Escape});
    EXPECT_EQ(Program::finish(*verb).exitCode, 4);
}

TEST_F(PreferencesAtScale2, ChooseTheSizeOfPictures)
{
    for (const auto& [part, stored, size] : {std::tuple(kNormalQuality, "16", QSize(1280, 800)),
             std::tuple(kRetinaQuality, "8", QSize(2560, 1600))}) {
        SCOPED_TRACE(stored);
        click(part);
        ASSERT_TRUE(becomes("userNeedImageQuality", stored));
        EXPECT_EQ(pictureAfter({Key::Super, Key::Digit2}).size(), size);
    }
}

TEST_F(PreferencesWindow, ChangeFormatAndLanguageInTheirMenus)
{
    click(kFormat);
    ASSERT_TRUE(waitUntil([this] { return server().isKeyboardTaken(); }));
    input().type({Key::Down, Key::Down, Key::Return});
    EXPECT_TRUE(becomes("screenshotType", ".jpg"));
    ASSERT_FALSE(pictureAfter({Key::Super, Key::Digit2}).isNull());
    EXPECT_TRUE(m_program.savedPictures().last().endsWith(QLatin1String(".jpg")));
    click(kLanguage);
    ASSERT_TRUE(waitUntil([this] { return server().isKeyboardTaken(); }));
    for (int i = 0; i < 9; ++i)
        input().chord({Key::Down});
    input().chord({Key::Return});
    EXPECT_TRUE(waitForTitle("Einstellungen"));
    EXPECT_TRUE(becomes("clientLang", "German"));
}

TEST_F(PreferencesWindow, FollowTheFileThatIsWrittenByHand)
{
    startRecording(kRegionField);
    m_program.writeSettings({{QStringLiteral("clientLang"), QStringLiteral("German")},
        {QStringLiteral("hotkeyRegionScreenShot"), QStringLiteral("cmd 9")}});
    EXPECT_TRUE(waitForTitle("Einstellungen"));
    EXPECT_FALSE(opensOverlay({Key::Super, Key::Digit9}, 300)); // it is recorded
    EXPECT_TRUE(opensOverlay({Key::Super, Key::Digit9}, 5000));
    m_program.writeSettings({{QStringLiteral("hotkeyRegionScreenShot"), QStringLiteral("CMD 5")}});
    EXPECT_TRUE(waitUntil([this] { return opensOverlay({Key::Super, kDigit5}, 300); })); // it takes its time
    EXPECT_FALSE(opensOverlay({Key::Super, Key::Digit9}, 300));
    input().chord({Key::Escape});
    EXPECT_TRUE(waitUntil([this] { return server().focusedWindow() != m_window; }));
    EXPECT_TRUE(m_program.answers());
}

TEST_F(PreferencesWindow, TellOfAFolderThatVanishes)
{
    const int before = height();
    const QString folder = m_desktop.home() + QStringLiteral("/short-lived");
    const QVariantMap chosen{{QStringLiteral("screenshotSavePath"), folder}};
    m_program.writeSettings(chosen);
    EXPECT_TRUE(grows(before)); // there is none yet
    ASSERT_TRUE(QDir().mkpath(folder));
    click(kOpenFolder);
    EXPECT_TRUE(shrinks(before));
    ASSERT_TRUE(QDir(folder).removeRecursively());
    click(kOpenFolder);
    EXPECT_TRUE(grows(before));
    EXPECT_TRUE(m_program.answers());
}
