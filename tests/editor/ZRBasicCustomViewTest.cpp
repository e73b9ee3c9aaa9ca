#include "editor/ZRBasicCustomView.h"

#include <gtest/gtest.h>

namespace {

using Shape = std::unique_ptr<ZRBasicCustomView>;

// Drawn from one point to another with a place on the way.
Shape drawn(const char* id, ZRPoint from, ZRPoint to)
{
    Shape shape = ZRBasicCustomView::createNewEntityWithGratiffitID(QLatin1String(id));
    shape->mouseDown(from);
    shape->mouseDragged({(from.x + to.x) / 2, (from.y + to.y) / 2});
    shape->mouseDragged(to);
    shape->setIsDrawDone();
    return shape;
}

// A press on a drawn shape, as the manager and the editor view make one.
bool press(ZRBasicCustomView& shape, ZRPoint point)
{
    if (!shape.isClickOn(point))
        return false;
    shape.registerFocusOn();
    shape.mouseDown(point);
    return true;
}

}

TEST(ZRBasicCustomView, CreatingDragSpansFromThePressEvenInOneJump)
{
    struct Case {
        const char* id;
        ZRRect expected; // of a drag from 10, 10 to 40, 30
    };
    const Case cases[] = {{"square", {10, 10, 30, 20}}, {"eillpse", {10, 10, 30, 20}},
        {"blur", {10, 10, 30, 20}}, {"mosic", {10, 10, 30, 20}}, {"arrow", {7, 7, 36, 26}},
        {"line", {8.5, 8.5, 33, 23}}, {"customLine", {6.5, 6.5, 37, 27}}, {"light", {5, 5, 40, 30}}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.id);
        const Shape shape = ZRBasicCustomView::createNewEntityWithGratiffitID(QLatin1String(c.id));
        shape->mouseDown({10, 10});
        EXPECT_FALSE(shape->record().hasPoints()); // a click draws nothing
        shape->mouseDragged({40, 30});
        EXPECT_EQ(shape->vctualRect(), c.expected);
        EXPECT_EQ(shape->dragPoints(), (DragPoints{{10, 10}, {40, 30}}));
        shape->setIsDrawDone();
        shape->mouseDragged({90, 90}); // not selected
        EXPECT_EQ(shape->vctualRect(), c.expected);
    }
}

TEST(ZRBasicCustomView, SelectedShapesMoveWithThePointer)
{
    const std::pair<const char*, ZRPoint> presses[] = {
        {"eillpse", {95, 95}}, {"arrow", {60, 60}}, {"line", {60, 60}}, {"customLine", {60, 60}}};
    for (const auto& [id, point] : presses) {
        SCOPED_TRACE(id);
        const Shape shape = drawn(id, {10, 10}, {110, 110});
        const ZRRect before = shape->vctualRect();
        ASSERT_TRUE(press(*shape, point));
        shape->mouseDragged({point.x + 5, point.y - 3});
        shape->mouseDragged({point.x + 20, point.y + 7});
        EXPECT_EQ(shape->vctualRect(), before.translated(20, 7));
        shape->revoke();
        EXPECT_EQ(shape->vctualRect(), before);
    }
}

TEST(ZRBasicCustomView, HandlesOfTheRectangleWorkAlwaysThoseOfTheEllipseWhenSelected)
{
    const ZRPoint corner{110, 110};
    const Shape square = drawn("square", {10, 10}, corner);
    EXPECT_TRUE(square->isClickOn(corner));
    EXPECT_EQ(square->clickOnFromDirection(), kTopRight);
    const Shape ellipse = drawn("eillpse", {10, 10}, corner);
    EXPECT_FALSE(ellipse->isClickOn(corner));
    ellipse->registerFocusOn();
    EXPECT_TRUE(ellipse->isClickOn(corner));
    EXPECT_EQ(ellipse->clickOnFromDirection(), kTopRight);
}

TEST(ZRBasicCustomView, DragAcrossTheOppositeEdgeGoesOnWithTheMirroredHandle)
{
    const Shape square = drawn("square", {10, 10}, {50, 50});
    ASSERT_TRUE(press(*square, {10, 50}));
    square->mouseDragged({70, 50});
    EXPECT_EQ(square->vctualRect(), (ZRRect{50, 10, 20, 40}));
    EXPECT_EQ(square->clickOnFromDirection(), kTopRight);
    square->mouseDragged({80, 60});
    EXPECT_EQ(square->vctualRect(), (ZRRect{50, 10, 30, 50}));
    square->setVctualRect({50, 40, -20, -30}); // which the release makes positive
    square->mouseUp({80, 60});
    EXPECT_EQ(square->vctualRect(), (ZRRect{30, 10, 20, 30}));
    EXPECT_EQ(square->clickOnFromDirection(), kNoHandle);
}

TEST(ZRBasicCustomView, ExtremePointsKeepTheOtherCoordinateOfTheFirst)
{
    const Shape stroke = drawn("customLine", {30, 40}, {10, 90});
    stroke->shift(1, 2);
    EXPECT_EQ(stroke->mostPointWithDirection(kSmallestX), (ZRPoint{11, 42}));
    EXPECT_EQ(stroke->mostPointWithDirection(kLargestX), (ZRPoint{31, 42}));
    EXPECT_EQ(stroke->mostPointWithDirection(kLargestY), (ZRPoint{31, 92}));
    EXPECT_EQ(stroke->mostPointWithDirection(kSmallestY), (ZRPoint{31, 42}));
}

TEST(ZRBasicCustomView, ShiftMovesWhatIsDrawnAndWhatCanBeRevoked)
{
    const Shape square = drawn("square", {10, 10}, {50, 50});
    ASSERT_TRUE(press(*square, {10, 50}));
    square->mouseDragged({0, 60});
    square->shift(-5, 100);
    EXPECT_EQ(square->vctualRect(), (ZRRect{-5, 110, 50, 50}));
    square->revoke();
    EXPECT_EQ(square->vctualRect(), (ZRRect{5, 110, 40, 40}));
}
