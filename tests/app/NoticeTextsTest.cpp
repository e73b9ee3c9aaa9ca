#include "app/HotKeyNotice.h"
#include "capture/FreezeNotice.h"
#include "output/ZRBasicLocalNotification.h"
#include "output/ZRLocalNotificationCenter.h"
#include "output/ZRNotificationWindow.h"
#include "output/ZRScreenshotUploadingView.h"
#include "platform/HotKeys.h"
#include "platform/WindowServer.h"
#include "tests/app/Languages.h"

#include <QLabel>
#include <QTextBrowser>

namespace {

constexpr QChar kEllipsis(0x2026);

using NoticeTexts = LanguagesTest;

}

// Paths may be cut, sentences not.
TEST_F(NoticeTexts, FitInEveryLanguage)
{
    const QStringView titles[] = {u"Comm:SuccSavePicture", u"Comm:FaildSaveFile",
        u"Comm:FaildCopyToClipboard", u"Lumora:Capture:ReopenFailed", u"Lumora:Capture:ScreenUnreadable"};
    inEveryLanguage([&] {
        const QString message = AppSettings::getXMLValueForKeywords(u"Comm:ScreenshotCopiedTips");
        for (const QStringView title : titles) {
            const QString text = AppSettings::getXMLValueForKeywords(title);
            EXPECT_FALSE(text.isEmpty());
            const ZRBasicLocalNotification notice(text, message, QStringLiteral("logo"));
            for (const QLabel* label : notice.findChildren<QLabel*>()) {
                EXPECT_EQ(label->text().count(kEllipsis), (text + message).count(kEllipsis))
                    << qPrintable(label->text());
                EXPECT_TRUE(notice.rect().contains(label->geometry()));
            }
        }
    });
}

TEST_F(NoticeTexts, OfAnUploadThatHasEndedFitInEveryLanguage)
{
    inEveryLanguage([] {
        const auto view = ZRScreenshotUploadingView::LoadFromNib();
        view->setIsFinished(true, QStringLiteral("https://example.org/p/1"));
        view->setFinishedNote(AppSettings::getXMLValueForKeywords(u"Lumora:Upload:LinkCopied"));
        const auto* text = view->findChild<QTextBrowser*>();
        const QLabel* note = nullptr;
        for (const QLabel* label : view->findChildren<QLabel*>())
            note = label->text() == view->finishedNote() ? label : note;
        ASSERT_TRUE(text && note);
        EXPECT_GE(text->height(), text->document()->size().height());
        EXPECT_LE(note->sizeHint().width(), note->width());
        EXPECT_LE(text->geometry().bottom(), note->geometry().top());
        EXPECT_TRUE(view->rect().contains(text->geometry() | note->geometry()));
    });
}

TEST_F(NoticeTexts, SayWhatHelps)
{
    const struct {
        std::function<void()> tell;
        QStringView help;
    } cases[] = {
        {[] { tellOfRefusedHotKey(QStringLiteral("cmd 1"), HotKeyRefusal::kTaken); },
            u"Lumora:HotKey:TakenByOther"},
        {[] { tellOfFailedFreeze(FreezeRefusal::kNotPermitted); }, u"Lumora:Capture:NotPermitted"},
    };
    auto& center = ZRLocalNotificationCenter::defaultLocalNotificationCenter();
    inEveryLanguage([&] {
        for (const auto& c : cases) {
            SCOPED_TRACE(c.help.toString().toStdString());
            c.tell();
            const auto* notice = center.windows().back()->findChild<ZRBasicLocalNotification*>();
            EXPECT_FALSE(notice->accessibleName().contains(QStringLiteral("[#")));
            EXPECT_EQ(notice->accessibleDescription(), AppSettings::getXMLValueForKeywords(c.help));
            for (const QLabel* label : notice->findChildren<QLabel*>())
                EXPECT_FALSE(label->text().contains(kEllipsis)) << qPrintable(label->text());
        }
    });
}
