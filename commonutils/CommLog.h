#pragma once

#include <QString>

// The application's log: a text file in the user's cache folder, one time-stamped line a message, echoed to
// stderr. Any thread; a message is one append, so lines never mix. Errors are ignored. Before start(), and
// when the file cannot be had, there is only stderr.
class CommLog {
public:
    // The file is named after `baseName`, its extension replaced by "log". A file of more than 1 MiB is
    // emptied; it grows freely until the next start.
    static void start(const QString& baseName);
    static void writeStartHeader();
    // Empty before start().
    static QString path();

    static void log(const QString& message);
    // The arguments, texts, fill %1, %2 and so on.
    template <class... Args>
    static void log(const QString& format, const Args&... args)
    {
        log(format.arg(args...));
    }
};
