#include "platform/x11/AutostartRules.h"

#include <gtest/gtest.h>

namespace {

QString entryWith(const char* lines)
{
    return QStringLiteral("[Desktop Entry]\nType=Application\n") + QString::fromUtf8(lines);
}

}

TEST(AutostartRules, QuoteEveryPathSoThatItComesBack)
{
    for (const char* path : {"/usr/bin/lumora-screenshot", "/home/a b/lumora", "/odd/$HOME/`x`/\"q\"",
             "/back\\slash", "/hundred%f", "/Bücher/屏幕"}) {
        SCOPED_TRACE(path);
        EXPECT_EQ(programOfEntry(entryForProgram(QString::fromUtf8(path))), QString::fromUtf8(path));
    }
    EXPECT_TRUE(
        entryForProgram(QStringLiteral("/a b/$c%")).contains(QStringLiteral("\nExec=\"/a b/\\\\$c%%\"\n")))
        << "quoted as the desktop reads it";
}

TEST(AutostartRules, FindTheProgramOfAnyEntry)
{
    struct Case {
        const char* lines;
        const char* expected;
    };
    const Case cases[] = {
        {"Exec=/usr/bin/tool --flag %U\n", "/usr/bin/tool"},
        {"Exec=\"/opt/my tool/run\" --flag\n", "/opt/my tool/run"},
        {"Exec=/usr/bin/tool\nHidden=true\n", ""}, // switched off
        {"Exec=\n", ""},
        {"Name=Exec\n", ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.lines);
        EXPECT_EQ(programOfEntry(entryWith(c.lines)), QString::fromUtf8(c.expected));
    }
}
