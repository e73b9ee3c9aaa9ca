#pragma once

#include "commonutils/CommAppInfo.h"

// What the user wants to tell us, in the user's own mail or web program.
class CommFeedback {
public:
    CommFeedback() = delete;

    // Opens the feedback link of the application's information; nothing happens without one.
    static void submit();
    // That link; a mail gets the program's name and version as its subject, where it has none.
    static QString linkOf(const CommAppInfo& info);
};
