#include "tests/desktop/ProgramTest.h"

#include <QFileInfo>
#include <QRegularExpression>

namespace {

constexpr QPoint kRegionEntry(60, 19); // from the menu's corner
constexpr QPoint kFullEntry(60, 47);
constexpr QPoint kTrayIcon(1268, 13);

// The screen's corner is free for a tray, its middle for the menu.
class Menu : public ProgramTest {
protected:
    Menu()
        : ProgramTest({{1280, 800}, true, false})
    {
    }

    xcb_window_t menu() const
    {
        const auto menus = server().windowsTitled("Lumora Mac Screenshot");
        return menus.empty() ? xcb_window_t(XCB_NONE) : menus.front();
    }
    bool hasTool() const { return !server().windowsTitled("Lumora Tool").empty(); }
    bool waitForMenu(int milliseconds = 5000) const
    {
        return waitUntil([this] { return menu() != XCB_NONE; }, milliseconds);
    }
    bool openMenu() const { return m_program.run("menu").exitCode == 0 && waitForMenu(); }
    bool closeMenu()
    {
        input().chord({Key::Escape});
        return waitUntil([this] { return menu() == XCB_NONE; });
    }
    void choose(QPoint entry)
    {
        const QPoint place = server().geometry(menu()).topLeft() + entry;
        input().moveTo(place - QPoint(3, 0)); // an entry that was never pointed at is not chosen
        input().clickAt(place);
    }

    void startTray()
    {
        m_desktop.start("trayer", words("--edge top --align right --widthtype request --height 26"));
    }
    // The icon comes when the tray has taken it in; clicks before that fall on the desktop.
    bool openFromTray()
    {
        input().moveTo(kTrayIcon);
        return waitUntil([this] {
            input().click(Button::Left);
            return waitForMenu(300);
        });
    }
};

// A desktop with a session bus.
class Notifier : public Menu {
protected:
    void SetUp() override
    {
        Menu::SetUp();
        const QString socket = m_desktop.home() + QStringLiteral("/bus");
        const QString line = QStringLiteral("--session --nofork --address=unix:path=") + socket;
        m_desktop.start("dbus-daemon", words(qPrintable(line)));
        ASSERT_TRUE(waitUntil([&] { return QFileInfo::exists(socket); }));
        m_program.setEnvironment("DBUS_SESSION_BUS_ADDRESS", QStringLiteral("unix:path=") + socket);
    }
    void TearDown() override
    {
        Menu::TearDown();
        if (m_watcher)
            endProcess(*m_watcher);
    }

    // True when it is on the bus.
    bool startWatcher()
    {
        m_watcher = m_program.startOther(QStringLiteral(NOTIFIER_WATCHER), {});
        return !wordOfWatcher().isEmpty();
    }
    // True when the item has come to the watcher.
    bool waitForItem()
    {
        m_item = wordOfWatcher();
        return !m_item.isEmpty();
    }
    // Its next line; empty when none comes.
    QString wordOfWatcher()
    {
        waitUntil([this] { return m_watcher->canReadLine() || m_watcher->waitForReadyRead(50); });
        return QString::fromLatin1(m_watcher->readLine()).trimmed();
    }
    // What the program's item answers; empty when it does not.
    QString ask(const char* object, const char* method, const QStringList& arguments) const
    {
        const QStringList call =
            words("--session --print-reply") +
            QStringList{QStringLiteral("--dest=") + m_item, QLatin1String(object), QLatin1String(method)};
        return Program::finish(*m_program.startOther(QStringLiteral("dbus-send"), call + arguments)).out;
    }
    // The numbers of the entries that the bus offers, by their texts.
    QMap<QString, QString> entries() const
    {
        const QString layout =
            ask("/MenuBar", "com.canonical.dbusmenu.GetLayout", words("int32:0 int32:-1 array:string:label"));
        static const QRegularExpression entry(
            QStringLiteral(
                R"(int32 (\d+)\s+array \[(?:(?!struct).)*?string "label"\s+variant\s+string "([^"]*)\")"
                R"((?!\s+\)\s+dict entry\(\s+string "visible"\s+variant\s+boolean false))"),
            QRegularExpression::DotMatchesEverythingOption);
        QMap<QString, QString> found;
        for (auto it = entry.globalMatch(layout); it.hasNext();) {
            const QRegularExpressionMatch match = it.next();
            found.insert(match.captured(2), match.captured(1));
        }
        return found;
    }
    bool offers(const QString& text) const
    {
        return waitUntil([&] { return entries().contains(text); });
    }
    void chooseOnTheBus(const QString& text) const
    {
        const QStringList entry{QStringLiteral("int32:") + entries().value(text)};
        ask("/MenuBar", "com.canonical.dbusmenu.Event",
            entry + words("string:clicked variant:string: uint32:0"));
    }

    std::unique_ptr<QProcess> m_watcher;
    QString m_item; // its name on the bus
};

} // namespace

TEST_F(Menu, OpensFromTheTrayAndIsInNoPicture)
{
    startTray();
    ASSERT_TRUE(m_program.startResident());
    ASSERT_TRUE(waitUntil([this] { return logCount("the status item is there") == 1; }));
    ASSERT_TRUE(openFromTray() && closeMenu());
    m_before = m_desktop.settledScreen();
    for (const QPoint entry : {kRegionEntry, kFullEntry}) {
        SCOPED_TRACE(entry.y());
        input().clickAt(kTrayIcon);
        ASSERT_TRUE(waitForMenu());
        const QRect place = server().geometry(menu());
        choose(entry);
        if (entry == kFullEntry) {
            EXPECT_TRUE(samePixels(pictureAfter({}), m_before));
        } else {
            ASSERT_TRUE(m_program.waitForOverlay(m_before));
            EXPECT_TRUE(savesRegion(place.topLeft(), place.bottomRight()));
        }
    }
}

TEST_F(Menu, FindsATrayThatComesLater)
{
    ASSERT_TRUE(m_program.startResident());
    EXPECT_EQ(logCount("the status item is there"), 0);
    startTray();
    EXPECT_TRUE(openFromTray());
}

TEST_F(Menu, OpensAtThePointerWithoutATray)
{
    ASSERT_EQ(m_program.run("menu").exitCode, 3);
    ASSERT_TRUE(m_program.startResident());
    input().moveTo({400, 300});
    m_before = m_desktop.settledScreen();
    for (const char* arguments : {"", "menu"}) {
        EXPECT_EQ(m_program.run(arguments).exitCode, 0);
        ASSERT_TRUE(waitForMenu());
        EXPECT_EQ(server().geometry(menu()).topLeft(), QPoint(400, 300));
        ASSERT_TRUE(closeMenu());
    }
    ASSERT_TRUE(openMenu());
    EXPECT_TRUE(samePixels(QImage(m_program.run("full").path()), m_before));
    ASSERT_TRUE(waitForRest());
    ASSERT_TRUE(openMenu() && waitUntil([this] { return server().isKeyboardTaken(); }));
    EXPECT_TRUE(samePixels(pictureAfter({Key::Super, Key::Digit2}), m_before)) << "a hot key meanwhile";
    ASSERT_TRUE(openOverlay());
    EXPECT_EQ(m_program.run("menu").exitCode, 5);
    EXPECT_EQ(menu(), XCB_NONE);
}

TEST_F(Menu, ToolsStartFromIt)
{
    ASSERT_TRUE(m_program.startResident());
    m_before = m_desktop.settledScreen();
    for (const std::vector<Key>& way : {std::vector{Key::Return}, std::vector{Key::Down, Key::Return}}) {
        SCOPED_TRACE(way.size());
        ASSERT_TRUE(openMenu());
        input().type({Key::Down, Key::Down, Key::Down, Key::Down, Key::Right});
        input().type(way);
        EXPECT_TRUE(waitUntil([this] { return hasTool(); }));
        EXPECT_EQ(m_program.run("menu").exitCode, 5);
        input().chord({Key::Escape});
        EXPECT_TRUE(waitUntil([this] { return !hasTool(); }));
        EXPECT_TRUE(samePixels(m_desktop.settledScreen(), m_before));
    }
}

TEST_F(Menu, AboutFollowsTheLanguageThatWasWrittenByHand)
{
    ASSERT_TRUE(m_program.startResident());
    input().moveTo({400, 300});
    ASSERT_TRUE(openMenu());
    input().type({Key::Up, Key::Up, Key::Return}); // the last entry but one
    ASSERT_TRUE(waitForFocus("About"));
    const xcb_window_t about = server().focusedWindow();
    for (const auto& [language, title] :
        {std::pair("German", "Info"), std::pair("Japanese", "このアプリについて")}) {
        SCOPED_TRACE(language);
        m_program.writeSettings({{QStringLiteral("clientLang"), QString::fromLatin1(language)}});
        EXPECT_TRUE(waitUntil([&] { return server().title(about) == QString::fromUtf8(title); }));
    }
    input().chord({Key::Escape});
    EXPECT_TRUE(waitUntil([&] { return server().parent(about) == XCB_NONE; }));
    EXPECT_TRUE(m_program.answers());
}

TEST_F(Notifier, TakesTheItemAndItsMenuWhenItComesLate)
{
    QVariantMap settings{{QStringLiteral("clientLang"), QStringLiteral("English")}};
    m_program.writeSettings(settings);
    ASSERT_TRUE(m_program.startResident());
    QThread::msleep(300);
    EXPECT_EQ(logCount("the status item is there"), 0);
    ASSERT_TRUE(startWatcher());
    ASSERT_TRUE(waitForItem());
    const auto activate = [this] {
        return !ask("/StatusNotifierItem", "org.kde.StatusNotifierItem.Activate", words("int32:10 int32:10"))
                    .isEmpty();
    };
    ASSERT_TRUE(waitUntil(activate));
    ASSERT_TRUE(waitForMenu());
    ASSERT_TRUE(closeMenu());

    ASSERT_TRUE(offers(QStringLiteral("Capture full screen")));
    EXPECT_FALSE(entries().contains(QStringLiteral("Forum")));
    settings[QStringLiteral("linkForum")] = QStringLiteral("https://example.org");
    m_program.writeSettings(settings);
    EXPECT_TRUE(offers(QStringLiteral("Forum")));
    settings[QStringLiteral("clientLang")] = QStringLiteral("German");
    m_program.writeSettings(settings);
    ASSERT_TRUE(offers(QStringLiteral("Ganzen Bildschirm aufnehmen")));
    m_before = m_desktop.settledScreen();
    chooseOnTheBus(QStringLiteral("Ganzen Bildschirm aufnehmen"));
    EXPECT_TRUE(samePixels(pictureAfter({}), m_before));
}

TEST_F(Notifier, HoldsNothingUpWhileItDoesNotAnswer)
{
    ASSERT_TRUE(startWatcher());
    const PausedProcess paused(*m_watcher);
    ASSERT_TRUE(m_program.startResident());
    ASSERT_TRUE(openOverlay());
    ASSERT_TRUE(cancelCapture());
    ASSERT_TRUE(openMenu());
    paused.goOn();
    EXPECT_TRUE(waitForItem());
}
