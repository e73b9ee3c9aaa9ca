#pragma once

#include "capture/CaptureOrder.h"

#include <QByteArray>
#include <QSize>
#include <QString>

#include <optional>

// How a capture ended, for whoever asked for it.
struct CaptureOutcome {
    enum class Kind {
        Saved,
        Copied,
        Pinned,
        Uploading,
        Encoded, // for the caller
        Cancelled,
        NothingThere, // what was to be captured is not on the screen
        Unwritable,   // the file that was asked for cannot be written
        Failed,
    };
    Kind kind = Kind::Cancelled;
    QString path{};                                 // the written file, absolute; set when saved
    QString reason{};                               // one line in words; set for the last three
    QByteArray png{};                               // set when encoded
    QSize size{};                                   // of the picture in pixels; set when there is one
    std::optional<CaptureArea> area = std::nullopt; // what the picture shows; set when there is one
};
