#include "commonutils/FileStamp.h"

#include <QFile>

#include <sys/stat.h>

namespace {

// The member is st_mtim in POSIX and st_mtimespec on macOS.
template <class Stat>
timespec modificationTime(const Stat& status)
{
    if constexpr (requires { status.st_mtim; })
        return status.st_mtim;
    else
        return status.st_mtimespec;
}

FileStamp stampOf(const struct stat& status)
{
    const timespec modified = modificationTime(status);
    return {status.st_ino, status.st_size, modified.tv_sec * 1'000'000'000LL + modified.tv_nsec};
}

}

std::optional<FileStamp> FileStamp::of(const QString& path)
{
    struct stat status;
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return std::nullopt;
    return stampOf(status);
}

std::optional<FileStamp> FileStamp::of(int descriptor)
{
    struct stat status;
    if (::fstat(descriptor, &status) != 0)
        return std::nullopt;
    return stampOf(status);
}
