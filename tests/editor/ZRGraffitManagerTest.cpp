#include "tests/editor/EditorTest.h"

namespace {

class ZRGraffitManagerTest : public EditorTest {
protected:
    QStringList tools() const
    {
        QStringList ids;
        for (const EntityRecord& record : records())
            ids << record.idName;
        return ids;
    }
    // A press on the top left corner of a drawn square, pulled by a distance.
    void pullCorner(ZRPoint corner, double by) { drag(corner, {corner.x - by, corner.y + by}); }
};

}

TEST_F(ZRGraffitManagerTest, NewAnnotationsTakeTheCurrentStyleAndSoDoesTheSelectedOne)
{
    m_manager.setLineWidth(9);
    m_manager.setCurColor(Qt::blue);
    draw("arrow", {10, 10}, {100, 100});
    m_manager.setLineWidth(4); // nothing is selected
    EXPECT_EQ(records()[0].drawLineWidth, 9);
    EXPECT_EQ(records()[0].drawColor, QColor(Qt::blue));
    click({60, 60});
    const QImage before = picture();
    m_manager.setLineWidth(6);
    m_manager.setCurColor(Qt::green);
    EXPECT_EQ(records()[0].drawLineWidth, 6);
    EXPECT_EQ(records()[0].drawColor, QColor(Qt::green));
    EXPECT_NE(picture(), before);
}

TEST_F(ZRGraffitManagerTest, PressTakesTheLowestToTheFrontAndEarlierSelectionsStayMarked)
{
    draw("square", {10, 10}, {100, 100});
    draw("line", {15, 60}, {90, 60});
    draw("square", {120, 120}, {10, 10});
    click({10, 30}); // on both squares
    EXPECT_EQ(
        tools(), QStringList({QStringLiteral("line"), QStringLiteral("square"), QStringLiteral("square")}));
    EXPECT_EQ(records()[2].bounds, (ZRRect{10, 10, 90, 90}));
    EXPECT_TRUE(records()[2].focusOn);
    click({120, 110});
    EXPECT_EQ(records()[2].bounds, (ZRRect{10, 10, 110, 110}));
    drag({200, 130}, {250, 150}); // on nothing: deselects the last one, and only the next one draws
    EXPECT_EQ(count(), 3U);
    EXPECT_TRUE(records()[1].focusOn);
    EXPECT_FALSE(records()[2].focusOn);
    drag({200, 130}, {250, 150});
    EXPECT_EQ(count(), 4U);
}

TEST_F(ZRGraffitManagerTest, DoubleClickMakesOneAnnotation)
{
    m_manager.updateGraffitID(QStringLiteral("square"));
    click({50, 50});
    view().mouseDown(at({50, 50}, 2));
    view().mouseDragged(at({90, 90}));
    view().mouseUp(at({90, 90}));
    EXPECT_EQ(count(), 1U);
    EXPECT_EQ(picture(), untouched());
    m_manager.goBackDrawView();
    EXPECT_EQ(count(), 0U);
}

TEST_F(ZRGraffitManagerTest, EraserTakesWhatItTouchesAndOnlyUndoBringsItBack)
{
    draw("square", {10, 10}, {100, 100});
    draw("square", {150, 10}, {250, 100});
    const QImage both = picture();
    m_manager.updateGraffitID(QStringLiteral("rubber"));
    click({120, 150}); // nothing
    click({10, 30});
    EXPECT_EQ(count(), 1U);
    m_manager.undoDrawView();
    EXPECT_EQ(picture(), both);
    EXPECT_EQ(records()[0].bounds.x, 10);
    EXPECT_FALSE(records()[0].focusOn);
    m_manager.goForwardDrawView();
    m_manager.goBackDrawView(); // works on the last annotation that is there
    EXPECT_EQ(count(), 0U);
    for (const size_t left : {1U, 0U}) { // the eraser's press was none of its own
        m_manager.undoDrawView();
        EXPECT_EQ(count(), left);
    }
}

TEST_F(ZRGraffitManagerTest, UndoTakesBackOnePressAtATimeThenTheAnnotation)
{
    draw("square", {50, 50}, {100, 100});
    std::vector<QImage> pictures{untouched(), picture()};
    pullCorner({50, 100}, 10);
    pictures.push_back(picture());
    pullCorner({40, 110}, 15);
    pictures.push_back(picture());
    EXPECT_EQ(records()[0].bounds, (ZRRect{25, 50, 75, 75}));
    for (int step : {2, 1, 0}) {
        m_manager.goBackDrawView();
        EXPECT_EQ(picture(), pictures[size_t(step)]) << step;
    }
    EXPECT_EQ(count(), 0U);
    m_manager.goBackDrawView();
    for (int step : {1, 2, 3}) {
        m_manager.goForwardDrawView();
        EXPECT_EQ(picture(), pictures[size_t(step)]) << step;
    }
    m_manager.goForwardDrawView();
    EXPECT_EQ(count(), 1U);
}

TEST_F(ZRGraffitManagerTest, LinesComeBackWhereTheyWereWithOneUndoAndWithTheirRectangleWithTheOther)
{
    struct Case {
        const char* tool;
        bool isRestored;
    };
    const Case cases[] = {{"arrow", true}, {"customLine", true}, {"light", true}, {"line", true},
        {"arrow", false}, {"customLine", false}};
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.tool << ' ' << c.isRestored);
        draw(c.tool, {50, 50}, {150, 50});
        const QImage before = picture();
        const ZRRect rect = records()[0].bounds;
        drag({50, 50}, {50, 120});
        const QImage after = picture();
        c.isRestored ? m_manager.undoDrawView() : m_manager.goBackDrawView();
        EXPECT_EQ(records()[0].bounds, rect);
        EXPECT_EQ(picture(), c.isRestored ? before : after);
        m_manager.goForwardDrawView();
        EXPECT_EQ(picture(), after);
        m_manager.undoDrawView();
        m_manager.undoDrawView();
        EXPECT_EQ(count(), 0U);
    }
}

TEST_F(ZRGraffitManagerTest, RedoEndsWithTheNextChange)
{
    draw("square", {50, 50}, {100, 100});
    m_manager.undoDrawView();
    draw("line", {10, 10}, {90, 10});
    m_manager.goForwardDrawView();
    EXPECT_EQ(tools(), QStringList(QStringLiteral("line")));
}

TEST_F(ZRGraffitManagerTest, CountOfAnnotationsIsNarrowed)
{
    m_manager.updateGraffitID(QStringLiteral("square"));
    EXPECT_FALSE(m_manager.isCanRevoke());
    for (size_t i = 1; i <= 257; ++i) {
        click({5, 5});
        EXPECT_EQ(m_manager.isCanRevoke(), i != 256) << i;
    }
    for (int i = 0; i < 257; ++i)
        m_manager.goBackDrawView();
    EXPECT_EQ(count(), 0U);
}

TEST_F(ZRGraffitManagerTest, PointerSaysWhatAPressWouldDo)
{
    std::vector<Qt::CursorShape> shapes;
    m_manager.onCursor = [&shapes](Qt::CursorShape shape) { shapes.push_back(shape); };
    view().mouseMoved(at({50, 50}));
    EXPECT_TRUE(shapes.empty()); // no tool
    draw("square", {50, 50}, {100, 100});
    struct Case {
        ZRPoint place;
        Qt::CursorShape shape;
    };
    const Case cases[] = {{{20, 20}, Qt::CrossCursor}, {{50, 60}, Qt::OpenHandCursor},
        {{50, 100}, Qt::OpenHandCursor}, {{100, 75}, Qt::ClosedHandCursor}};
    for (const Case& c : cases) {
        view().mouseMoved(at(c.place));
        EXPECT_EQ(shapes.back(), c.shape) << c.place.x;
    }
    view().mouseDown(at({50, 60}));
    EXPECT_EQ(shapes.back(), Qt::ClosedHandCursor);
    view().mouseUp(at({50, 60}));
    EXPECT_EQ(shapes.back(), Qt::OpenHandCursor);
}
