#include "tests/capture/ManagerTest.h"

#include "capture/RegionSizeView.h"
#include "capture/ScreenShotBackView.h"
#include "capture/ZRMagnifierView.h"
#include "capture/ZRScreenshotCursorView.h"
#include "capture/ZRStaticScreenShotWindow.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>

namespace {

// Saves into a folder of its own.
class ZRScreenShotManagerTest : public ManagerTest {
protected:
    void SetUp() override
    {
        ManagerTest::SetUp();
        AppSettings::setScreenshotSavePath(m_folder.filePath(QStringLiteral("pictures")));
        QDir().mkpath(AppSettings::choosedScreenshotSavePath());
        manager->onFinished = [this](quint64, const CaptureOutcome& outcome) { outcomes.push_back(outcome); };
    }

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
    // The overlay's shown window and what stands on it.
    static ZRStaticScreenShotWindow& overlay()
    {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* window = dynamic_cast<ZRStaticScreenShotWindow*>(widget); window && window->isVisible())
                return *window;
        qFatal("no overlay is shown");
    }
    static ScreenShotBackView& mask() { return overlay().backView(); }
    void move(ZRPoint to) { manager->mouseMoved({to, Qt::NoButton}); }
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

TEST_F(ZRScreenShotManagerTest, ShowsTheAidsWhileTheRegionIsChosenAndNotAfterwards)
{
    displays().pointerPixel = QPoint(120, 70);
    start(false);
    EXPECT_TRUE(mask().crossView().isCrossShown());
    EXPECT_EQ(mask().magnifierView().pixelColorValueText(), QStringLiteral("120x530"));
    EXPECT_EQ(mask().magnifierView().locationText(), QStringLiteral("#784601")) << "120, 70, display 1";
    EXPECT_EQ(overlay().cursor().shape(), Qt::BlankCursor);
    move({200, 500});
    EXPECT_EQ(mask().magnifierView().locationText(), QStringLiteral("#c86401"));
    EXPECT_EQ(mask().crossView().crossLocation(), (ZRPoint{200, 500}));

    manager->mouseDown({{200, 500}, Qt::LeftButton});
    manager->mouseDragged({{260, 420}, Qt::NoButton});
    EXPECT_TRUE(mask().magnifierView().isShown());
    EXPECT_EQ(mask().crossView().crossLocation(), (ZRPoint{260, 420}));
    EXPECT_EQ(mask().regionSizeView().text(), QStringLiteral("60x80"));
    manager->mouseUp({{260, 420}, Qt::LeftButton});
    EXPECT_FALSE(mask().magnifierView().isShown());
    EXPECT_FALSE(mask().crossView().isCrossShown());

    move({230, 450});
    EXPECT_FALSE(mask().crossView().isCrossShown());
    EXPECT_EQ(overlay().cursor().shape(), Qt::SizeAllCursor);
    move({260, 420});
    EXPECT_EQ(overlay().cursor().shape(), Qt::SizeFDiagCursor);
    move({300, 300});
    EXPECT_EQ(overlay().cursor().shape(), Qt::ArrowCursor);

    manager->mouseDown({{260, 420}, Qt::LeftButton});
    manager->mouseDragged({{160, 440}, Qt::NoButton}); // the corner past the left edge
    EXPECT_TRUE(mask().magnifierView().isShown());
    EXPECT_EQ(overlay().cursor().shape(), Qt::SizeFDiagCursor);
    EXPECT_EQ(mask().regionSizeView().text(), QStringLiteral("40x60"));
    EXPECT_EQ(mask().regionSizeView().labelRect().origin(), (ZRPoint{160, 505}));
    manager->mouseUp({{160, 440}, Qt::LeftButton});
    EXPECT_FALSE(mask().magnifierView().isShown());
    EXPECT_EQ(mask().regionSizeView().labelRect().origin(), (ZRPoint{160, 505}));
}

TEST_F(ZRScreenShotManagerTest, CopiesTheColourUnderThePointerAndGoesOn)
{
    QApplication::clipboard()->clear();
    start(false);
    move({200, 500});
    press(Qt::Key_C);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("#c86401"));
    EXPECT_TRUE(outcomes.empty());
    QApplication::clipboard()->clear();
    drag({200, 500}, {260, 420});
    press(Qt::Key_C);
    EXPECT_TRUE(QApplication::clipboard()->text().isEmpty()) << "a fixed region has no colour";
}

TEST_F(ZRScreenShotManagerTest, StepsAFixedRegionWithTheArrowKeys)
{
    start(false);
    press(Qt::Key_Right);
    drag({0, 20}, {10, 10});
    for (const Qt::Key key :
        {Qt::Key_Right, Qt::Key_Up, Qt::Key_Left, Qt::Key_Left}) // the left edge stops it
        press(key);
    EXPECT_EQ(mask().regionRect(), (ZRRect{0, 11, 10, 10}));
    press(Qt::Key_Right, Qt::ShiftModifier);
    press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(mask().regionRect(), (ZRRect{0, 10, 11, 11}));
    EXPECT_EQ(mask().regionSizeView().text(), QStringLiteral("11x11"));
}

TEST_F(ZRScreenShotManagerTest, WalksThroughTheWindowsWithTheWheel)
{
    const auto window = [](QRect pixels) { return WindowRecord{pixels, QStringLiteral("program"), {}, 1}; };
    server().windows = {window({100, 50, 60, 40}), window({50, 20, 300, 200})};
    start(false);
    move({120, 530});
    EXPECT_EQ(mask().regionRect().size(), (ZRSize{60, 40}));
    manager->scrollWheel({{120, 530}, Qt::NoButton}, 120);
    EXPECT_EQ(mask().regionRect().size(), (ZRSize{300, 200}));
    manager->mouseDown({{121, 530}, Qt::LeftButton});
    manager->mouseUp({{121, 530}, Qt::LeftButton});
    EXPECT_EQ(mask().regionRect().size(), (ZRSize{300, 200})) << "a click takes it";
    manager->scrollWheel({{121, 530}, Qt::NoButton}, -120);
    EXPECT_EQ(mask().regionRect().size(), (ZRSize{300, 200})) << "and fixes it";
}
