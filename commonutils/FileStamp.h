#pragma once

#include <QString>

#include <cstdint>
#include <optional>

// What tells one state of a file from the next without reading it. Two edits of one file within the file
// system's clock tick that keep its size have the same stamp.
struct FileStamp {
    std::uint64_t inode = 0;
    std::int64_t size = 0;     // bytes
    std::int64_t modified = 0; // nanoseconds since 1970

    // Links are followed; empty when there is no such file or it cannot be looked at.
    static std::optional<FileStamp> of(const QString& path);
    static std::optional<FileStamp> of(int descriptor);

    friend bool operator==(const FileStamp&, const FileStamp&) = default;
};
