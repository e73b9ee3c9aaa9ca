#include "editor/ZRScreenShotGraffitToolbar.h"

#include "tests/editor/ToolbarStage.h"

#include <set>

namespace {

class GraffitToolbar : public ToolbarStage {
protected:
    GraffitToolbar()
    {
        toolbar.setScreenShotViewController(&actions);
        toolbar.initialize();
        toolbar.showToolbar(true, {200, 300, 600, 400});
        actions.onTool = [this](ZRScreenShotToolbarItem& item) { toolbar.changeSelectedItem(&item); };
    }

    ZRScreenShotToolbarItem* item(const char* name) const { return ToolbarStage::item(toolbar, name); }
    QStringList on() const
    {
        QStringList names;
        for (auto* found : toolbar.findChildren<ZRScreenShotToolbarItem*>())
            if (found->state())
                names << found->accessibleName();
        return names;
    }
    bool hasRibbon() const { return !visible<ZRColorControlItem>().empty(); }

    ZRScreenShotGraffitToolbar toolbar{&overlay};
};

}

TEST_F(GraffitToolbar, EveryItemNamesItselfItsKeyAndItsAction)
{
    struct Row {
        const char *name, *tooltip, *id, *action;
    };
    const Row rows[] = {
        {"Rectangle", "Rectangle(1)", "square", "rectangle"},
        {"Ellipse", "Ellipse(2)", "eillpse", "ellipse"},
        {"Arrow", "Arrow(3)", "arrow", "arrow"},
        {"Line", "Line(4)", "line", "line"},
        {"Pencil", "Pencil(5)", "customLine", "pencil"},
        {"Highlighter", "Highlighter(6)", "light", "highlighter"},
        {"Text", "Text(7)", "text", "text"},
        {"Blur", "Blur(8)", "mosic", "blur"},
        {"Eraser", "Eraser(9)", "rubber", "eraser"},
        {"Undo", "Undo(Ctrl+Z)", "cancel", "undo"},
        {"Redo", "Redo(Ctrl+Shift+Z)", "", "redo"},
        {"Save", "Save(Ctrl+S)", "", "save"},
    };
    AppSettings::saveMosicModel(true);
    toolbar.initialize();
    actions.onTool = [](ZRScreenShotToolbarItem&) {};
    int digit = 0;
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        ASSERT_TRUE(item(row.name));
        EXPECT_EQ(item(row.name)->tooltipstring(), QLatin1String(row.tooltip));
        EXPECT_EQ(item(row.name)->controlID(), QLatin1String(row.id));
        click(item(row.name));
        EXPECT_EQ(actions.taken(), QStringList(QLatin1String(row.action)));
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

TEST_F(GraffitToolbar, SwitchesBetweenMosaicAndBlur)
{
    for (const bool isMosaic : {true, false}) {
        SCOPED_TRACE(isMosaic);
        AppSettings::saveMosicModel(isMosaic);
        toolbar.initialize();
        toolbar.showToolbar(true, {200, 300, 600, 400});
        const QString first = isMosaic ? QStringLiteral("mosic") : QStringLiteral("blur");
        EXPECT_EQ(item("Blur")->controlID(), first);
        click(item("Blur"));
        toolbar.changeMosicItem();
        EXPECT_NE(item("Blur")->controlID(), first);
        EXPECT_TRUE(item("Blur")->state());
        toolbar.changeMosicItem();
        EXPECT_EQ(item("Blur")->controlID(), first);
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

TEST_F(GraffitToolbar, RepaintsTheHoveredItemAlone)
{
    struct Counter : QObject {
        std::set<QObject*> painted;
        bool eventFilter(QObject* watched, QEvent* event) override
        {
            if (event->type() == QEvent::Paint)
                painted.insert(watched);
            return false;
        }
    } counter;
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&overlay));
    QTest::qWait(50); // until all has been painted
    overlay.installEventFilter(&counter);
    for (QWidget* widget : overlay.findChildren<QWidget*>())
        widget->installEventFilter(&counter);
    item("Line")->mouseEntered();
    QCoreApplication::processEvents();
    EXPECT_EQ(counter.painted, std::set<QObject*>{item("Line")});
}
