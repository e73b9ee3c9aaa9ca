#include "platform/x11/KeyPositions.h"

#include <gtest/gtest.h>

#include <set>

// Keycodes as the kernel numbers the keys of a US keyboard, plus 8.
TEST(KeyPositions, NameTheKeysOfAnUsKeyboard)
{
    struct Row {
        const char* keys;
        xcb_keycode_t firstKeycode; // of the row's leftmost key
        std::vector<quint32> codes; // left to right
    };
    const Row rows[] = {
        {"1234567890-=", 10, {18, 19, 20, 21, 23, 22, 26, 28, 25, 29, 27, 24}},
        {"qwertyuiop[]", 24, {12, 13, 14, 15, 17, 16, 32, 34, 31, 35, 33, 30}},
        {"asdfghjkl;'`", 38, {0, 1, 2, 3, 5, 4, 38, 40, 37, 41, 39, 50}},
        {"zxcvbnm,./", 52, {6, 7, 8, 9, 11, 45, 46, 43, 47, 44}},
        {"f1 to f10", 67, {122, 120, 99, 118, 96, 97, 98, 100, 101, 109}},
        {"f11, f12", 95, {103, 111}},
    };
    for (const Row& row : rows) {
        for (size_t i = 0; i < row.codes.size(); ++i) {
            SCOPED_TRACE(testing::Message() << row.keys << ", key " << i);
            EXPECT_EQ(keycodeAtPosition(row.codes[i]), row.firstKeycode + i);
        }
    }
}

TEST(KeyPositions, NameTheKeysBesideTheLetters)
{
    struct Case {
        const char* key;
        quint32 code;
        xcb_keycode_t expected;
    };
    const Case cases[] = {
        {"escape", 53, 9},
        {"backspace", 51, 22},
        {"tab", 48, 23},
        {"return", 36, 36},
        {"space", 49, 65},
        {"up", 126, 111},
        {"left", 123, 113},
        {"right", 124, 114},
        {"down", 125, 116},
        {"page down", 121, 117},
        {"f13", 105, 191},
        {"f14", 107, 192},
        {"f15", 113, 193},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.key);
        EXPECT_EQ(keycodeAtPosition(c.code), c.expected);
    }
}

TEST(KeyPositions, GiveEachKeyOneCodeAndUnknownCodesNone)
{
    std::set<xcb_keycode_t> seen;
    for (quint32 code = 0; code < 300; ++code) {
        SCOPED_TRACE(code);
        const auto key = keycodeAtPosition(code);
        if (!key)
            continue;
        EXPECT_TRUE(seen.insert(*key).second);
        EXPECT_EQ(virtualKeyCodeAt(*key), code);
    }
    for (quint32 code : {10u, 52u, 60u, 127u, 4000000000u})
        EXPECT_FALSE(keycodeAtPosition(code));
    for (xcb_keycode_t keycode : {0, 133, 255})
        EXPECT_FALSE(virtualKeyCodeAt(keycode));
}
