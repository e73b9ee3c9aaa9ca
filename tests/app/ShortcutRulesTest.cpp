#include "app/ShortcutRules.h"

#include "settings/AppSettings.h"

#include <gtest/gtest.h>

using namespace ShortcutRules;

TEST(ShortcutRules, KnowTheKeysThatCanBeRecorded)
{
    const struct {
        quint32 keyCode;
        const char* text;
    } cases[] = {
        {0, "a"},
        {29, "0"},
        {43, ","},
        {33, "["},
        {30, "]"},
        {113, "f15"},
        {41, "k"},
        {40, ""}, // the semicolon's key, K's own
        {121, "f2"},
        {120, ""}, // page-down, F2's own
        {53, ""},
        {49, ""},
        {123, ""}, // escape, space, left
        {200, ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.keyCode);
        EXPECT_EQ(keyText(c.keyCode), QLatin1String(c.text));
    }
}

TEST(ShortcutRules, WriteModifiersInOneOrder)
{
    const struct {
        Qt::KeyboardModifiers held;
        const char* key;
        const char* hotKey;
        const char16_t* symbols;
    } cases[] = {
        {Qt::MetaModifier | Qt::ShiftModifier, "4", "shift cmd 4", u"⇧⌘"},
        {Qt::AltModifier | Qt::ControlModifier, "K", "ctrl alt K", u"⌃⌥"},
        {Qt::MetaModifier | Qt::KeypadModifier, "1", "cmd 1", u"⌘"},
        {Qt::NoModifier, "", "", u""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.hotKey);
        const quint32 flags = modifierFlags(c.held);
        const QString hotKey = hotKeyString(QLatin1String(c.key), flags);
        EXPECT_EQ(hotKey, QLatin1String(c.hotKey));
        EXPECT_EQ(symbols(flags), QString::fromUtf16(c.symbols));
        EXPECT_EQ(AppSettings::getModifiterFlagsValueOfShortcut(hotKey), flags); // what is read back
    }
}

TEST(ShortcutRules, CapitalizeEachWord)
{
    EXPECT_EQ(capitalized(QStringLiteral("cmd 1")), QStringLiteral("Cmd+1"));
    EXPECT_EQ(capitalized(QStringLiteral("ctrl alt f5")), QStringLiteral("Ctrl+Alt+F5"));
    EXPECT_EQ(capitalized(QString()), QString());
}
