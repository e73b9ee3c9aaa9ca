#include "editor/ZRScreenShotShareToolbar.h"

#include "tests/editor/ToolbarStage.h"

namespace {

class ShareToolbar : public ToolbarTest<ZRScreenShotShareToolbar> {
protected:
    ShareToolbar()
    {
        actions.offered = {OutputItem::Save, OutputItem::Cancel, OutputItem::Pin, OutputItem::Upload,
            OutputItem::Copy, OutputItem::Share};
        show();
    }

    // The share targets, which stand on the overlay beside the toolbar.
    std::vector<ZRScreenShotToolbarItem*> targets() const
    {
        std::vector<ZRScreenShotToolbarItem*> found;
        for (auto* shown : visible<ZRScreenShotToolbarItem>())
            if (shown->superController())
                found.push_back(shown);
        return found;
    }
};

}

TEST_F(ShareToolbar, EveryItemNamesItselfItsKeyAndItsAction)
{
    struct Row {
        const char *name, *tooltip, *key, *action;
    };
    const Row rows[] = {
        {"Save", "Save(Ctrl+S)", "s", "save"},
        {"Cancel", "Cancel(Esc)", "r", "cancel"},
        {"Pin to screen", "Pin to screen", "", "pin"},
        {"Upload", "Upload(Ctrl+U)", "u", "upload"},
        {"Copy to clipboard", "Copy to clipboard(Ctrl+C)", "c", "copy"},
        {"Share", "Share", "", "share"},
    };
    constexpr quint32 command = 0x100000;
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        expectStarts(row.name, row.tooltip, row.action);
        EXPECT_FALSE(item(row.name)->state());
        const bool hasKey = item(row.name)->keyBtn().performKeyEquivalent(QLatin1String(row.key), command);
        EXPECT_EQ(hasKey, *row.key != 0);
        EXPECT_EQ(actions.taken(), hasKey ? QStringList(QLatin1String(row.action)) : QStringList());
    }
}

TEST_F(ShareToolbar, ShowsWhatIsOfferedAlone)
{
    const int whole = toolbar.height();
    actions.offered = {OutputItem::Save, OutputItem::Cancel};
    show();
    EXPECT_EQ(visible<ZRScreenShotToolbarItem>().size(), 2U);
    EXPECT_EQ(toolbar.height(), whole - 4 * (ZRScreenShotToolbarItem::kSide + 4));
    for (const auto* shown : visible<ZRScreenShotToolbarItem>())
        EXPECT_TRUE(toolbar.rect().contains(shown->geometry()));
}

TEST_F(ShareToolbar, SharesThroughARibbonThatAClickElsewhereCloses)
{
    click(item("Share"));
    ASSERT_EQ(targets().size(), 4U);
    actions.taken();
    for (auto* target : targets())
        click(target);
    EXPECT_EQ(actions.taken().join(QLatin1Char(' ')), QStringLiteral("facebook google twitter pinterest"));
    EXPECT_EQ(targets().size(), 4U) << "a click inside leaves it open";
    QTest::mousePress(&overlay, Qt::LeftButton, {}, {5, 5});
    settle();
    EXPECT_TRUE(targets().empty());

    click(item("Share"));
    EXPECT_EQ(targets().size(), 4U);
    toolbar.close();
    settle();
    EXPECT_TRUE(targets().empty());
}
