#include "app/ZRScreenShotStatusbar.h"

#include "commonutils/CommUtils.h"
#include "commonutils/ModalSession.h"
#include "tests/app/Languages.h"
#include "tests/fakes/FakeStatusItemHost.h"
#include "tests/fakes/FakeWorkspace.h"

#include <QApplication>
#include <QKeyEvent>

namespace {

// Writes down which action was asked for.
class RecordedActions final : public StatusbarActions {
public:
    void regionScreenShotFromSystembar() override { asked << QStringLiteral("region"); }
    void fullScreenShotFromSystembar() override { asked << QStringLiteral("full"); }
    void reopenLastCapture() override { asked << QStringLiteral("reopen"); }
    void actionForStatusbbarDistance() override { asked << QStringLiteral("distance"); }
    void actionForStatusbarGetColor() override { asked << QStringLiteral("color"); }
    void openVideoRecorderURL() override { asked << QStringLiteral("video"); }
    void showPreferences() override { asked << QStringLiteral("preferences"); }
    void actionForStatusbarShowFAQ() override { asked << QStringLiteral("faq"); }
    void actionForStatusbarShowSupport() override { asked << QStringLiteral("support"); }
    void actionForStatusbarShowForum() override { asked << QStringLiteral("forum"); }
    void actionForStatusbarFeedback() override { asked << QStringLiteral("feedback"); }
    void actionForStatusbarCheckUpdate() override { asked << QStringLiteral("update"); }
    void showAbout() override { asked << QStringLiteral("about"); }
    void terminate() override { asked << QStringLiteral("quit"); }

    QStringList asked;
};

struct Entry {
    const char16_t* textKey;
    const char* action;
};
constexpr Entry kEntries[] = {
    {u"Comm:RegionScreenshot", "region"},
    {u"Comm:FullScreenshot", "full"},
    {u"Lumora:Capture:Reopen", "reopen"},
    {u"Button:AdvancedCaptureCrossHair", "distance"},
    {u"Button:AdvancedCaptureColorPicker", "color"},
    {u"Comm:RecordVideo", "video"},
    {u"Comm:Options", "preferences"},
    {u"CommLang:Tutorial", "faq"},
    {u"CommLang:Support", "support"},
    {u"CommLang:Forum", "forum"},
    {u"AdvancedCapture:Feedback", "feedback"},
    {u"AdvancedCapture:CheckUpdate", "update"},
    {u"Comm:About", "about"},
    {u"Comm:Exit", "quit"},
};

class StatusbarTest : public LanguagesTest {
protected:
    void SetUp() override
    {
        m_bar.setStatusbarMenu();
        m_bar.changeHotKeyText();
        m_bar.changeText();
        ASSERT_TRUE(m_bar.openMenu());
        m_menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(m_menu, nullptr);
    }
    void TearDown() override { CommUtils::dispose(); }

    // Every entry that is no separator, the submenus' own among them.
    QList<QAction*> entries() const
    {
        QList<QAction*> found;
        for (QAction* action : m_menu->actions()) {
            if (!action->isSeparator())
                found << action;
            if (action->menu())
                found << action->menu()->actions();
        }
        return found;
    }
    // Null when there is none.
    QAction* entry(QStringView textKey) const
    {
        const QString text = AppSettings::getXMLValueForKeywords(textKey);
        for (QAction* action : entries())
            if (action->text() == text)
                return action;
        return nullptr;
    }
    void showLinks(const CommAppInfo& info)
    {
        CommUtils::initWithCommAppInfo(info, m_workspace);
        m_bar.changeText();
    }
    bool press(quint32 scanCode, Qt::KeyboardModifiers modifiers) const
    {
        QKeyEvent event(QEvent::KeyPress, Qt::Key_unknown, modifiers, scanCode, 0, 0);
        QApplication::sendEvent(m_menu, &event);
        return !m_menu->isVisible();
    }

    FakeStatusItemHost m_host;
    FakeWorkspace m_workspace;
    RecordedActions m_actions;
    ZRScreenShotStatusbar m_bar{m_host, m_actions};
    QMenu* m_menu = nullptr;
};

}

TEST_F(StatusbarTest, EachEntryDoesItsOwn)
{
    for (const Entry& e : kEntries) {
        SCOPED_TRACE(e.action);
        QAction* action = entry(e.textKey);
        ASSERT_NE(action, nullptr);
        m_actions.asked.clear();
        action->trigger();
        EXPECT_EQ(m_actions.asked, QStringList{QString::fromLatin1(e.action)});
    }
    EXPECT_EQ(entries().size(), qsizetype(std::size(kEntries)) + 2); // and two that open submenus
    EXPECT_EQ(m_menu->actions().indexOf(entry(u"Comm:RegionScreenshot")), 0);
    EXPECT_EQ(m_menu->actions().indexOf(entry(u"Comm:FullScreenshot")), 1);
}

TEST_F(StatusbarTest, ChangesEveryTextWithTheLanguageAndMakesNothingAnew)
{
    const QList<QAction*> before = entries();
    inEveryLanguage([&] {
        m_bar.changeText();
        for (const Entry& e : kEntries)
            EXPECT_NE(entry(e.textKey), nullptr) << e.action;
        for (const QAction* action : entries())
            EXPECT_FALSE(action->text().isEmpty());
        EXPECT_LT(m_menu->sizeHint().width(), 500);
    });
    EXPECT_EQ(entries(), before);
}

TEST_F(StatusbarTest, OffersALinkOnlyWhereThereIsOne)
{
    struct Case {
        QString CommAppInfo::*link;
        const char16_t* textKey;
    };
    const Case cases[] = {
        {&CommAppInfo::FAQURL, u"CommLang:Tutorial"},
        {&CommAppInfo::supportURL, u"CommLang:Support"},
        {&CommAppInfo::forumURL, u"CommLang:Forum"},
        {&CommAppInfo::feedbackURL, u"AdvancedCapture:Feedback"},
        {&CommAppInfo::updateURL, u"AdvancedCapture:CheckUpdate"},
        {&CommAppInfo::videoRecorderURL, u"Comm:RecordVideo"},
    };
    const auto offered = [&] {
        return std::count_if(std::begin(cases), std::end(cases),
            [this](const Case& c) { return entry(c.textKey)->isVisible(); });
    };
    EXPECT_EQ(offered(), 0);
    EXPECT_FALSE(entry(u"Comm:Help")->isVisible());
    for (const Case& c : cases) {
        SCOPED_TRACE(QString::fromUtf16(c.textKey).toStdString());
        CommAppInfo info;
        info.*c.link = QStringLiteral("https://example.org");
        showLinks(info);
        EXPECT_TRUE(entry(c.textKey)->isVisible());
        EXPECT_EQ(offered(), 1);
        EXPECT_EQ(entry(u"Comm:Help")->isVisible(), c.link != &CommAppInfo::videoRecorderURL);
    }
}

TEST_F(StatusbarTest, HotKeysStandBesideTheFirstTwoEntries)
{
    AppSettings::setRegionScreenShotHotKey(QStringLiteral("ctrl alt 5"));
    AppSettings::setFullScreenShotHotKey(QString());
    m_bar.changeHotKeyText();
    EXPECT_EQ(entry(u"Comm:RegionScreenshot")->shortcut(), QKeySequence(QStringLiteral("Ctrl+Alt+5")));
    EXPECT_TRUE(entry(u"Comm:FullScreenshot")->shortcut().isEmpty());
    EXPECT_EQ(entry(u"Comm:Exit")->shortcut(), QKeySequence(QStringLiteral("Meta+Q")));
}

TEST_F(StatusbarTest, KeysBesideTheEntriesWorkInTheOpenMenuByPosition)
{
    constexpr quint32 kDigit1 = 10; // scan codes
    constexpr quint32 kQ = 24;
    EXPECT_FALSE(press(kDigit1, Qt::NoModifier));
    EXPECT_FALSE(press(kDigit1, Qt::MetaModifier | Qt::ShiftModifier));
    EXPECT_TRUE(m_actions.asked.isEmpty());
    EXPECT_TRUE(press(kDigit1, Qt::MetaModifier));
    EXPECT_EQ(m_actions.asked, QStringList{QStringLiteral("region")});
    ASSERT_TRUE(m_bar.openMenu());
    EXPECT_TRUE(press(kQ, Qt::MetaModifier));
    EXPECT_EQ(m_actions.asked.last(), QStringLiteral("quit"));
}

TEST_F(StatusbarTest, NothingOpensWhileAModalWindowShows)
{
    EXPECT_TRUE(m_bar.closeMenu());
    EXPECT_FALSE(m_bar.closeMenu());
    {
        const ModalSession session;
        EXPECT_FALSE(m_bar.openMenu());
        EXPECT_FALSE(m_menu->isVisible());
    }
    EXPECT_TRUE(m_bar.openMenu());
    EXPECT_TRUE(m_menu->isVisible());
}

TEST_F(StatusbarTest, ThePictureOfTheEntryUnderThePointerIsAnotherOne)
{
    QAction* region = entry(u"Comm:RegionScreenshot");
    QAction* full = entry(u"Comm:FullScreenshot");
    const auto picture = [](const QAction* action) { return action->icon().pixmap(16, 16).toImage(); };
    const QImage resting = picture(region);
    const QImage restingFull = picture(full);
    ASSERT_FALSE(resting.isNull());
    m_menu->setActiveAction(region);
    const QImage hovered = picture(region);
    EXPECT_NE(hovered, resting);
    m_menu->setActiveAction(full);
    EXPECT_EQ(picture(region), resting);
    EXPECT_NE(picture(full), restingFull);
    m_bar.closeMenu();
    EXPECT_EQ(picture(full), restingFull);
}
