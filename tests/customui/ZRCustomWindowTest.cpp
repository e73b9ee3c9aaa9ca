#include "customui/ZRCustomWindow.h"

#include <QImage>
#include <QTest>

#include <gtest/gtest.h>

namespace {

const QColor kPanel(240, 248, 255);

// An overlay of 800x600 points with a bar that holds an item.
struct Stage {
    Stage()
    {
        overlay.resize(800, 600);
        bar.setGeometry(200, 300, 400, 40);
        item.setGeometry(180, 4, 32, 32);
        overlay.show();
    }

    QWidget* content(int width, int height)
    {
        auto* view = new QWidget;
        view->resize(width, height);
        return view;
    }

    QImage picture()
    {
        QImage image(overlay.size(), QImage::Format_RGB32);
        image.fill(Qt::black);
        popup.render(&image, popup.pos(), {}, QWidget::DrawChildren);
        return image;
    }

    View overlay;
    View bar{&overlay};
    View item{&bar};
    ZRCustomWindow popup{{}, ZRCustomWindow::kBorderless, true, kPanel, &overlay};
};

}

TEST(ZRCustomWindow, PointsItsArrowAtTheItem)
{
    Stage stage;
    EXPECT_FALSE(stage.popup.isVisible());
    stage.popup.popupWithContentView(stage.content(367, 32), &stage.item, 1);
    EXPECT_EQ(stage.overlay.childAt(396, 370), stage.popup.contentView());
    const QImage below = stage.picture();
    const ZRRect panel = stage.popup.panelInWindow();
    EXPECT_EQ(panel.size(), (ZRSize{383, 48}));
    EXPECT_EQ(panel.maxY(), 600 - 340 - PopupRules::kArrowLength - PopupRules::kGap);
    EXPECT_EQ(below.pixelColor(396, 346), kPanel); // in the arrow, below the middle of the item
    EXPECT_NE(below.pixelColor(420, 346), kPanel);

    stage.popup.popupWithContentView(stage.content(42, 128), &stage.item, 2);
    const QImage right = stage.picture();
    EXPECT_EQ(right.pixelColor(606, 320), kPanel); // right of the bar, beside the middle of the item
    EXPECT_NE(right.pixelColor(606, 340), kPanel);
    stage.popup.orderOut();
    EXPECT_FALSE(stage.popup.isVisible());
}

TEST(ZRCustomWindow, DropsAListWithoutAnArrow)
{
    Stage stage;
    QWidget* list = stage.content(75, 200);
    stage.popup.popUpContentView(list, &stage.item);
    const ZRRect panel = stage.popup.panelInWindow();
    EXPECT_EQ(panel, (ZRRect{380, 600 - 336 - PopupRules::kGap - 208, 83, 208}));
    EXPECT_EQ(list->mapTo(&stage.overlay, QPoint()), QPoint(384, 342));
    EXPECT_NE(stage.picture().pixelColor(396, 337), kPanel);
}

TEST(ZRCustomWindow, ReleasesTheContentThatAnotherReplaces)
{
    Stage stage;
    const QPointer<QWidget> first = stage.content(100, 32);
    stage.popup.popupWithContentView(first, &stage.item, 1);
    stage.popup.popupWithContentView(first, &stage.item, 1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(first);
    stage.popup.popupWithContentView(stage.content(50, 32), &stage.item, 1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(first);
}

TEST(ZRCustomWindow, IsAnOrdinaryWindowOnItsOwn)
{
    int closings = 0;
    ZRCustomWindow window({}, ZRCustomWindow::kTitledClosable, false, kPanel);
    window.onClose = [&closings] { ++closings; };
    auto* content = new QWidget;
    content->resize(537, 200);
    window.setContentView(content);
    window.orderFront();
    EXPECT_TRUE(window.isWindow());
    EXPECT_FALSE(window.isModal());
    EXPECT_EQ(window.size(), QSize(537, 200));
    EXPECT_EQ(window.grab().toImage().pixelColor(0, 0), kPanel);
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(closings, 1);
}
