#include "tests/capture/ManagerTest.h"

#include "capture/RegionSizeView.h"
#include "capture/ScreenShotBackView.h"
#include "capture/ZRMagnifierView.h"
#include "capture/ZRScreenshotCursorView.h"
#include "capture/ZRStaticScreenShotWindow.h"
#include "output/ZRLocalNotificationCenter.h"

#include <QApplication>
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

TEST_F(ZRScreenShotManagerTest, DoesNothingWithAKeyBeforeTheRegionIsFixed)
{
    start(false);
    press(Qt::Key_S, Qt::ControlModifier);
    press(Qt::Key_Return);
    EXPECT_TRUE(outcomes.empty());
    EXPECT_TRUE(manager->frame());
}

TEST_F(ZRScreenShotManagerTest, AnswersAndTellsThatTheScreenCannotBeReadAndIsReadyAgain)
{
    auto& center = ZRLocalNotificationCenter::defaultLocalNotificationCenter();
    const std::vector<DisplayRecord> none, all = displays().all();
    const struct {
        const char* reason;
        const std::vector<DisplayRecord>& present;
    } cases[] = {{"the screen cannot be read", all}, {"there is no display", none}};
    center.isSilent = false;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.reason);
        outcomes.clear();
        displays().displays = c.present;
        server().refusal = QLatin1String(c.reason);
        start(false);
        ASSERT_TRUE(waitForOutcomes(1)); // once the notice before is off the screen
        EXPECT_EQ(outcomes[0].kind, CaptureOutcome::Kind::Failed);
        EXPECT_EQ(outcomes[0].reason, QLatin1String(c.reason));
        ASSERT_TRUE(isIdleSoon());
        EXPECT_EQ(center.windows().size(), size_t(&c - cases) + 1);
    }
    center.isSilent = true;
    displays().displays = all;
    server().refusal.clear();
    start(false);
    EXPECT_TRUE(QTest::qWaitFor([this] { return manager->frame() != nullptr; }, 1000));
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
