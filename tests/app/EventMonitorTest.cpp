#include "app/EventMonitor.h"

#include "capture/ToolScreen.h"
#include "commonutils/NotificationCenter.h"
#include "settings/AppSettings.h"
#include "settings/UserDefaults.h"
#include "tests/fakes/FakeDisplays.h"
#include "tests/fakes/FakeHotKeys.h"
#include "tests/fakes/FakeMouseMonitor.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

class EventMonitorTest : public testing::Test {
protected:
    void SetUp() override
    {
        UserDefaults::setStandardUserDefaults(&m_store);
        EventMonitor::install(&hotKeys, &mouse);
    }
    void TearDown() override
    {
        EventMonitor::install(nullptr);
        UserDefaults::setStandardUserDefaults(nullptr);
    }

    void bind()
    {
        EventMonitor::registerHotKeyMonitorWithAction([this](const QString& hotKey) { fired << hotKey; });
    }

    QTemporaryDir m_folder;
    UserDefaults m_store{m_folder.path(), QStringLiteral("test"), QStringLiteral("older")};
    FakeHotKeys hotKeys;
    FakeMouseMonitor mouse;
    QStringList fired;
};

}

TEST_F(EventMonitorTest, BindsBothCaptureKeysAndHandsOnTheirStrings)
{
    bind();
    EXPECT_EQ(hotKeys.keys.at(1), (FakeHotKeys::Key{18, 256}));
    EXPECT_EQ(hotKeys.keys.at(2), (FakeHotKeys::Key{19, 256}));
    hotKeys.press(2);
    hotKeys.press(1);
    EXPECT_EQ(fired, (QStringList{QStringLiteral("cmd 2"), QStringLiteral("cmd 1")}));
}

TEST_F(EventMonitorTest, CountsFromOneAgainAfterEachRebinding)
{
    bind();
    AppSettings::setRegionScreenShotHotKey(QStringLiteral("ctrl shift 9"));
    bind();
    ASSERT_EQ(hotKeys.keys.size(), 2U);
    EXPECT_EQ(hotKeys.keys.at(1), (FakeHotKeys::Key{25, 4096 + 512}));
    EventMonitor::unregisterHotKeyMonitor();
    EXPECT_TRUE(hotKeys.keys.empty());
}

TEST_F(EventMonitorTest, AnEmptyStringBindsNothingAndUnbindsNothing)
{
    AppSettings::setRegionScreenShotHotKey(QString());
    bind();
    ASSERT_EQ(hotKeys.keys.size(), 1U);
    EventMonitor::unregisterHotKeyMonitorWithKeyName(QString());
    EventMonitor::unregisterHotKeyMonitorWithKeyName(QStringLiteral("never bound"));
    ASSERT_EQ(hotKeys.keys.size(), 1U);
    hotKeys.press(1);
    EXPECT_EQ(fired, QStringList{QStringLiteral("cmd 2")});
}

TEST_F(EventMonitorTest, UnbindingOneCaptureKeyLeavesTheOther)
{
    bind();
    EventMonitor::unregisterHotKeyMonitorWithKeyName(QStringLiteral("cmd 1"));
    EventMonitor::unregisterHotKeyMonitorWithKeyName(QStringLiteral("cmd 1"));
    EXPECT_FALSE(hotKeys.keys.contains(1));
    EXPECT_TRUE(hotKeys.keys.contains(2));
}

TEST_F(EventMonitorTest, KeepsANamedKeyWithoutGrabbingIt)
{
    bind();
    EventMonitor::registerHotKeyMonitorWithKeyName(QStringLiteral("backspace"), {});
    EXPECT_EQ(hotKeys.keys.size(), 2U);
    EventMonitor::unregisterHotKeyMonitorWithKeyName(QStringLiteral("backspace"));
    EXPECT_EQ(hotKeys.keys.size(), 2U);
}

TEST_F(EventMonitorTest, TellsWhichKeyIsRefusedUntilItWorks)
{
    hotKeys.refusal = QStringLiteral("taken");
    bind();
    ASSERT_EQ(EventMonitor::refusals().size(), 2);
    EXPECT_TRUE(EventMonitor::refusals()[0].contains(QStringLiteral("cmd 1")));
    hotKeys.onStateChange(1, {});
    EXPECT_EQ(EventMonitor::refusals().size(), 1);
    EXPECT_EQ(EventMonitor::regionRefusal(), QString());
    EXPECT_EQ(EventMonitor::fullRefusal(), QStringLiteral("taken"));
}

TEST_F(EventMonitorTest, RestsUntilItIsToldToGoOn)
{
    bind();
    EventMonitor::setResting(true);
    EXPECT_TRUE(hotKeys.keys.empty());
    AppSettings::setRegionScreenShotHotKey(QStringLiteral("cmd 9"));
    bind();
    EXPECT_TRUE(hotKeys.keys.empty());
    EventMonitor::setResting(false);
    ASSERT_EQ(hotKeys.keys.size(), 2U);
    hotKeys.press(1);
    EXPECT_EQ(fired, QStringList{QStringLiteral("cmd 9")});
}

TEST_F(EventMonitorTest, PostsWhatTheMouseDoesOnceItIsStarted)
{
    FakeDisplays displays; // one above and right of the first, at twice the scale
    displays.displays.push_back(FakeDisplays::display(2, QRect(800, -400, 600, 800), 2));
    ToolScreen::install(&displays);
    QObject observer;
    QList<QVariantMap> posted;
    NotificationCenter::defaultCenter().addObserver(observer, QStringLiteral("eventMonitorCallBackRegister"),
        [&posted](const QVariantMap& object) { posted << object; });
    EXPECT_EQ(mouse.starts, 0);
    EventMonitor::startEventMonitor();
    EventMonitor::startEventMonitor();
    EventMonitor::stopEventMonitor(); // leaves the mouse alone
    struct Case {
        MouseMonitor::Action action;
        QPoint pixel;
        int type;
        float x, y;
    };
    const Case cases[] = {
        {MouseMonitor::Action::Moved, {10, 590}, 5, 10, 10},
        {MouseMonitor::Action::RightDown, {900, 300}, 3, 850, 650},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.type);
        displays.pointerPixel = c.pixel;
        mouse.onAction(c.action);
        ASSERT_EQ(posted.size(), 1);
        const QVariantMap object = posted.takeFirst();
        EXPECT_EQ(object[QStringLiteral("eventType")].toInt(), c.type);
        EXPECT_EQ(object[QStringLiteral("eventLocationX")].toFloat(), c.x);
        EXPECT_EQ(object[QStringLiteral("eventLocationY")].toFloat(), c.y);
    }
    ToolScreen::install(nullptr);
}
