#include "platform/x11/KeyPositions.h"

#include <gtest/gtest.h>

#include <set>

// Keycodes as the kernel numbers the keys of a US keyboard, plus 8.
TEST(KeyPositions, NameTheKeysOfAnUsKeyboard)
{
    struct Row {
        const char* keys;
        xcb_keycode_t firstKeycode; // of the row's leftmost key
        std::vector<quint32> codes; // from left to right
    };
    const Row rows[] = {
        {"1234567890-=", 10, {18, 19, 20, 21, 23, 22, 26, 28, 25, 29, 27, 24}},
        {"qwertyuiop[]", 24, {12, 13, 14, 15, 17, 16, 32, 34, 31, 35, 33, 30}},
        {"asdfghjkl;'`", 38, {0, 1, 2, 3, 5, 4, 38, 40, 37, 41, 39, 50}},
        {"zxcvbnm,./", 52, {6, 7, 8, 9, 11, 45, 46, 43, 47, 44}},
        {"f1 to f10", 67, {122, 120, 99, 118, 96, 97, 98, 100, 101, 109}},
        {"f11, f12", 95, {103, 111}},
        {"f13 to f15", 191, {105, 107, 113}},
        {"escape", 9, {53}},
        {"backspace, tab", 22, {51, 48}},
        {"return", 36, {36}},
        {"space", 65, {49}},
        {"up", 111, {126}},
        {"left, right", 113, {123, 124}},
        {"down, page down", 116, {125, 121}},
    };
    for (const Row& row : rows) {
        for (size_t i = 0; i < row.codes.size(); ++i) {
            SCOPED_TRACE(testing::Message() << row.keys << ", key " << i);
            EXPECT_EQ(keycodeAtPosition(row.codes[i]), row.firstKeycode + i);
        }
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
