#include "app/StatusbarRules.h"

#include <gtest/gtest.h>

TEST(StatusbarRules, SwapPicturesByName)
{
    struct Case {
        const char* image;
        bool isInTools;
        const char* highlighted;
    };
    const Case cases[] = {
        {"region", false, "region-hover"},
        {"crosshair-hover", true, "crosshair-normal"},
        {"crosshair-normal", true, "crosshair-normal"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.image);
        const QString highlighted =
            StatusbarRules::highlightedImage(QString::fromLatin1(c.image), c.isInTools);
        EXPECT_EQ(highlighted, QString::fromLatin1(c.highlighted));
        if (!c.isInTools) {
            EXPECT_EQ(StatusbarRules::restingImage(highlighted), QString::fromLatin1(c.image));
        }
    }
}

TEST(StatusbarRules, ShowAHotKeyAsKeys)
{
    struct Case {
        const char* hotKey;
        const char* keys;
    };
    const Case cases[] = {
        {"cmd 1", "Meta+1"},
        {"ctrl alt 5", "Ctrl+Alt+5"},
        {"shift cmd 4", "Meta+Shift+4"},
        {"cmd a", "Meta+A"},
        {"cmd f12", "Meta+F12"},
        {"ctrl space", "Ctrl+Space"},
        {"ctrl bkspc", "Ctrl+Backspace"},
        {"ctrl ,", "Ctrl+,"},
        {"f5", "F5"},
        {"hyper 1", "1"},
        {"cmd nonsense", ""},
        {"", ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.hotKey);
        const QKeySequence keys = StatusbarRules::keyEquivalent(QString::fromLatin1(c.hotKey));
        EXPECT_EQ(keys.toString(QKeySequence::PortableText), QString::fromLatin1(c.keys));
    }
}
