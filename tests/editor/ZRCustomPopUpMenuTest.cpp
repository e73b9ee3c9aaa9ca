#include "editor/ZRCustomPopUpMenu.h"

#include "commonutils/NotificationCenter.h"
#include "editor/ZRCustomPopUpButton.h"
#include "editor/ZRCustomPopUpMenuItem.h"

#include <QFontMetrics>
#include <QTest>

#include <gtest/gtest.h>

namespace {

const QStringList kSizes{
    QStringLiteral("9"), QStringLiteral("14"), QStringLiteral("18"), QStringLiteral("96")};

// An overlay of 600x400 points with a button at (100, 100) from the top.
struct Stage {
    Stage()
    {
        overlay.resize(600, 400);
        button.move(100, 100);
        button.setDefaultValue(QStringLiteral("14"));
        button.onAction = [this] { chosen << button.currentValue(); };
        overlay.show();
    }
    QStringList highlighted() const
    {
        QStringList texts;
        for (const QObject* child : button.popMenu()->children())
            if (const auto* row = dynamic_cast<const ZRCustomPopUpMenuItem*>(child); row->isHover())
                texts << row->title();
        return texts;
    }

    View overlay;
    ZRCustomPopUpButton button{{90, 24}, kSizes, &overlay};
    QStringList chosen;
};

}

TEST(ZRCustomPopUpMenu, IsAsWideAsItsWidestText)
{
    const QString wide(20, QLatin1Char('W'));
    const int textWidth = qCeil(QFontMetricsF(ZRCustomPopUpMenuItem::sharedFont()).horizontalAdvance(wide));
    EXPECT_EQ(ZRCustomPopUpMenu(90, {QStringLiteral("a"), wide}).size(), QSize(textWidth, 40));
    EXPECT_EQ(ZRCustomPopUpMenu(90, {}).size(), QSize(90, 0));
}

TEST(ZRCustomPopUpMenu, HighlightsAndChoosesTheRowUnderThePointer)
{
    for (const int y : {0, 19, 20, 79}) {
        SCOPED_TRACE(y);
        Stage stage;
        QTest::mouseClick(&stage.button, Qt::LeftButton);
        ASSERT_TRUE(stage.button.popMenu()->isOpen());
        QTest::mouseMove(stage.button.popMenu(), {20, y});
        EXPECT_EQ(stage.highlighted(), QStringList(kSizes[y / 20]));
        QTest::mouseClick(stage.button.popMenu(), Qt::LeftButton, {}, {20, y});
        EXPECT_EQ(stage.chosen, QStringList(kSizes[y / 20]));
        EXPECT_FALSE(stage.button.popMenu()->isOpen());
    }
}

TEST(ZRCustomPopUpMenu, ClosesWithAClickElsewhereWhereItShall)
{
    for (const bool closes : {true, false}) {
        SCOPED_TRACE(closes);
        Stage stage;
        stage.button.popMenu()->setMouseDown(closes);
        stage.button.popUp();
        QTest::mousePress(&stage.overlay, Qt::LeftButton, {}, {5, 5});
        EXPECT_EQ(stage.button.popMenu()->isOpen(), !closes);
        EXPECT_TRUE(stage.chosen.isEmpty());
    }
}

TEST(ZRCustomPopUpMenu, IsDrivenByWhoeverHoldsThePointer)
{
    Stage stage;
    stage.button.popUp();
    const auto post = [&stage](unsigned type, QPoint menuPoint) {
        const QPoint place = stage.button.popMenu()->mapToGlobal(menuPoint);
        NotificationCenter::defaultCenter().post(ZRCustomPopUpButton::acceptMouseEventRegister,
            {{QStringLiteral("eventType"), type}, {QStringLiteral("eventLocationX"), place.x()},
                {QStringLiteral("eventLocationY"), place.y()}});
    };
    post(5, {10, 50});
    EXPECT_TRUE(stage.highlighted().isEmpty()) << "not registered yet";
    stage.button.registerAcceptMouseEvent();
    post(5, {10, 50});
    EXPECT_EQ(stage.highlighted(), QStringList(QStringLiteral("18")));
    post(1, {-50, 50});
    EXPECT_TRUE(stage.chosen.isEmpty()) << "beside the menu";
    post(1, {10, 50});
    EXPECT_EQ(stage.button.currentValue(), QStringLiteral("18 pt"));
    EXPECT_EQ(stage.chosen.last(), QStringLiteral("18 pt"));
    stage.button.popUp();
    post(1, {10, 10});
    EXPECT_EQ(stage.button.currentValue(), QStringLiteral("18 pt")) << "registered no longer";
}

TEST(ZRCustomPopUpMenu, GoesWithItsButton)
{
    Stage stage;
    auto* button = new ZRCustomPopUpButton({90, 24}, kSizes, &stage.overlay);
    button->popUp();
    const QPointer<ZRCustomPopUpMenu> menu = button->popMenu();
    delete button;
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(menu);
}
