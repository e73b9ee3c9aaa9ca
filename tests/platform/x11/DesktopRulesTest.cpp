#include "platform/x11/DesktopRules.h"

#include <gtest/gtest.h>

TEST(DesktopRules, GiveOneNameToOneServer)
{
    struct Case {
        const char* display;
        const char* expected;
    };
    const Case cases[] = {
        {":0", "X11-0"},
        {":0.1", "X11-0"},
        {"unix:0", "X11-0"},
        {":12", "X11-12"},
        {"localhost:10.0", "X11-localhost-10"},
        {"a/b:1", "X11-a_b-1"},
        {"", "X11"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.display);
        EXPECT_EQ(sessionNameOf(QString::fromUtf8(c.display)), QString::fromUtf8(c.expected));
    }
}

TEST(DesktopRules, SayWhatTheDesktopLacks)
{
    struct Case {
        DesktopEnvironment environment;
        const char* expected; // a word of the sentence; empty for no problem
    };
    const auto text = [](const char* s) { return QString::fromUtf8(s); };
    const Case cases[] = {
        {{text(":0"), {}, {}}, ""},
        {{text(":0"), {}, text("x11")}, ""},
        {{text(":0"), text("wayland-0"), text("x11")}, ""}, // a compositor nested in an X11 session
        {{{}, {}, {}}, "DISPLAY"},
        {{{}, text("wayland-0"), {}}, "Wayland"},
        {{text(":0"), text("wayland-0"), text("wayland")}, "Wayland"},
        {{text(":0"), {}, text("wayland")}, "Wayland"},
    };
    for (const Case& c : cases) {
        const QString problem = problemOf(c.environment);
        SCOPED_TRACE(qPrintable(problem));
        EXPECT_EQ(problem.isEmpty(), *c.expected == '\0');
        EXPECT_TRUE(problem.contains(text(c.expected)));
        EXPECT_FALSE(problem.contains(QLatin1Char('\n')));
    }
}
