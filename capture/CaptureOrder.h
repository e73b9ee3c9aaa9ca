#pragma once

#include "platform/DisplayRecord.h"

#include <QString>

#include <functional>
#include <optional>

// A part of one display.
struct CaptureArea {
    DisplayRecord display;
    QRect pixels; // counted from the display's top-left device pixel

    friend bool operator==(const CaptureArea&, const CaptureArea&) = default;
};

// Where a picture goes that its capture saves.
struct CaptureTarget {
    enum class Kind {
        SaveFolder,
        File,
        Clipboard,
        Caller, // whoever asked for the capture gets the bytes of a PNG
    };
    Kind kind = Kind::SaveFolder;
    QString path; // absolute, its extension names the type; set for Kind::File
};

// What is captured. Without an area it is a region that the user chooses, or the display under the pointer.
struct CaptureOrder {
    bool isFullScreen = false;
    // Finds what is captured without an overlay, in the moment of the freeze; without a result `reason` says
    // why.
    std::function<std::optional<CaptureArea>(QString* reason)> area{};
    CaptureTarget target{};
};
