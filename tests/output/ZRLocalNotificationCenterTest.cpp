#include "output/ZRLocalNotificationCenter.h"

#include "output/ZRBasicLocalNotification.h"
#include "output/ZRCustomLocalNotification.h"
#include "output/ZRNotificationWindow.h"
#include "tests/output/ManualClock.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class ZRLocalNotificationCenterTest : public testing::Test {
protected:
    void deliver(const QString& message = QStringLiteral("message"))
    {
        center.deliverZRNotification(std::make_unique<ZRBasicLocalNotification>(
            QStringLiteral("title"), message, QStringLiteral("logo")));
    }
    ZRCustomLocalNotification& deliverCustom(QSize size = {345, 80})
    {
        auto* content = new QWidget;
        content->resize(size);
        auto notification = std::make_unique<ZRCustomLocalNotification>(content);
        ZRCustomLocalNotification& delivered = *notification;
        center.deliverZRCustomNotification(std::move(notification));
        return delivered;
    }
    // Where the windows show, the oldest first: the distances of their left and top edges from the top right
    // corner of the screen.
    std::vector<QPoint> places() const
    {
        std::vector<QPoint> found;
        const QRect screen = QGuiApplication::primaryScreen()->geometry();
        for (const auto& window : center.windows())
            if (window->isVisible())
                found.push_back({screen.x() + screen.width() - window->x(), window->y() - screen.y()});
        return found;
    }
    static void hover(QWidget& window, bool isOver)
    {
        QEnterEvent enter({10, 10}, {10, 10}, {10, 10});
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(&window, isOver ? &enter : &leave);
    }

    ManualClock* clock = new ManualClock;
    ZRLocalNotificationCenter center{std::unique_ptr<NoticeClock>(clock)};
};

constexpr QPoint kFirst{355, 37};
constexpr QPoint kSecond{355, 37 + 65 + 10};
using Places = std::vector<QPoint>;

}

TEST_F(ZRLocalNotificationCenterTest, SlidesOneInAndOutAgain)
{
    deliver();
    EXPECT_EQ(places(), (Places{{0, 37}})) << "outside of the screen";
    clock->pass(125);
    const int half = places().at(0).x();
    EXPECT_GT(half, 140);
    EXPECT_LT(half, 210);
    EXPECT_LE(center.windows()[0]->mask().boundingRect().width(), half) << "nothing shows beyond the screen";
    clock->pass(125);
    EXPECT_EQ(places(), Places{kFirst});
    clock->pass(4750);
    EXPECT_EQ(places(), Places{kFirst});
    clock->pass(100);
    EXPECT_LT(places().at(0).x(), kFirst.x());
    clock->pass(150);
    EXPECT_TRUE(center.windows().empty());
}

TEST_F(ZRLocalNotificationCenterTest, MakesRoomForASecondOne)
{
    deliver();
    clock->pass(1000);
    deliver();
    clock->pass(249);
    EXPECT_EQ(places(), Places{kFirst}) << "the new one waits";
    clock->pass(270);
    EXPECT_EQ(places(), (Places{kSecond, kFirst}));
    clock->pass(3000); // the older one's last seconds began when it moved
    EXPECT_EQ(places(), Places{kFirst});
    clock->pass(2000);
    EXPECT_TRUE(center.windows().empty());
}

TEST_F(ZRLocalNotificationCenterTest, LetsAThirdOneCloseTheOneThatMovedBefore)
{
    deliver();
    deliver();
    clock->pass(600);
    const ZRNotificationWindow* second = center.windows()[1].get();
    deliver();
    clock->pass(600);
    ASSERT_EQ(center.windows().size(), 2U);
    EXPECT_EQ(center.windows()[0].get(), second);
    EXPECT_EQ(second->mMovedCount(), 1);
    EXPECT_EQ(places(), (Places{kSecond, kFirst}));
}

TEST_F(ZRLocalNotificationCenterTest, ShowsManyInAHurryAndForgetsThemAll)
{
    for (int i = 0; i < 30; ++i) {
        deliver();
        clock->pass(i % 3 * 100);
        if (i % 4 == 0)
            QTest::mousePress(center.windows().back().get(), Qt::LeftButton);
    }
    clock->pass(600);
    EXPECT_LE(places().size(), 2U);
    clock->pass(6000);
    EXPECT_TRUE(center.windows().empty());
}

TEST_F(ZRLocalNotificationCenterTest, DoesWithAClickWhatItOffersAndGoes)
{
    int clicks = 0;
    auto notification =
        std::make_unique<ZRBasicLocalNotification>(QStringLiteral("title"), QString(), QString());
    notification->setClickAction([&] { ++clicks; }, QStringLiteral("hint"));
    center.deliverZRNotification(std::move(notification));
    clock->pass(300);
    ZRNotificationWindow& window = *center.windows()[0];
    QTest::mousePress(&window, Qt::LeftButton);
    QTest::mousePress(&window, Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
    clock->pass(249);
    EXPECT_EQ(center.windows().size(), 1U);
    clock->pass(1);
    EXPECT_TRUE(center.windows().empty());
}

TEST_F(ZRLocalNotificationCenterTest, KeepsACustomNoticeUntilItIsToGo)
{
    ZRCustomLocalNotification& notice = deliverCustom();
    notice.setIsAutoHidden(false);
    notice.setMouseDownExitWithFadeOutEnable(false);
    for (int i = 0; i < 3; ++i) {
        deliver();
        clock->pass(7000);
    }
    ZRNotificationWindow& window = *center.windows()[0];
    EXPECT_EQ(window.mMovedCount(), 3);
    EXPECT_EQ(places(), (Places{{355, 37 + 3 * 75}}));
    QTest::mousePress(&window, Qt::LeftButton);
    notice.setAutoHiddenDelayTime(4);
    notice.setIsAutoHidden(true);
    clock->pass(3900);
    EXPECT_EQ(places().size(), 1U);
    clock->pass(400);
    EXPECT_TRUE(center.windows().empty()) << "gone for good, it does not come again";
    clock->pass(10000);
}

TEST_F(ZRLocalNotificationCenterTest, KeepsACustomNoticeUnderThePointer)
{
    ZRCustomLocalNotification& notice = deliverCustom();
    notice.setAutoHiddenDelayTime(4);
    clock->pass(1000);
    hover(*center.windows()[0], true);
    notice.setIsAutoHidden(true);
    clock->pass(20000);
    EXPECT_EQ(places().size(), 1U);
    hover(*center.windows()[0], false);
    clock->pass(3900);
    EXPECT_EQ(places().size(), 1U);
    clock->pass(400);
    EXPECT_TRUE(center.windows().empty());
}

TEST_F(ZRLocalNotificationCenterTest, LeavesTheScreenAndLosesNothing)
{
    EXPECT_FALSE(center.leaveScreen()) << "nobody waits for nothing";
    deliver();
    EXPECT_TRUE(places().empty());
    center.comeBack();
    clock->pass(1000);
    EXPECT_EQ(places(), Places{kFirst});
    EXPECT_TRUE(center.leaveScreen());
    EXPECT_FALSE(center.leaveScreen());
    deliver();
    clock->pass(60000);
    EXPECT_TRUE(places().empty());
    center.comeBack();
    clock->pass(600);
    EXPECT_EQ(places(), (Places{kSecond, kFirst}));
}

TEST_F(ZRLocalNotificationCenterTest, TakesTextsOfAnyLength)
{
    for (const QString& text :
        {QString(), QString(5000, QLatin1Char('w')), QStringLiteral("a\nb\nc\nd\ne")}) {
        ZRBasicLocalNotification notice(text, text, QStringLiteral("no such picture"));
        EXPECT_EQ(notice.size(), QSize(345, 65));
        for (const QLabel* label : notice.findChildren<QLabel*>()) {
            const bool isEmpty = label->geometry().isEmpty();
            EXPECT_TRUE(isEmpty || notice.rect().adjusted(0, 6, 0, -6).contains(label->geometry()))
                << label->height();
        }
    }
}

TEST(ZRLocalNotificationCenter, LeavesNoNoticeBehind)
{
    auto* clock = new ManualClock;
    auto center = std::make_unique<ZRLocalNotificationCenter>(std::unique_ptr<NoticeClock>(clock));
    center->deliverZRNotification(std::make_unique<ZRBasicLocalNotification>(
        QStringLiteral("title"), QString(), QStringLiteral("logo")));
    const QPointer window = center->windows()[0].get();
    window->exitWithFadeOut();
    clock->pass(250);
    EXPECT_TRUE(center->windows().empty());
    EXPECT_TRUE(window) << "it went in the middle of its own last step";
    center.reset();
    EXPECT_FALSE(window);
}
