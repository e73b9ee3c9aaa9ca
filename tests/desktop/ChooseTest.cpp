#include "tests/desktop/ProgramTest.h"
#include "tests/desktop/TestWindow.h"

#include <array>

namespace {

const char* const kScales[] = {"1", "1.25", "1.5", "2"};

// Choosing a region in all its ways; device pixels.
class Choose : public EachDesktopTest {
protected:
    // Both desktops together see every scale.
    static std::array<const char*, 2> someScales()
    {
        return GetParam() ? std::array{"1.25", "2"} : std::array{"1", "1.5"};
    }
};

} // namespace

LUMORA_ON_EACH_DESKTOP(Choose);

TEST_P(Choose, AClickTakesTheSmallestWindowUnderThePointer)
{
    const QString display = m_desktop.displayName();
    const quint32 half = 0x80000000;
    TestWindow board(display, {{300, 250, 700, 450}});
    TestWindow nested(display, {{401, 343, 301, 207}, 3});
    TestWindow translucent(
        display, {{760, 350, 100, 100}, 0, false, true, nullptr, {{"_NET_WM_WINDOW_OPACITY", {half}}}});
    TestWindow dock(display, {{760, 520, 101, 63}, 0, false, false, "_NET_WM_WINDOW_TYPE_DOCK"});
    TestWindow menu(display, {{880, 360, 83, 111}, 2, true});
    TestWindow shadowed(
        display, {{60, 480, 200, 180}, 0, false, true, nullptr, {{"_GTK_FRAME_EXTENTS", {13, 11, 7, 17}}}});
    TestWindow cut(display, {{1150, 500, 300, 150}, 4});
    const QRect all(board.outline()), inner(nested.outline());
    struct Case {
        const char* what;
        QPoint click;
        QRect expected;
    };
    const Case cases[] = {
        {"a window", {330, 650}, all},
        {"the smaller of two", inner.center(), inner},
        {"its first row", {inner.x() + 60, inner.y()}, inner},
        {"the row above", {inner.x() + 60, inner.y() - 1}, all},
        {"its last row", {inner.x() + 60, inner.bottom()}, inner},
        {"the row below", {inner.x() + 60, inner.bottom() + 1}, all},
        {"its last column", {inner.right(), inner.bottom() - 20}, inner},
        {"the column beside", {inner.right() + 1, inner.bottom() - 20}, all},
        {"below a translucent one", translucent.outline().center(), all},
        {"below a dock", dock.outline().center(), all},
        {"one without a manager", menu.outline().center(), menu.outline()},
        {"one that draws its own shadow", {160, 560}, shadowed.outline().adjusted(13, 7, -11, -17)},
        {"one partly off the screen", {1220, 580}, cut.outline()},
    };
    for (const char* scale : kScales) {
        ASSERT_TRUE(startResidentAt(scale));
        for (const Case& c : cases) {
            SCOPED_TRACE(testing::Message() << c.what << " at scale " << scale);
            ASSERT_TRUE(openOverlayOnFreeGround());
            input().clickAt(c.click);
            EXPECT_TRUE(saves(c.expected & m_before.rect()));
        }
        EXPECT_EQ(m_program.quitResident(), 0);
    }
}

TEST_P(Choose, AHurriedHandIsFollowedWhileTheProgramIsBusy)
{
    TestWindow left(m_desktop.displayName(), {{300, 400, 200, 200}});
    TestWindow right(m_desktop.displayName(), {{700, 400, 200, 200}});
    struct Case {
        const char* what;
        std::function<void(Input&)> act;
        QRect expected;
    };
    const Case cases[] = {
        {"a click on the way", [](Input& input) { input.click(Button::Left); }, right.outline()},
        {"a drag",
            [](Input& input) {
                input.drag({750, 450}, {1000, 700});
            },
            {750, 450, 250, 250}},
    };
    ASSERT_TRUE(m_program.startResident());
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        ASSERT_TRUE(openOverlayOnFreeGround());
        input().moveTo(left.outline().center());
        const PausedProcess busy(m_program.resident());
        input().moveTo(right.outline().center());
        c.act(input());
        input().moveTo(left.outline().center()); // movements in a row arrive as one
        busy.goOn();
        EXPECT_TRUE(saves(c.expected));
    }
}

TEST_P(Choose, AClickOnTheBareRootFixesNothingThatCanBeSaved)
{
    input().moveTo(kFreeGround);
    const auto region = startRegion();
    ASSERT_TRUE(region);
    input().clickAt(kFreeGround);
    input().chord({Key::Control, Key::S});
    const Answer answer = Program::finish(*region);
    EXPECT_EQ(answer.exitCode, 1);
    EXPECT_TRUE(answer.err.contains(QLatin1String("the region holds no part of the display")));
    EXPECT_TRUE(Program::allFiles(m_program.saveFolder()).isEmpty());
    EXPECT_TRUE(m_program.waitForNoOverlay());
}

TEST_P(Choose, APressOnAHandleOfAHighlightedWindowResizesIt)
{
    TestWindow window(m_desktop.displayName(), {{400, 400, 301, 207}, 3});
    for (const char* scale : kScales) {
        SCOPED_TRACE(scale);
        ASSERT_TRUE(startResidentAt(scale));
        ASSERT_TRUE(openOverlayOnFreeGround());
        const QRect outline = window.outline();
        input().moveTo(outline.center());
        input().drag(outline.bottomRight(), outline.bottomRight() + QPoint(33, -27));
        EXPECT_TRUE(saves(outline.adjusted(0, 0, 33, -27)));
        EXPECT_EQ(m_program.quitResident(), 0);
    }
}

TEST_P(Choose, EveryHandlePullsItsOwnEdgesAndPastTheOppositeOne)
{
    struct Case {
        QPoint press, by;
        QRect first; // after the pull
        QPoint press2, by2;
        QRect second; // after a pull of the same handle past the opposite edge
    };
    const Case cases[] = {
        {{400, 300}, {31, 17}, {431, 317, 269, 183}, {431, 317}, {400, 300}, {700, 500, 131, 117}},
        {{550, 300}, {31, 17}, {400, 317, 300, 183}, {550, 317}, {9, 300}, {400, 500, 300, 117}},
        {{700, 300}, {31, 17}, {400, 317, 331, 183}, {731, 317}, {-400, 300}, {331, 500, 69, 117}},
        {{400, 400}, {31, 17}, {431, 300, 269, 200}, {431, 400}, {400, 9}, {700, 300, 131, 200}},
        {{700, 400}, {31, 17}, {400, 300, 331, 200}, {731, 400}, {-400, 9}, {331, 300, 69, 200}},
        {{400, 500}, {31, 17}, {431, 300, 269, 217}, {431, 517}, {400, -300}, {700, 217, 131, 83}},
        {{550, 500}, {31, 17}, {400, 300, 300, 217}, {550, 517}, {9, -300}, {400, 217, 300, 83}},
        {{700, 500}, {31, 17}, {400, 300, 331, 217}, {731, 517}, {-400, -300}, {331, 217, 69, 83}},
    };
    for (const char* scale : someScales()) {
        ASSERT_TRUE(startResidentAt(scale));
        for (const Case& c : cases) {
            SCOPED_TRACE(testing::Message()
                         << "handle at " << c.press.x() << ',' << c.press.y() << ", scale " << scale);
            ASSERT_TRUE(openOverlayOnFreeGround());
            input().drag({400, 300}, {700, 500});
            input().drag(c.press, c.press + c.by);
            const bool isPastToo = QByteArray(scale).size() > 1; // else the first pull alone
            if (isPastToo)
                input().drag(c.press2, c.press2 + c.by2);
            EXPECT_TRUE(saves(isPastToo ? c.second : c.first));
        }
        EXPECT_EQ(m_program.quitResident(), 0);
    }
}

TEST_P(Choose, AFixedRegionMovesByItsBodyAndItsEdgeWithinTheDisplay)
{
    struct Case {
        const char* what;
        QPointF press; // points beside the pixel 400,300, the region's corner
        QPoint by;
        QRect expected;
    };
    const QRect unmoved(400, 300, 300, 200);
    const Case cases[] = {
        {"by the body", {60, 60}, {-77, 131}, unmoved.translated(-77, 131)},
        {"by a press 3 points outside", {-3, 25}, {41, -53}, unmoved.translated(41, -53)},
        {"not by a press 5 points outside", {-5, 25}, {41, -53}, unmoved},
        {"not by a press 5 points above", {25, -5}, {41, 53}, unmoved},
        {"against the left", {60, 60}, {-440, 10}, {0, 310, 300, 200}},
        {"against the top", {60, 60}, {10, -330}, {410, 0, 300, 200}},
        {"against the right", {60, 60}, {700, 10}, {980, 310, 300, 200}},
        {"against the bottom", {60, 60}, {10, 370}, {410, 600, 300, 200}},
    };
    for (const char* scale : someScales()) {
        ASSERT_TRUE(startResidentAt(scale));
        const double pixels = QByteArray(scale).toDouble();
        for (const Case& c : cases) {
            SCOPED_TRACE(testing::Message() << c.what << " at scale " << scale);
            ASSERT_TRUE(openOverlayOnFreeGround());
            input().drag(unmoved.topLeft(), unmoved.topLeft() + QPoint(300, 200));
            const QPoint press = unmoved.topLeft() + (c.press * pixels).toPoint();
            input().drag(press, press + c.by);
            EXPECT_TRUE(saves(c.expected));
        }
        EXPECT_EQ(m_program.quitResident(), 0);
    }
}
