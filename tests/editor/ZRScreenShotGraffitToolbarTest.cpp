#include "editor/ZRScreenShotGraffitToolbar.h"

#include "tests/editor/ToolbarStage.h"

#include <map>

namespace {

class GraffitToolbar : public ToolbarTest<ZRScreenShotGraffitToolbar> {
protected:
    GraffitToolbar() { show(); }

    QStringList on() const
    {
        QStringList names;
        for (auto* found : toolbar.findChildren<ZRScreenShotToolbarItem*>())
            if (found->state())
                names << found->accessibleName();
        return names;
    }
    bool hasRibbon() const { return !visible<ZRColorControlItem>().empty(); }
};

}

TEST_F(GraffitToolbar, EveryItemNamesItselfItsKeyAndItsAction)
{
    struct Row {
        const char *name, *tooltip, *action;
    };
    const Row rows[] = {
        {"Rectangle", "Rectangle(1)", "rectangle"},
        {"Ellipse", "Ellipse(2)", "ellipse"},
        {"Arrow", "Arrow(3)", "arrow"},
        {"Line", "Line(4)", "line"},
        {"Pencil", "Pencil(5)", "pencil"},
        {"Highlighter", "Highlighter(6)", "highlighter"},
        {"Text", "Text(7)", "text"},
        {"Blur", "Blur(8)", "blur"},
        {"Eraser", "Eraser(9)", "eraser"},
        {"Undo", "Undo(Ctrl+Z)", "undo"},
        {"Redo", "Redo(Ctrl+Shift+Z)", "redo"},
        {"Save", "Save(Ctrl+S)", "save"},
    };
    actions.onTool = [](ZRScreenShotToolbarItem&) {};
    int digit = 0;
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        expectStarts(row.name, row.tooltip, row.action);
        toolbar.pressTool(++digit);
        EXPECT_EQ(actions.taken(), digit <= 9 ? QStringList(QLatin1String(row.action)) : QStringList());
    }
}

TEST_F(GraffitToolbar, OneToolIsOnAtMost)
{
    struct Step {
        const char* clicked;
        QStringList on;
        bool hasRibbon;
    };
    const auto names = [](const char* name) { return QStringList(QLatin1String(name)); };
    const Step steps[] = {
        {"Arrow", names("Arrow"), true},
        {"Ellipse", names("Ellipse"), true},
        {"Undo", names("Ellipse"), true},
        {"Eraser", names("Eraser"), false},
        {"Ellipse", names("Ellipse"), true},
        {"Ellipse", {}, false},
    };
    for (const Step& step : steps) {
        SCOPED_TRACE(step.clicked);
        click(item(step.clicked));
        settle();
        EXPECT_EQ(on(), step.on);
        EXPECT_EQ(hasRibbon(), step.hasRibbon);
        EXPECT_EQ(toolbar.isUseGraffitInNeed(), !step.on.isEmpty());
    }
}

TEST_F(GraffitToolbar, ForgetsToolAndStyleWhenItCloses)
{
    click(item("Text"));
    EXPECT_EQ(toolbar.controlToolbarID(), QStringLiteral("text"));
    actions.taken();
    toolbar.addNewGraffitView();
    EXPECT_EQ(actions.taken().first(), QStringLiteral("text"));
    toolbar.close();
    settle();
    EXPECT_FALSE(toolbar.isVisible());
    EXPECT_FALSE(hasRibbon());
    EXPECT_TRUE(on().isEmpty());
    EXPECT_TRUE(toolbar.controlToolbarID().isNull());
    toolbar.addNewGraffitView();
    toolbar.pressTool(1);
    EXPECT_TRUE(actions.log.isEmpty());
}

TEST_F(GraffitToolbar, SwitchesBetweenMosaicAndBlurFromTheStoredOne)
{
    for (const bool isMosaic : {true, false}) {
        SCOPED_TRACE(isMosaic);
        AppSettings::saveMosicModel(isMosaic);
        show();
        const QString ids[] = {QStringLiteral("blur"), QStringLiteral("mosic")};
        click(item("Blur"));
        for (const bool isMosaicNow : {isMosaic, !isMosaic, isMosaic}) {
            EXPECT_EQ(item("Blur")->controlID(), ids[isMosaicNow]);
            EXPECT_TRUE(item("Blur")->state());
            toolbar.changeMosicItem();
        }
        toolbar.close();
    }
}

TEST_F(GraffitToolbar, HandsAClickToTheItemUnderIt)
{
    const auto at = [](const View& view) {
        const ZRRect frame = view.frameInWindow();
        return ZRMouseEvent{{frame.x + 1, frame.maxY() - 1}, Qt::LeftButton};
    };
    toolbar.mouseUp(at(*item("Line")));
    EXPECT_EQ(actions.taken().first(), QStringLiteral("line"));
    toolbar.mouseUp(at(*item("Save"))); // not one of those that are asked
    toolbar.mouseUp({{5, 5}, Qt::LeftButton});
    EXPECT_TRUE(actions.log.isEmpty());
}

TEST_F(GraffitToolbar, ChangesItsTextsWithTheLanguageAndWorksWithoutAny)
{
    AppSettings::setClientLanguage(QStringLiteral("German"));
    toolbar.changeText();
    EXPECT_EQ(item("Pfeil")->tooltipstring(), QStringLiteral("Pfeil(3)"));
    LanguageCatalogue::updateLangMenu({}); // no file, no text
    AppSettings::setClientLanguage(QStringLiteral("None"));
    toolbar.changeText();
    ASSERT_TRUE(item(""));
    EXPECT_FALSE(item("")->tooltipstring().contains(QLatin1Char('%')));
    item("")->mouseEntered();
    toolbar.pressTool(3);
    EXPECT_EQ(actions.taken().value(0), QStringLiteral("arrow"));
}

TEST_F(GraffitToolbar, RepaintsTheHoveredItemAloneAndOnce)
{
    struct Counter : QObject {
        std::map<QObject*, int> painted;
        bool eventFilter(QObject* watched, QEvent* event) override
        {
            if (event->type() == QEvent::Paint)
                ++painted[watched];
            return false;
        }
    } counter;
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&overlay));
    QTest::qWait(50); // until all has been painted
    overlay.installEventFilter(&counter);
    for (QWidget* widget : overlay.findChildren<QWidget*>())
        widget->installEventFilter(&counter);
    for (int i = 0; i < 3; ++i) {
        item("Line")->mouseEntered();
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(counter.painted, (std::map<QObject*, int>{{item("Line"), 1}}));
}
