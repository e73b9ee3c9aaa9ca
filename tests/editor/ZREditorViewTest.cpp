#include "editor/ZRTextEditor.h"
#include "tests/editor/EditorTest.h"

#include <QTest>

#include <cmath>
#include <random>

namespace {

class ZREditorViewTest : public EditorTest {
protected:
    using EditorTest::EditorTest;

    // The same annotations painted anew.
    QImage paintedAnew() const
    {
        const DisplayRecord& display = m_frame->display();
        GraffitCanvas canvas(
            m_frame->image(), {display.scale, 0, 0, -display.scale, view0().frame().x * display.scale,
                                  display.pixels.height() - view0().frame().y * display.scale});
        const std::vector<EntityRecord> all = m_manager.allRecords();
        for (const EntityRecord& record : all)
            canvas.invalidate(record);
        canvas.repaint(all, nullptr);
        return canvas.composed(regionPixels());
    }

private:
    const ZREditorView& view0() const { return *m_manager.editorView(); }
};

class RandomGestures : public ZREditorViewTest {
protected:
    RandomGestures()
        : ZREditorViewTest({420, 310}, 1.25)
    {
    }
    int below(int limit) { return int(m_random() % unsigned(limit)); }
    ZRPoint place() { return {below(3800) / 10.0 - 40, below(2800) / 10.0 - 40}; }
    void gesture();
    void type();
    void act();
    testing::AssertionResult isSound() const;

    std::minstd_rand m_random{6};
};

// A drag that may begin on an annotation, leave the region or never end.
void RandomGestures::gesture()
{
    const char* tools[] = {"square", "eillpse", "arrow", "customLine", "light", "line", "text", "mosic",
        "blur", "rubber", "cancel"};
    if (below(3) == 0)
        m_manager.updateGraffitID(QLatin1String(tools[below(11)]));
    ZRPoint from = place();
    const std::vector<EntityRecord> all = records();
    if (!all.empty() && below(2)) {
        const EntityRecord& one = all[size_t(below(int(all.size())))];
        from = one.hasPoints() && below(2) ? one.start()
                                           : HandleRules::handlePoint(one.bounds, kTopLeft + below(8));
    }
    view().mouseDown(at(from, 1 + (below(20) == 0)));
    for (int step = below(4); step > 0; --step)
        view().mouseDragged(at(place()));
    if (below(30))
        view().mouseUp(at(below(2) ? place() : from));
}

void RandomGestures::type()
{
    constexpr Qt::Key keys[] = {
        Qt::Key_A, Qt::Key_W, Qt::Key_Space, Qt::Key_Backspace, Qt::Key_Home, Qt::Key_Return};
    for (int i = below(8); i > 0 && view().editingEditor(); --i)
        QTest::keyClick(view().editingEditor()->textField(), keys[below(6)]);
}

void RandomGestures::act()
{
    switch (below(24)) {
    case 0:
        return m_manager.deleteGraffitFromBackSpace();
    case 1:
    case 2:
        return m_manager.undoDrawView();
    case 3:
    case 4:
        return m_manager.goForwardDrawView();
    case 5:
        return m_manager.goBackDrawView();
    case 6:
        return m_manager.setLineWidth(1 + below(20));
    case 7:
        return m_manager.setCurColor(QColor::fromRgb(m_random()));
    case 8:
        return m_manager.clearFocusOnGraffitView();
    case 9:
    case 10:
        return type();
    case 11:
        return m_manager.updateGraffitView(kRegion.translated(below(20), below(20)));
    default:
        return gesture();
    }
}

testing::AssertionResult RandomGestures::isSound() const
{
    for (const EntityRecord& record : records()) {
        const ZRRect& r = record.bounds;
        if (!std::isfinite(r.x + r.y + r.width + r.height))
            return testing::AssertionFailure() << qPrintable(record.idName) << " is nowhere";
        if (r.width < 0 || r.height < 0)
            return testing::AssertionFailure() << qPrintable(record.idName) << " has a negative size";
    }
    return testing::AssertionSuccess();
}

}

TEST_F(ZREditorViewTest, DragIsShownAsItGoes)
{
    m_manager.updateGraffitID(QStringLiteral("eillpse"));
    view().mouseDown(at({60, 60}));
    view().mouseDragged(at({100, 90}));
    view().mouseDragged(at({160, 140}));
    const QImage dragged = shown();
    EXPECT_NE(dragged, m_frame->image());
    view().mouseUp(at({160, 140}));
    EXPECT_EQ(shown(), dragged);
}

TEST_F(ZREditorViewTest, MarksTravelWithAMovedRegionAndStayInAResizedOne)
{
    draw("square", {60, 60}, {160, 140});
    draw("arrow", {70, 70}, {150, 130});
    const QImage before = shown();
    m_manager.updateGraffitView({20, 20, 330, 210}); // larger to the left and below
    EXPECT_EQ(shown(), before);
    EXPECT_EQ(records()[0].bounds, (ZRRect{80, 70, 100, 80}));
    EXPECT_EQ(paintedAnew(), picture());
    m_manager.updateGraffitView({25, 13, 330, 210});
    EXPECT_NE(shown(), before);
    EXPECT_EQ(records()[0].bounds, (ZRRect{80, 70, 100, 80}));
    EXPECT_EQ(paintedAnew(), picture());
    m_manager.undoDrawView();
    m_manager.undoDrawView();
    EXPECT_EQ(shown(), m_frame->image());
}

TEST_F(ZREditorViewTest, UndoAfterAResizeStaysOnThePicture)
{
    draw("arrow", {60, 60}, {160, 140});
    const QImage before = shown();
    drag({60, 60}, {60, 20});
    draw("square", {200, 100}, {250, 150});
    click({200, 120});
    m_manager.deleteGraffitFromBackSpace();
    m_manager.updateGraffitView({20, 20, 330, 210});
    m_manager.undoDrawView(); // the deletion
    EXPECT_EQ(records()[1].bounds, (ZRRect{220, 110, 50, 50}));
    m_manager.undoDrawView();
    m_manager.undoDrawView();
    m_manager.undoDrawView();
    EXPECT_EQ(shown(), before);
    m_manager.goForwardDrawView();
    m_manager.updateGraffitView({40, 30, 300, 200});
    m_manager.undoDrawView();
    EXPECT_EQ(records()[0].bounds, (ZRRect{58.5, 58.5, 103, 83}));
}

TEST_F(ZREditorViewTest, ReleaseThatNeverCameEndsTheDrawing)
{
    m_manager.updateGraffitID(QStringLiteral("square"));
    view().mouseDown(at({50, 50}));
    view().mouseDragged(at({100, 100}));
    drag({50, 70}, {70, 70}); // takes its left side
    EXPECT_EQ(count(), 1U);
    EXPECT_EQ(records()[0].bounds, (ZRRect{70, 50, 50, 50}));
}

TEST_F(ZREditorViewTest, UndoInTheMiddleOfADragLeavesNothingBehind)
{
    m_manager.updateGraffitID(QStringLiteral("customLine"));
    view().mouseDown(at({50, 50}));
    view().mouseDragged(at({100, 100}));
    m_manager.undoDrawView();
    view().mouseDragged(at({150, 100}));
    view().mouseUp(at({150, 100}));
    EXPECT_EQ(picture(), untouched());
    m_manager.goForwardDrawView();
    EXPECT_EQ(count(), 1U);
    drag({50, 50}, {60, 60}); // it is a whole annotation
    EXPECT_EQ(records()[0].dragPoints->size(), 2U);
}

TEST_F(RandomGestures, LeaveAWholePictureAndUndoToNothing)
{
    for (int i = 0; i < 10000; ++i) {
        act();
        ASSERT_TRUE(isSound()) << i;
        if (i % 100 == 0) {
            ASSERT_EQ(picture(), paintedAnew()) << i;
        }
        if (i % 250 == 249) {
            m_manager.clearFocusOnGraffitView();
            m_manager.updateGraffitView(kRegion);
            while (!m_manager.allRecords().empty())
                m_manager.goBackDrawView();
            ASSERT_EQ(picture(), untouched()) << i;
        }
    }
}
