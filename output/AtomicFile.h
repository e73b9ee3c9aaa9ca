#pragma once

#include <QString>

#include <cstddef>

// Writes a whole file or none. The bytes go to a hidden file of an unused name in the same folder, which
// takes the final name only when all of it was written; on any failure it is removed and what had the final
// name stays. The file gets the permissions of any new file under the user's umask. Nothing waits for the
// disk itself.
class AtomicFile {
public:
    // Empty when the file stands; else the reason in words. A file-size limit of the process comes as a
    // reason only where SIGXFSZ is ignored, which the program does at its start. Safe on any thread.
    static QString write(const QString& path, const void* bytes, size_t count);
};
