#pragma once

#include "customui/View.h"
#include "editor/ScreenshotActions.h"
#include "editor/ZRColorControlItem.h"
#include "editor/ZRFontSelectView.h"
#include "editor/ZRGraffitSizeControlToolbar.h"
#include "editor/ZRScreenShotSetting.h"
#include "editor/ZRScreenShotToolbarItem.h"
#include "settings/AppSettings.h"
#include "settings/LanguageCatalogue.h"
#include "settings/UserDefaults.h"

#include <QTemporaryDir>
#include <QTest>
#include <QWindow>

#include <gtest/gtest.h>

// Writes down what toolbars and ribbons ask for, and selects items as the program does.
class RecordedActions : public ScreenshotActions {
public:
    QStringList log;
    std::vector<OutputItem> offered{OutputItem::Save, OutputItem::Cancel, OutputItem::Copy};
    std::function<void(Item&)> onTool = [](Item&) {};

    bool isOffered(OutputItem item) const override
    {
        return std::find(offered.begin(), offered.end(), item) != offered.end();
    }
    void saveRegionShotToLocal(Item&) override { log << QStringLiteral("save"); }
    void saveToPasteboard(Item&) override { log << QStringLiteral("copy"); }
    void reSelectScreenshotRegion(Item&) override { log << QStringLiteral("cancel"); }
    void reSharedScreenshotRegion(Item& item) override { tool("share", item); }
    void DisplacementScreenShot(Item&) override { log << QStringLiteral("pin"); }
    void uploadRegionScreenshotToCloud(Item&) override { log << QStringLiteral("upload"); }
    void addCustomLineToScreenshot(Item& item) override { tool("pencil", item); }
    void addHighlightToScreenshot(Item& item) override { tool("highlighter", item); }
    void addLineToScreenshot(Item& item) override { tool("line", item); }
    void addArrowToScreenshot(Item& item) override { tool("arrow", item); }
    void addFontToScreenshot(Item& item) override { tool("text", item); }
    void addSquareToScreenshot(Item& item) override { tool("rectangle", item); }
    void addBlurToScreenshot(Item& item) override { tool("blur", item); }
    void addCircleToScreenshot(Item& item) override { tool("ellipse", item); }
    void addRubberToScreenShot(Item& item) override { tool("eraser", item); }
    void addCancelToScreenshot(Item&) override { log << QStringLiteral("undo"); }
    void addForwardToScreenshot(Item&) override { log << QStringLiteral("redo"); }
    void graffitLineWidthChnage(Item& item) override
    {
        log << QStringLiteral("width %1").arg(item.lineWidth());
        item.superController()->changeSelectedLineWithItem(&item);
    }
    void graffitMosicWidthChnage(Item&) override { log << QStringLiteral("mosaic"); }
    void graffitColorChange(ZRColorControlItem& item) override { log << item.selectColor().name(); }
    void graffitFontSizeChange(ZRFontSelectView& view) override
    {
        log << QStringLiteral("font %1").arg(view.fontSize());
    }
    void shareFacebook(Item&) override { log << QStringLiteral("facebook"); }
    void shareGoogle(Item&) override { log << QStringLiteral("google"); }
    void shareTwinter(Item&) override { log << QStringLiteral("twitter"); }
    void sharePinster(Item&) override { log << QStringLiteral("pinterest"); }

    QStringList taken() { return std::exchange(log, {}); }

private:
    void tool(const char* name, Item& item)
    {
        log << QLatin1String(name);
        onTool(item);
    }
};

// An overlay of 1280x800 points, a fresh settings store, the English texts.
class ToolbarStage : public testing::Test {
protected:
    ToolbarStage()
    {
        UserDefaults::setStandardUserDefaults(&m_store);
        LanguageCatalogue::updateLangMenu({QStringLiteral(":/languages")});
        AppSettings::setClientLanguage(QStringLiteral("English"));
        ZRScreenShotSetting::clear();
        overlay.resize(1280, 800);
        overlay.show();
    }
    ~ToolbarStage() override { UserDefaults::setStandardUserDefaults(nullptr); }

    // Through the window, as a real click comes.
    static void click(QWidget* widget) { click(widget, widget->rect().center()); }
    static void click(QWidget* widget, QPoint place)
    {
        QTest::mouseClick(
            widget->window()->windowHandle(), Qt::LeftButton, {}, widget->mapTo(widget->window(), place));
    }
    // The toolbar's item of that accessible name; null when there is none.
    static ZRScreenShotToolbarItem* item(const QWidget& toolbar, const char* name)
    {
        for (auto* found : toolbar.findChildren<ZRScreenShotToolbarItem*>())
            if (found->accessibleName() == QLatin1String(name))
                return found;
        return nullptr;
    }
    // Lets go what is to be deleted later.
    static void settle() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }
    template <class Widget>
    std::vector<Widget*> visible() const
    {
        std::vector<Widget*> found;
        for (QWidget* child : overlay.findChildren<QWidget*>())
            if (auto* widget = dynamic_cast<Widget*>(child); widget && widget->isVisible())
                found.push_back(widget);
        return found;
    }

private:
    QTemporaryDir m_folder;
    UserDefaults m_store{m_folder.path(), QStringLiteral("test"), QStringLiteral("older")};

protected:
    View overlay;
    RecordedActions actions;
};

// A toolbar beside a region, which selects the tools that are clicked.
template <class Toolbar>
class ToolbarTest : public ToolbarStage {
protected:
    ToolbarTest()
    {
        actions.onTool = [this](ZRScreenShotToolbarItem& item) { toolbar.changeSelectedItem(&item); };
        toolbar.setScreenShotViewController(&actions);
    }

    void show()
    {
        toolbar.initialize();
        toolbar.showToolbar(true, {200, 300, 600, 400});
    }
    ZRScreenShotToolbarItem* item(const char* name) const { return ToolbarStage::item(toolbar, name); }
    // A click on the item starts the one action.
    void expectStarts(const char* name, const char* tooltip, const char* action)
    {
        ASSERT_TRUE(item(name));
        EXPECT_EQ(item(name)->tooltipstring(), QLatin1String(tooltip));
        click(item(name));
        EXPECT_EQ(actions.taken(), QStringList(QLatin1String(action)));
    }

    Toolbar toolbar{&overlay};
};
