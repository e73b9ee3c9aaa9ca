#include "capture/ZRScreenShotManager.h"

#include "capture/ToolScreen.h"
#include "settings/AppSettings.h"
#include "settings/UserDefaults.h"
#include "tests/fakes/FakePlatform.h"

#include <QApplication>
#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace {

// A manager on a faked desktop of 800 x 600 pixels, saving into a folder of its own.
class ZRScreenShotManagerTest : public testing::Test {
protected:
    void SetUp() override
    {
        UserDefaults::setStandardUserDefaults(&m_store);
        AppSettings::setScreenshotSavePath(m_folder.filePath(QStringLiteral("pictures")));
        QDir().mkpath(AppSettings::choosedScreenshotSavePath());
        AppSettings::install(&workspace(), nullptr);
        ToolScreen::install(m_platform.displays.get());
        manager = std::make_unique<ZRScreenShotManager>(m_platform);
        manager->onFinished = [this](quint64, const CaptureOutcome& outcome) { outcomes.push_back(outcome); };
    }
    void TearDown() override
    {
        manager.reset();
        ToolScreen::install(nullptr);
        AppSettings::install(nullptr, nullptr);
        UserDefaults::setStandardUserDefaults(nullptr);
    }

    FakeWorkspace& workspace() { return static_cast<FakeWorkspace&>(*m_platform.workspace); }
    FakeWindowServer& server() { return static_cast<FakeWindowServer&>(*m_platform.windowServer); }
    FakeDisplays& displays() { return static_cast<FakeDisplays&>(*m_platform.displays); }
    FakeInputGrab& grab() { return static_cast<FakeInputGrab&>(*m_platform.inputGrab); }

    void start(bool isFullScreen)
    {
        manager->initialize();
        manager->startScreenShotIsFullScreen(isFullScreen);
    }
    void drag(ZRPoint from, ZRPoint to)
    {
        manager->mouseDown({from, Qt::LeftButton});
        manager->mouseDragged({to, Qt::NoButton});
        manager->mouseUp({to, Qt::LeftButton});
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        manager->keyDown(QKeyEvent(QEvent::KeyPress, key, modifiers));
    }
    bool waitForOutcomes(size_t count)
    {
        return QTest::qWaitFor([&] { return outcomes.size() >= count; }, 5000);
    }
    bool isIdleSoon()
    {
        return QTest::qWaitFor([&] { return !manager->isCapturing(); }, 2000);
    }
    QStringList files() const
    {
        return QDir(AppSettings::choosedScreenshotSavePath()).entryList(QDir::Files);
    }

    QTemporaryDir m_folder;
    UserDefaults m_store{m_folder.path(), QStringLiteral("test"), QStringLiteral("older")};
    Platform m_platform = makeFakePlatform();
    std::unique_ptr<ZRScreenShotManager> manager;
    std::vector<CaptureOutcome> outcomes;
};

}

TEST_F(ZRScreenShotManagerTest, SavesThePixelsOfADraggedRegion)
{
    start(false);
    drag({100, 50}, {160, 90}); // rows 510 to 549 from the top
    press(Qt::Key_S, Qt::ControlModifier);
    ASSERT_TRUE(waitForOutcomes(1));
    ASSERT_EQ(outcomes[0].kind, CaptureOutcome::Kind::Saved);
    const QImage saved(outcomes[0].path);
    ASSERT_EQ(saved.size(), QSize(60, 40));
    EXPECT_EQ(saved.pixel(0, 0), FakeWindowServer::pixel(1, 100, 510));
    EXPECT_EQ(saved.pixel(59, 39), FakeWindowServer::pixel(1, 159, 549));
}

TEST_F(ZRScreenShotManagerTest, MapsNoWindowAndRestoresNothingForAFullScreen)
{
    start(true);
    ASSERT_TRUE(waitForOutcomes(1));
    EXPECT_EQ(QImage(outcomes[0].path).size(), QSize(800, 600));
    EXPECT_EQ(grab().grabs, 0);
    EXPECT_EQ(server().presentations, 0);
    ASSERT_TRUE(isIdleSoon());
    EXPECT_TRUE(workspace().activated.empty());
}

TEST_F(ZRScreenShotManagerTest, WritesOneFileHoweverOftenTheKeyRepeats)
{
    start(false);
    drag({0, 20}, {10, 10});
    for (int i = 0; i < 5; ++i)
        press(Qt::Key_S, Qt::ControlModifier);
    ASSERT_TRUE(waitForOutcomes(1));
    ASSERT_TRUE(isIdleSoon());
    EXPECT_EQ(outcomes.size(), 1U);
    EXPECT_EQ(files().size(), 1);
}

TEST_F(ZRScreenShotManagerTest, CancelsWithoutATraceAndReturnsTheKeyboard)
{
    start(false);
    drag({0, 20}, {10, 10});
    press(Qt::Key_Escape);
    ASSERT_TRUE(waitForOutcomes(1));
    EXPECT_EQ(outcomes[0].kind, CaptureOutcome::Kind::Cancelled);
    EXPECT_EQ(grab().releasesWithKey, 1) << "the key is still down";
    EXPECT_TRUE(manager->isCapturing()) << "for 0.3 s";
    ASSERT_TRUE(isIdleSoon());
    EXPECT_EQ(workspace().activated.size(), 1U);
    EXPECT_FALSE(manager->frame());
    EXPECT_TRUE(files().isEmpty());

    start(false);
    manager->rightMouseDown({});
    ASSERT_TRUE(waitForOutcomes(2));
    EXPECT_EQ(grab().releasesWithKey, 1) << "the mouse lets go at once";
}

TEST_F(ZRScreenShotManagerTest, DoesNothingWithAKeyBeforeTheRegionIsFixed)
{
    start(false);
    press(Qt::Key_S, Qt::ControlModifier);
    press(Qt::Key_Return);
    EXPECT_TRUE(outcomes.empty());
    EXPECT_TRUE(manager->frame());
}

TEST_F(ZRScreenShotManagerTest, AnswersEveryFailureAndIsReadyAgain)
{
    server().refusal = QStringLiteral("the screen cannot be read");
    start(false);
    ASSERT_EQ(outcomes.size(), 1U);
    EXPECT_EQ(outcomes[0].kind, CaptureOutcome::Kind::Failed);
    EXPECT_EQ(outcomes[0].reason, server().refusal);
    ASSERT_TRUE(isIdleSoon());

    server().refusal.clear();
    grab().refusal = QStringLiteral("another program holds the keyboard");
    start(false);
    ASSERT_EQ(outcomes.size(), 2U);
    EXPECT_EQ(outcomes[1].reason, grab().refusal);
    ASSERT_TRUE(isIdleSoon());

    grab().refusal.clear();
    AppSettings::setScreenshotSavePath(m_folder.filePath(QStringLiteral("missing")));
    start(true);
    ASSERT_TRUE(waitForOutcomes(3));
    EXPECT_EQ(outcomes[2].kind, CaptureOutcome::Kind::Failed);
    EXPECT_FALSE(outcomes[2].reason.isEmpty());
    ASSERT_TRUE(isIdleSoon());

    start(false);
    press(Qt::Key_Escape);
    ASSERT_TRUE(waitForOutcomes(4));
    EXPECT_EQ(outcomes[3].kind, CaptureOutcome::Kind::Cancelled);
}

TEST_F(ZRScreenShotManagerTest, FailsForARegionWithoutPixels)
{
    start(false);
    drag({30, 30}, {30, 30});
    press(Qt::Key_S, Qt::MetaModifier);
    ASSERT_TRUE(waitForOutcomes(1));
    EXPECT_EQ(outcomes[0].kind, CaptureOutcome::Kind::Failed);
    EXPECT_TRUE(files().isEmpty());
}

TEST_F(ZRScreenShotManagerTest, EndsWhenItsDisplayGoesAndStaysWhenAnotherGoes)
{
    displays().displays.push_back(FakeDisplays::display(2, QRect(800, 0, 800, 600), 1));
    start(false);
    displays().unplug(2);
    EXPECT_TRUE(outcomes.empty());
    displays().unplug(1);
    ASSERT_EQ(outcomes.size(), 1U);
    EXPECT_EQ(outcomes[0].kind, CaptureOutcome::Kind::Cancelled);
    ASSERT_TRUE(isIdleSoon());
    start(false);
    EXPECT_EQ(outcomes.size(), 2U) << "no display, so the capture fails at once";
}

TEST_F(ZRScreenShotManagerTest, AnOldTimerDoesNotEndANewerCapture)
{
    start(false);
    press(Qt::Key_Escape);
    start(false); // within the 0.3 s
    QTest::qWait(400);
    EXPECT_TRUE(manager->isCapturing());
    EXPECT_TRUE(manager->frame());
}

TEST_F(ZRScreenShotManagerTest, TakesAHurriedHandAtItsWord)
{
    server().windows = {{QRect(100, 50, 60, 40), QStringLiteral("program"), {}, 1}};
    start(false);
    manager->mouseDown({{120, 530}, Qt::LeftButton}); // on the window, with no movement before
    manager->mouseUp({{120, 530}, Qt::LeftButton});
    press(Qt::Key_S, Qt::ControlModifier);
    ASSERT_TRUE(waitForOutcomes(1));
    EXPECT_EQ(QImage(outcomes[0].path).size(), QSize(60, 40));
    ASSERT_TRUE(isIdleSoon());

    start(false);
    manager->mouseDown({{300, 300}, Qt::LeftButton});
    manager->mouseUp({{330, 320}, Qt::LeftButton}); // with no drag in between
    press(Qt::Key_S, Qt::ControlModifier);
    ASSERT_TRUE(waitForOutcomes(2));
    EXPECT_EQ(QImage(outcomes[1].path).size(), QSize(30, 20));
}
