#include "app/HotKeyTables.h"

#include <gtest/gtest.h>

TEST(HotKeyTables, ReadAHotKeyString)
{
    struct Case {
        const char* text;
        HotKeyTables::Chord expected;
    };
    const Case cases[] = {
        {"cmd 1", {18, 256}},
        {"CMD 1", {18, 256}},
        {"1 cmd", {18, 256}},
        {"ctrl alt f5", {96, 4096 + 2048}},
        {"cmd shift 4", {21, 256 + 512}},
        {"cmd", {0, 256}},        // no key word: the "a" key
        {"cmd cmd 1", {18, 512}}, // added, not combined
        {"cmd k", {41, 256}},     // the semicolon key
        {"cmd f2", {121, 256}},   // the page-down key
        {"hyper 1", {18, 0}},     // an unknown word
        {"cmd 1 2", {19, 256}},   // the last key word wins
        {"", {0, 0}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(HotKeyTables::parsed(QString::fromLatin1(c.text)), c.expected);
    }
}
