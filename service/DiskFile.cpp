#include "service/DiskFile.h"

#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

int DiskFile::create(const std::filesystem::path& path)
{
    return ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
}

bool DiskFile::writeAll(int descriptor, const char* bytes, size_t count)
{
    while (count > 0) {
        const ssize_t written = ::write(descriptor, bytes, count);
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            return false;
        bytes += written;
        count -= size_t(written);
    }
    return true;
}

bool DiskFile::settle(int descriptor)
{
    const bool isSettled = ::fsync(descriptor) == 0;
    return (::close(descriptor) == 0 || errno == EINTR) && isSettled;
}

bool DiskFile::settleFolder(const std::filesystem::path& folder)
{
    const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    return descriptor >= 0 && settle(descriptor);
}

bool DiskFile::write(const std::filesystem::path& path, std::string_view bytes)
{
    const int descriptor = create(path);
    if (descriptor < 0)
        return false;
    const bool isWritten = writeAll(descriptor, bytes.data(), bytes.size());
    return settle(descriptor) && isWritten;
}
