#pragma once

#include "commonutils/FileStamp.h"

#include <QString>

#include <cstddef>

// Writes a whole file or none. The bytes go to a hidden file of an unused name in the same folder, which
// takes the final name only when all of it was written; on any failure it is removed and what had the final
// name stays. Nothing waits for the disk itself.
class AtomicFile {
public:
    enum class Access {
        OwnerOnly, // mode 0600
        Umask,     // as any new file of the user
    };

    // Empty when the file stands, and `stamp` is then its stamp; else the reason in words. A file-size limit
    // of the process comes as a reason only where SIGXFSZ is ignored, which the program does at its start.
    // Safe on any thread.
    static QString write(const QString& path, const void* bytes, size_t count, Access access,
        std::optional<FileStamp>* stamp = nullptr);
};
