#include "editor/ZRScreenShotToolbarItem.h"

#include "editor/ScreenShotToolbarItem.h"
#include "editor/ZRLineWidthControlItem.h"
#include "editor/ZRToolTips.h"
#include "tests/customui/ButtonStage.h"

#include <QTest>

#include <gtest/gtest.h>

namespace {

const QColor kHighlight(206, 224, 255);

// A tooltip that is to come or that shows.
bool hasTooltip()
{
    return ZRToolTips::sharedTooltipsWindow() != nullptr;
}

}

TEST(ZRScreenShotToolbarItem, IsHighlightedWhileItIsOnAndBlankWithoutAPicture)
{
    ButtonStage stage;
    ZRScreenShotToolbarItem item;
    stage.add(item);
    item.updateImage(QStringLiteral("save"));
    const QColor off = stage.picture(item).pixelColor(16, 2);
    EXPECT_NE(off, kHighlight);
    item.setState(true);
    EXPECT_EQ(stage.picture(item).pixelColor(16, 2), kHighlight);
    item.updateImage(QStringLiteral("copy"));
    EXPECT_FALSE(item.state());
    EXPECT_EQ(stage.picture(item).pixelColor(16, 2), off);
    ZRScreenShotToolbarItem blank;
    stage.add(blank);
    item.updateImage(QStringLiteral("missing"));
    EXPECT_EQ(stage.picture(item), stage.picture(blank));
    item.sendAction();
    EXPECT_EQ(stage.clicks, 1);
}

TEST(ZRScreenShotToolbarItem, KeepsItsHoverAfterAClickAsAColourItemAndATooltipWhereItHasOne)
{
    for (const bool isColorItem : {true, false}) {
        SCOPED_TRACE(isColorItem);
        ButtonStage stage;
        ZRScreenShotToolbarItem item;
        stage.add(item);
        item.setColorItem(isColorItem);
        item.setToolTip(isColorItem ? QString() : QStringLiteral("Save"));
        item.mouseUp(stage.at(stage.kInside));
        EXPECT_EQ(item.isMouseInside(), isColorItem);
        EXPECT_EQ(stage.clicks, 1);
        item.mouseEntered();
        EXPECT_EQ(hasTooltip(), !isColorItem);
        item.mouseExited();
        EXPECT_FALSE(hasTooltip());
    }
}

TEST(ScreenShotToolbarItem, KeepsItsStateItself)
{
    struct Case {
        const char* what;
        bool hasID, isSelected, isReleasedInside;
        const char *entered, *released, *left;
    };
    const Case cases[] = {
        {"a plain one", false, false, true, "save-hover", "save-normal", "save-normal"},
        {"one with an identifier", true, false, true, "save-hover", "save-down", "save-normal"},
        {"a selected one", true, true, true, "save-down", "save-down", "save-down"},
        {"released outside", true, false, false, "save-hover", "save-normal", "save-normal"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        ButtonStage stage;
        ScreenShotToolbarItem item, plain;
        item.updateNormalImage(
            QStringLiteral("save-normal"), QStringLiteral("save-hover"), QStringLiteral("save-down"));
        item.setControlID(c.hasID ? QStringLiteral("id") : QString());
        item.setIsSelected(c.isSelected);
        stage.add(item);
        plain.resize(32, 32);
        const auto shows = [&](const char* image) {
            plain.setImage(QLatin1String(image));
            return stage.picture(item) == stage.picture(plain);
        };
        item.mouseEntered();
        EXPECT_TRUE(shows(c.entered));
        item.mouseDown(stage.at(stage.kInside));
        EXPECT_TRUE(shows("save-down"));
        item.mouseUp(stage.at(c.isReleasedInside ? stage.kInside : stage.kOutside));
        EXPECT_TRUE(shows(c.released));
        EXPECT_EQ(stage.clicks, c.isReleasedInside ? 1 : 0);
        item.mouseExited();
        EXPECT_TRUE(shows(c.left));
    }
}

TEST(ZRLineWidthControlItem, StaysPressedWhileItIsSelected)
{
    for (const bool isSelected : {false, true}) {
        SCOPED_TRACE(isSelected);
        ButtonStage stage;
        ZRLineWidthControlItem item({}, {}, {}, {});
        stage.add(item);
        item.setIsSelected(isSelected);
        item.mouseEntered();
        EXPECT_EQ(item.isPressed(), isSelected);
        item.mouseDown(stage.at(stage.kInside));
        EXPECT_TRUE(item.isPressed());
        item.mouseUp(stage.at(stage.kInside));
        item.mouseExited();
        EXPECT_EQ(item.isPressed(), isSelected);
    }
}

TEST(ZRToolTips, StandsAtThePointerAndTakesNoEvents)
{
    ButtonStage stage;
    QCursor::setPos(stage.window.mapToGlobal(QPoint(190, 60)));
    ZRToolTips::setToolTips(QStringLiteral("Some text"));
    ZRToolTips::showToolTips(stage.window);
    ZRToolTips* tooltip = ZRToolTips::sharedTooltipsWindow();
    EXPECT_FALSE(tooltip->isVisible());
    ASSERT_TRUE(QTest::qWaitFor([&] { return tooltip->isVisible(); }));
    EXPECT_EQ(tooltip->geometry().right() + 1, 200 - 5) << "short of the right edge";
    EXPECT_EQ(tooltip->geometry().bottom() + 1, 60) << "above the pointer";
    EXPECT_EQ(stage.window.childAt(180, 50), nullptr);
    ZRToolTips::hiddenToolTips();
    EXPECT_FALSE(hasTooltip());
}

TEST(ZRToolTips, OneThatIsGoneNeverComes)
{
    ButtonStage stage;
    ZRToolTips::setToolTips(QStringLiteral("Some text"));
    ZRToolTips::showToolTips(stage.window);
    ZRToolTips::hiddenToolTips();
    QTest::qWait(300);
    for (const auto* child : stage.window.findChildren<QWidget*>())
        EXPECT_FALSE(child->isVisible());
}
