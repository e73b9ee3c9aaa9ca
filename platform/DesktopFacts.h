#pragma once

// What the desktop offers a capture and its picture, for a report to the user.
struct DesktopFacts {
    int depth = 0;                    // bits of a pixel that mean colour
    bool sharesMemory = false;        // pixels come without a copy over a connection
    bool hasClipboardManager = false; // what was copied outlives the program that copied it
};

// Needs the application object.
DesktopFacts desktopFacts();
