#include "app/AboutWindow.h"

#include "commonutils/CommUtils.h"
#include "tests/app/Languages.h"
#include "tests/app/TextFit.h"
#include "tests/fakes/FakeWorkspace.h"

#include <QTest>

namespace {

class AboutWindowTest : public LanguagesTest { };

}

TEST_F(AboutWindowTest, CutsNoTextInAnyLanguage)
{
    AboutWindow window;
    window.showAbout();
    inEveryLanguage([&] {
        window.changeText(AboutTexts::current());
        const TextFit fit = textFitOf(window);
        EXPECT_EQ(fit.texts.size(), 3);
        EXPECT_FALSE(fit.texts.contains(QString()));
        EXPECT_EQ(fit.cut, QStringList());
        EXPECT_EQ(window.windowTitle(), AppSettings::getXMLValueForKeywords(u"Comm:About"));
    });
}

TEST_F(AboutWindowTest, GrowsWithTheName)
{
    AboutWindow window;
    window.changeText({{}, QStringLiteral("Name"), {}, {}});
    EXPECT_EQ(window.width(), 537);
    window.changeText({{}, QString(60, QLatin1Char('M')), {}, {}});
    EXPECT_GT(window.width(), 600);
    EXPECT_EQ(textFitOf(window).cut, QStringList());
}

TEST_F(AboutWindowTest, OpensTheLinksOfTheCopyright)
{
    FakeWorkspace workspace;
    CommUtils::initWithCommAppInfo({}, workspace);
    AboutWindow window;
    window.changeText({{}, {}, {}, QStringLiteral("https://example.org")});
    for (QLabel* label : window.findChildren<QLabel*>())
        Q_EMIT label->linkActivated(QStringLiteral("https://example.org"));
    EXPECT_EQ(workspace.opened, std::vector{QUrl(QStringLiteral("https://example.org"))});
    CommUtils::dispose();
}

TEST_F(AboutWindowTest, ClosesWithEscape)
{
    AboutWindow window;
    int closed = 0;
    window.onClose = [&closed] { ++closed; };
    window.showAbout();
    QTest::keyClick(&window, Qt::Key_Space);
    EXPECT_EQ(closed, 0);
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_EQ(closed, 1);
    EXPECT_FALSE(window.isVisible());
}
