#pragma once

#include "commonutils/CommAppInfo.h"

class Workspace;

// What all utilities of the program share: the application's information and the way to the user's browser.
// Class-level. Main thread only.
class CommUtils {
public:
    CommUtils() = delete;

    // Borrows the workspace until dispose().
    static void initWithCommAppInfo(const CommAppInfo& info, Workspace& workspace);
    static void setAppInfo(const CommAppInfo& info);
    // Empty before the beginning and after the end.
    static const CommAppInfo& appInfo();
    static void dispose();

    // Opens a web or mail link in the user's browser. Characters that no link may hold are escaped, all
    // others stay as they are. False, and a line in the log, for any other link and when nobody takes it.
    static bool OpenURL(const QString& link);
};
