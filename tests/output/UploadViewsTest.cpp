#include "commonutils/ModalSession.h"
#include "customui/ZRHoverButton.h"
#include "output/ZRScreenshotUploadSettingWindow.h"
#include "output/ZRScreenshotUploadingView.h"
#include "output/ZRUploadToCloudContentView.h"

#include <QTest>
#include <QTextBrowser>

#include <gtest/gtest.h>

TEST(ZRUploadingProrgessView, CutsThePercentage)
{
    struct Case {
        double progress;
        const char* text;
    };
    const Case cases[] = {{0, "0%"}, {0.42, "42%"}, {0.29, "29%"}, {0.58, "58%"}, {0.999, "99%"}, {1, "100%"},
        {-3, "0%"}, {7, "100%"}};
    ZRUploadingProrgessView view;
    for (const Case& c : cases) {
        view.setProgress(c.progress);
        EXPECT_EQ(view.percentage(), QLatin1String(c.text));
    }
}

TEST(ZRUploadingProrgessView, FillsItsBarFromTheLeft)
{
    ZRUploadingProrgessView view;
    view.resize(240, 18);
    view.setProgress(0.25);
    const QImage picture = view.grab().toImage();
    EXPECT_EQ(picture.pixelColor(49, 9), QColor(42, 123, 244));
    EXPECT_EQ(picture.pixelColor(50, 9), QColor(237, 229, 253));
}

TEST(ZRScreenshotUploadingView, TurnsIntoTheEndWithALink)
{
    const auto view = ZRScreenshotUploadingView::LoadFromNib();
    view->show();
    view->setUploadFilePath(QStringLiteral("/a/long folder/") + QString(300, QLatin1Char('n')));
    view->updateUploadingProgress(0.5);
    EXPECT_FALSE(view->isFinished());
    EXPECT_TRUE(view->progressView().isVisible());
    view->setIsFinished(true, QStringLiteral("https://example.org/p"));
    EXPECT_TRUE(view->isFinished());
    EXPECT_FALSE(view->progressView().isVisible());
    EXPECT_TRUE(view->findChild<QTextBrowser*>()->isVisible());
}

TEST(ZRScreenshotUploadingView, CancelsByItsButtonAndLightsItUp)
{
    const auto view = ZRScreenshotUploadingView::LoadFromNib();
    int cancelled = 0;
    auto* button = view->findChild<ZRHoverButton*>();
    button->sendAction();
    view->setCancelAction([&] { ++cancelled; });
    button->sendAction();
    EXPECT_EQ(cancelled, 1);
    QEnterEvent enter({1, 1}, {1, 1}, {1, 1});
    QCoreApplication::sendEvent(view.get(), &enter);
    EXPECT_TRUE(button->isMouseInside());
}

TEST(ZRUploadToCloudContentView, GivesWhatWasTypedAndNeverThePrompt)
{
    const auto form = ZRUploadToCloudContentView::loadFromNibNamed();
    const auto fields = form->findChildren<QLineEdit*>();
    ASSERT_EQ(fields.size(), 2);
    EXPECT_EQ(form->title(), QString());
    EXPECT_EQ(form->password(), QString());
    fields[0]->setText(QStringLiteral("A title"));
    fields[1]->setText(QStringLiteral("secret"));
    EXPECT_EQ(form->title(), QStringLiteral("A title"));
    EXPECT_EQ(form->password(), QString()) << "a public picture has none";
    form->updateAuthorityEnable(true, false);
    EXPECT_EQ(form->password(), QStringLiteral("secret"));
}

TEST(ZRUploadToCloudContentView, ShowsThePasswordForPrivatePicturesOnly)
{
    const auto form = ZRUploadToCloudContentView::loadFromNibNamed();
    const QLineEdit* password = form->findChildren<QLineEdit*>()[1];
    for (const bool isPrivate : {true, false, true}) {
        form->actionForSwithAuthority();
        EXPECT_EQ(form->isPrivate(), isPrivate);
        EXPECT_EQ(password->isHidden(), !isPrivate);
    }
    for (const QSize size : {QSize(3000, 20), QSize(10, 4000), QSize()})
        form->setImage(QImage(size, QImage::Format_RGB32));
}

TEST(ZRScreenshotUploadSettingWindow, EndsOnceWithItsCode)
{
    for (const bool isConfirmed : {true, false}) {
        auto window = ZRScreenshotUploadSettingWindow::LoadFromNib();
        auto* form = ZRUploadToCloudContentView::loadFromNibNamed().release();
        std::vector<int> codes;
        window->onEnded = [&](int code) { codes.push_back(code); };
        form->setSureButtonActtion([&] { window->stopModal(ZRScreenshotUploadSettingWindow::kConfirmed); });
        window->setDocumentView(form);
        window->runModal();
        EXPECT_TRUE(ModalSession::isRunning());
        if (isConfirmed)
            form->sureUploadToImage();
        else
            window->close();
        window->close();
        EXPECT_EQ(codes, std::vector{isConfirmed ? 1 : 0});
        EXPECT_FALSE(window->isVisible());
        EXPECT_FALSE(ModalSession::isRunning());
    }
}
