#include "app/HotKeyNotice.h"
#include "output/ZRBasicLocalNotification.h"
#include "output/ZRLocalNotificationCenter.h"
#include "output/ZRNotificationWindow.h"
#include "platform/HotKeys.h"
#include "tests/app/Languages.h"

#include <QLabel>

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

TEST_F(NoticeTexts, NameTheRefusedHotKeyAndTheReason)
{
    auto& center = ZRLocalNotificationCenter::defaultLocalNotificationCenter();
    inEveryLanguage([&] {
        tellOfRefusedHotKey(QStringLiteral("cmd 1"), HotKeyRefusal::kTaken);
        const auto* notice = center.windows().back()->findChild<ZRBasicLocalNotification*>();
        EXPECT_TRUE(notice->accessibleName().contains(QStringLiteral("1")));
        EXPECT_FALSE(notice->accessibleName().contains(QStringLiteral("[#")));
        EXPECT_EQ(notice->accessibleDescription(),
            AppSettings::getXMLValueForKeywords(u"Lumora:HotKey:TakenByOther"));
        for (const QLabel* label : notice->findChildren<QLabel*>())
            EXPECT_FALSE(label->text().contains(kEllipsis)) << qPrintable(label->text());
    });
}
