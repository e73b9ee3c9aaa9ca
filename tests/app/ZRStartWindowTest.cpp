#include "app/ZRStartWindow.h"

#include "app/StartWindowDelegate.h"
#include "capture/ToolScreen.h"
#include "tests/app/Languages.h"
#include "tests/app/TextFit.h"
#include "tests/fakes/FakeDisplays.h"

#include <QApplication>
#include <QCheckBox>
#include <QTest>

namespace {

class StartWindow : public LanguagesTest, protected StartWindowDelegate {
protected:
    void windowWillStop(ZRStartWindow& w) override
    {
        calls << "stop";
        w.setEndRect(endRect);
    }
    void windowWillClose() override { calls << "close"; }

    QByteArrayList calls;
    ZRRect endRect;
};

}

TEST_F(StartWindow, NamesTheHotKeyAndCutsNoTextInAnyLanguage)
{
    AppSettings::setRegionScreenShotHotKey(QStringLiteral("ctrl alt shift cmd F15"));
    inEveryLanguage([] {
        const auto window = ZRStartWindow::defaultStartWindow();
        window->show();
        const TextFit fit = textFitOf(*window);
        EXPECT_EQ(fit.texts.filter(QStringLiteral("Ctrl+Alt+Shift+Cmd+F15")).size(), 1);
        EXPECT_FALSE(fit.texts.join(u' ').contains(QStringLiteral("[#")));
        EXPECT_EQ(fit.cut, QStringList());
    });
}

TEST_F(StartWindow, StoresTheOppositeOfItsCheckBox)
{
    const auto window = ZRStartWindow::defaultStartWindow();
    auto* box = window->findChild<QCheckBox*>();
    box->click();
    EXPECT_FALSE(AppSettings::isNeedShowStartWindowAgain());
    EXPECT_TRUE(
        AppSettings::getFromUserDefaultsObject(QStringLiteral("applicationIsNeedShowStartWindow")).isValid());
    box->click();
    EXPECT_TRUE(AppSettings::isNeedShowStartWindowAgain());
}

TEST_F(StartWindow, ShrinksIntoItsEndRectangleAndClosesOnce)
{
    FakeDisplays displays; // one of 800 x 600 points
    ToolScreen::install(&displays);
    for (const ZRRect& end : {ZRRect{}, ZRRect{700, 580, 24, 20}}) {
        SCOPED_TRACE(end.width);
        calls.clear();
        endRect = end;
        const auto window = ZRStartWindow::defaultStartWindow();
        window->setDelegate(this);
        window->start();
        const QRect before = window->geometry();
        window->stop();
        window->stop();
        ASSERT_TRUE(QTest::qWaitFor([&] { return calls.contains("close"); }, 2000));
        window->closeWindow();
        EXPECT_EQ(calls, (QByteArrayList{"stop", "close"}));
        EXPECT_FALSE(window->isVisible());
        const QRect expected = end.isEmpty() ? before : QRect(700, 0, 24, 20);
        EXPECT_LT((window->geometry().center() - expected.center()).manhattanLength(), 20); // the last step
    }
    ToolScreen::install(nullptr);
}
