#include "platform/macos/HotKeyRules.h"

#include "platform/HotKeys.h"

#include <gtest/gtest.h>

TEST(MacHotKeys, NameEachRefusal)
{
    EXPECT_EQ(HotKeyRules::refusalOf(0), QString());
    EXPECT_EQ(HotKeyRules::refusalOf(-9878), HotKeyRefusal::kTaken);
    EXPECT_EQ(HotKeyRules::refusalOf(-9879), HotKeyRefusal::kNoKey);
    EXPECT_TRUE(HotKeyRules::refusalOf(-9868).contains(QStringLiteral("Command or Control")));
    EXPECT_TRUE(HotKeyRules::refusalOf(-50).contains(QStringLiteral("-50")));
}

TEST(MacHotKeys, LeaveTheSystemItsOwn)
{
    const std::vector<HotKeyRules::SystemKey> keys{{20, 768, true}, {21, 768, false}, {49, 256, true}};
    struct Case {
        quint32 keyCode, modifiers;
        bool isSystems;
    };
    const Case cases[] = {
        {20, 768, true},  // Command Shift 3
        {21, 768, false}, // the user has switched it off
        {20, 256, false}, // other modifiers
        {18, 768, false}, // another key
        {49, 256, true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.keyCode << ' ' << c.modifiers);
        EXPECT_EQ(HotKeyRules::isSystemKey(keys, c.keyCode, c.modifiers), c.isSystems);
    }
}
