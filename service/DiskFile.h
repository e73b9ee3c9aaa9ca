#pragma once

#include <cstddef>
#include <filesystem>
#include <string_view>

// Files that are on the disk itself when a function says so, not on their way there. Any thread.
namespace DiskFile {

// The descriptor of a new file; -1 when it cannot be made or is there already.
int create(const std::filesystem::path& path);
bool writeAll(int descriptor, const char* bytes, size_t count);
// Onto the disk, and closed in every case.
bool settle(int descriptor);
bool settleFolder(const std::filesystem::path& folder);
// A new file with these bytes, settled.
bool write(const std::filesystem::path& path, std::string_view bytes);

}
