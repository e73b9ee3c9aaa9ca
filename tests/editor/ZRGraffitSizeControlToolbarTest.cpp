#include "editor/ZRGraffitSizeControlToolbar.h"

#include "customui/ZRCustomWindow.h"
#include "editor/ZRCustomPopUpMenu.h"
#include "tests/editor/ToolbarStage.h"

namespace {

class Ribbon : public ToolbarStage {
protected:
    Ribbon()
    {
        anchor.setGeometry(600, 300, 32, 32);
        anchor.show();
    }

    void open(const char* id, int direction = 1)
    {
        ribbon.popupToolbarWithControlID(QLatin1String(id), anchor, direction, actions);
        settle();
    }
    std::vector<ZRColorControlItem*> swatches() const { return visible<ZRColorControlItem>(); }
    QList<qint32> widthsOn() const
    {
        QList<qint32> widths;
        for (const auto* item : visible<ZRScreenShotToolbarItem>())
            if (item->state())
                widths << item->lineWidth();
        return widths;
    }

    View anchor{&overlay};
    ZRGraffitSizeControlToolbar ribbon;
};

}

TEST_F(Ribbon, ReportsTheStyleOfItsToolAtOnce)
{
    const std::pair<const char*, const char*> cases[] = {{"square", "width 3 #ff0000"},
        {"anything", "width 3 #ff0000"}, {"text", "font 14 #ff0000"}, {"mosic", "width 3"},
        {"blur", "width 3"}, {"share", ""}};
    for (const auto& [id, report] : cases) {
        SCOPED_TRACE(id);
        open(id);
        EXPECT_EQ(visible<ZRCustomWindow>().size(), 1U);
        EXPECT_EQ(actions.taken().join(QLatin1Char(' ')), QLatin1String(report));
    }
    ribbon.close();
    ribbon.popupToolbarWithControlID(QString(), anchor, 1, actions);
    EXPECT_FALSE(ribbon.isOpen());
}

TEST_F(Ribbon, MarksTheStoredWidthAlone)
{
    for (const double width : {3.0, 6.0, 9.0, 5.0}) {
        SCOPED_TRACE(width);
        ribbon.setLastSelectedLineWidth(width);
        open("line");
        EXPECT_EQ(widthsOn(), width == 5 ? QList<qint32>() : QList<qint32>{qint32(width)});
    }
    actions.taken();
    for (auto* item : visible<ZRScreenShotToolbarItem>()) {
        click(item);
        EXPECT_EQ(widthsOn(), QList<qint32>{item->lineWidth()});
    }
    EXPECT_EQ(actions.taken().join(QLatin1Char(' ')), QStringLiteral("width 3 width 6 width 9"));
}

TEST_F(Ribbon, OffersBlackWhiteAndTheMixturesInTwoRowsAndKeepsTheChosenOne)
{
    struct Case {
        size_t index; // 0 shows the present colour
        const char* color;
        QPoint place;
    };
    const Case cases[] = {{1, "#000000", {37, 0}}, {2, "#ffffff", {37, 17}}, {3, "#000080", {54, 0}},
        {14, "#808000", {241, 0}}, {15, "#8080ff", {54, 17}}, {26, "#ffff80", {241, 17}}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.color);
        open("line");
        ASSERT_EQ(swatches().size(), 27U);
        EXPECT_EQ(swatches()[c.index]->pos(), c.place);
        EXPECT_EQ(swatches()[c.index]->accessibleName(), QLatin1String(c.color));
        actions.taken();
        click(swatches()[c.index]);
        EXPECT_EQ(actions.taken(), QStringList(QLatin1String(c.color)));
        EXPECT_EQ(swatches()[0]->selectColor(), QColor(QLatin1String(c.color)));
        ribbon.close();
        open("text");
        EXPECT_EQ(actions.taken().last(), QLatin1String(c.color));
    }
}

TEST_F(Ribbon, ChoosesFontSizesFromAMenuThatClosesWithIt)
{
    open("text");
    auto* font = visible<ZRFontSelectView>().front();
    EXPECT_EQ(font->title(), QStringLiteral("14 pt"));
    click(font);
    ASSERT_EQ(visible<ZRCustomPopUpMenu>().size(), 1U);
    auto* menu = visible<ZRCustomPopUpMenu>().front();
    EXPECT_EQ(menu->height(), 260);
    actions.taken();
    click(menu, {10, 8 * 20 + 1});
    EXPECT_EQ(font->title(), QStringLiteral("36 pt"));
    EXPECT_EQ(actions.taken(), QStringList(QStringLiteral("font 36")));
    EXPECT_FALSE(menu->isVisible());

    click(font);
    EXPECT_TRUE(menu->isVisible());
    ribbon.close();
    settle();
    EXPECT_TRUE(visible<ZRCustomPopUpMenu>().empty());
    EXPECT_TRUE(visible<ZRCustomWindow>().empty());
}
