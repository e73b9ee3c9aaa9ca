#pragma once

#include <QString>

// What a start of the program asks the resident one for.
struct VerbRequest {
    QString verb{};
    QString display{};   // a number, from 1, or a name; empty for the one under the pointer
    QString geometry{};  // as AreaRules reads it; empty for a region that the user chooses
    bool isLast = false; // the region that was captured last
    int delay = 0;       // seconds
    QString output{};    // an absolute path, or kToCaller; empty for the save folder
    bool toClipboard = false;
    bool isJson = false;

    inline static const QString kToCaller = QStringLiteral("-"); // a PNG on the caller's stdout

    friend bool operator==(const VerbRequest&, const VerbRequest&) = default;
};
