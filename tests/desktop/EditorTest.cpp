#include "tests/desktop/AnnotatingTest.h"

namespace {

constexpr QPoint kNowhere(1060, 525); // on the region, where no test draws

struct Drawing {
    int tool; // its digit
    QPoint from, to;
    QPoint grip; // where a press takes the whole of it, whatever its width
    QRect cell;  // holds all that is drawn
};
constexpr Drawing kDrawings[] = {
    {kRectangle, {180, 110}, {330, 200}, {220, 110}, {150, 80, 220, 160}},
    {kEllipse, {450, 110}, {610, 200}, {582, 126}, {410, 80, 240, 160}},
    {kArrow, {740, 210}, {930, 120}, {835, 165}, {700, 80, 280, 160}},
    {kPencil, {180, 360}, {330, 435}, {230, 385}, {150, 320, 220, 160}},
    {kHighlighter, {460, 360}, {610, 435}, {510, 385}, {410, 320, 240, 160}},
    {kLine, {740, 440}, {930, 350}, {835, 395}, {700, 320, 280, 160}},
};

// By at most a pixel on each side: where a soft edge ends is not to the point.
testing::AssertionResult isNear(const QRect& actual, const QRect& expected)
{
    if (actual.adjusted(-1, -1, 1, 1).contains(expected) && expected.adjusted(-1, -1, 1, 1).contains(actual))
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << actual.x() << ',' << actual.y() << ' ' << actual.width() << 'x'
                                       << actual.height() << " instead of " << expected.x() << ','
                                       << expected.y() << ' ' << expected.width() << 'x' << expected.height();
}

class Editor : public AnnotatingTest {
protected:
    void draw(const Drawing& drawing)
    {
        arm(drawing.tool);
        drag(drawing.from, drawing.to);
    }
    void deselect() { clickAt(kNowhere); }
};

} // namespace

LUMORA_ON_EACH_DESKTOP(Editor);

TEST_P(Editor, FileIsTheFrameBesideTheAnnotationsAndTheOverlayInside)
{
    for (const Drawing& drawing : kDrawings)
        draw(drawing);
    clickAt(kDrawings[0].grip); // its handles are not in the file
    const QImage selected = screen();
    deselect();
    const QImage overlay = screen();
    EXPECT_NE(selected, overlay);
    for (const Drawing& drawing : kDrawings) {
        SCOPED_TRACE(drawing.tool);
        const QRect drawn = changed(overlay.copy(drawing.cell), m_before.copy(drawing.cell));
        EXPECT_GE(drawn.width(), std::abs(drawing.to.x() - drawing.from.x()));
        EXPECT_GE(drawn.height(), std::abs(drawing.to.y() - drawing.from.y()));
    }
    clickAt(kDrawings[1].grip);
    QImage file = saved();
    ASSERT_FALSE(file.isNull());
    EXPECT_TRUE(samePixels(file.copy(inside()), overlay.copy(inside())));
    for (const Drawing& drawing : kDrawings)
        put(file, m_before, drawing.cell);
    EXPECT_TRUE(samePixels(file, m_before));
}

TEST_P(Editor, HandlesResizeAndUndoTakesItBack)
{
    const QRect drawn(400, 300, 200, 120); // its right and bottom edges are places of the pointer
    struct Case {
        int tool;
        QPoint onLine; // from the top left corner
    };
    for (const auto& [tool, onLine] : {Case{kRectangle, {29, 0}}, Case{kEllipse, {29, 17}}}) {
        arm(tool);
        drag(drawn.topLeft(), drawn.topLeft() + QPoint(200, 120));
        const QRect original = ink();
        const int half = 3 * scale() / 2;
        EXPECT_TRUE(isNear(original, drawn.adjusted(-half, -half, half, half)));
        for (int handle = 0; handle < 9; ++handle) {
            const int column = handle % 3, row = handle / 3;
            if (column == 1 && row == 1)
                continue;
            SCOPED_TRACE(testing::Message() << tool << " at " << column << ',' << row);
            clickAt(drawn.topLeft() + onLine);
            const QPoint press = drawn.topLeft() + QPoint(100 * column, 60 * row);
            drag(press, press + QPoint(24, 16));
            deselect();
            QRect expected = original;
            expected.adjust(column == 0 ? 24 : 0, row == 0 ? 16 : 0, column == 2 ? 24 : 0, row == 2 ? 16 : 0);
            EXPECT_TRUE(isNear(ink(), expected));
            undo();
            undo(); // the click that selected it
            EXPECT_EQ(ink(), original);
        }
        undo();
        EXPECT_TRUE(samePixels(screen(), m_before));
    }
}

TEST_P(Editor, ShapesMoveAreRestyledUndoneAndRedone)
{
    for (const Drawing& drawing : kDrawings) {
        SCOPED_TRACE(drawing.tool);
        draw(drawing);
        const QImage first = screen();
        drag(drawing.grip, drawing.grip + QPoint(11, 70));
        deselect();
        const QImage moved = screen();
        EXPECT_TRUE(isNear(changed(moved, m_before), changed(first, m_before).translated(11, 70)));
        clickAt(drawing.grip + QPoint(11, 70));
        style(kThick, kGreen);
        deselect();
        EXPECT_TRUE(changed(screen(), m_before).contains(changed(moved, m_before)));
        EXPECT_NE(screen(), moved);
        clickAt(drawing.grip + QPoint(11, 70));
        style(kThin, kRed);
        deselect();
        EXPECT_TRUE(samePixels(screen(), moved));
        for (int press = 0; press < 3; ++press) // two clicks and the move
            undo();
        EXPECT_TRUE(samePixels(screen(), first));
        redo();
        EXPECT_TRUE(samePixels(screen(), moved));
        undo();
        undo();
        EXPECT_TRUE(samePixels(screen(), m_before));
        redo();
        EXPECT_TRUE(samePixels(screen(), first));
        undo();
    }
}

TEST_P(Editor, EndsOfLinesMoveAlone)
{
    for (const Drawing& drawing : {kDrawings[2], kDrawings[5]}) {
        SCOPED_TRACE(drawing.tool);
        draw(drawing);
        const QRect before = ink();
        clickAt(drawing.grip);
        drag(drawing.from, drawing.from + QPoint(-20, 30));
        deselect();
        EXPECT_TRUE(isNear(ink(), before.adjusted(-20, 0, 0, 30)));
        undo();
        undo();
        EXPECT_EQ(ink(), before);
        undo();
    }
}

TEST_P(Editor, EraserAndDeleteKeyTakeAndUndoBrings)
{
    for (const Drawing& drawing : kDrawings)
        draw(drawing);
    const QImage all = screen();
    arm(kEraser);
    clickAt(kDrawings[2].grip);
    const QImage erased = screen();
    EXPECT_TRUE(kDrawings[2].cell.contains(changed(all, erased)));
    EXPECT_TRUE(samePixels(erased.copy(kDrawings[2].cell), m_before.copy(kDrawings[2].cell)));
    undo();
    EXPECT_TRUE(samePixels(screen(), all));
    redo();
    EXPECT_TRUE(samePixels(screen(), erased));
    arm(kLine);
    clickAt(kDrawings[5].grip);
    input().chord({Key::BackSpace});
    EXPECT_TRUE(samePixels(screen().copy(kDrawings[5].cell), m_before.copy(kDrawings[5].cell)));
    undo();
    EXPECT_TRUE(samePixels(screen(), erased));
    for (int step = 0; step < 10; ++step)
        undo();
    EXPECT_TRUE(samePixels(screen(), m_before));
}

TEST_P(Editor, AnnotationsFollowAMovedRegionAndStayInAResizedOne)
{
    draw(kDrawings[1]);
    clickAt(toolbars().tool(kEllipse)); // which disarms it
    const QRect drawn = ink();
    drag(kRegion.topLeft(), kRegion.topLeft() + QPoint(-40, -30));
    EXPECT_EQ(
        changed(screen().copy(inside()), m_before.copy(inside())), drawn.translated(-inside().topLeft()));
    const QPoint press(800, 480);
    drag(press, press + QPoint(20, 14));
    const QImage overlay = screen();
    const QRect area = inside();
    EXPECT_TRUE(isNear(
        changed(overlay.copy(area), m_before.copy(area)), drawn.translated(QPoint(20, 14) - area.topLeft())));
    const QImage picture = pictureAfter({Key::Control, Key::S});
    const QPoint corner = kRegion.topLeft() + QPoint(-20, -16);
    ASSERT_EQ(picture.size(), kRegion.size() + QSize(40, 30));
    EXPECT_TRUE(samePixels(picture.copy(area.translated(-corner)), overlay.copy(area)));
}

TEST_P(Editor, DrawingStaysInsideTheRegionAndTheRightButtonEndsIt)
{
    arm(kPencil);
    input().moveTo({500, 300});
    input().press(Button::Left);
    for (const QPoint point : {QPoint(1240, 30), QPoint(20, 760), QPoint(600, 400)})
        input().moveTo(point);
    const QImage drawing = screen();
    EXPECT_TRUE(kRegion.contains(changed(drawing, m_before)));
    input().press(Button::Right);
    input().release(Button::Right);
    EXPECT_TRUE(m_program.waitForNoOverlay());
    input().release(Button::Left);
    EXPECT_TRUE(waitForRest());
    EXPECT_TRUE(m_program.savedPictures().isEmpty());
}

TEST_P(Editor, DisplayThatGoesInTheMiddleOfADrawingEndsTheCapture)
{
    arm(kPencil);
    input().moveTo({500, 300});
    input().press(Button::Left);
    input().moveTo({600, 400});
    ASSERT_TRUE(m_desktop.setDisplay("OTHER", {0, 0, 800, 600}));
    EXPECT_TRUE(m_program.waitForNoOverlay());
    input().moveTo({700, 500});
    input().release(Button::Left);
    EXPECT_TRUE(waitForRest());
    EXPECT_TRUE(m_program.answers());
}

TEST_P(Editor, FreehandStrokeKeepsItsCorners)
{
    arm(kPencil);
    style(kMedium, kRed);
    screen(); // at rest
    input().moveTo({200, 500});
    input().press(Button::Left);
    for (int corner = 1; corner <= 30; ++corner)
        input().moveTo({200 + 20 * corner, corner % 2 ? 300 : 500});
    input().release(Button::Left);
    const QImage drawn = screen();
    for (int corner = 1; corner < 30; ++corner) {
        const QPoint point(200 + 20 * corner, corner % 2 ? 300 : 500);
        EXPECT_EQ(drawn.pixel(point), qRgb(255, 0, 0)) << corner;
    }
}
