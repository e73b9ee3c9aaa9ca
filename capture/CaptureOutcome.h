#pragma once

#include <QString>

// How a capture ended, for whoever asked for it.
struct CaptureOutcome {
    enum class Kind { Saved, Copied, Pinned, Uploading, Cancelled, Failed };
    Kind kind = Kind::Cancelled;
    QString path;   // the written file, absolute; set when saved
    QString reason; // one line in words; set when failed
};
