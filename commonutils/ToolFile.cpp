#include "commonutils/ToolFile.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr mode_t kOwnerOnly = 0600;
constexpr int kLinkLimit = 40; // links that point at each other end here

bool writeAll(int descriptor, const QByteArray& data)
{
    qsizetype written = 0;
    while (written < data.size()) {
        const ssize_t step = ::write(descriptor, data.constData() + written, data.size() - written);
        if (step < 0 && errno == EINTR)
            continue;
        if (step <= 0)
            return false;
        written += step;
    }
    return true;
}

// Closes the descriptor. The stamp is what a later rename keeps; empty, with errno set, on failure.
std::optional<FileStamp> writeAndClose(int descriptor, const QByteArray& data)
{
    std::optional<FileStamp> stamp;
    if (writeAll(descriptor, data))
        stamp = FileStamp::of(descriptor);
    const int problem = errno;
    if (::close(descriptor) != 0)
        return std::nullopt;
    errno = problem;
    return stamp;
}

}

bool ToolFile::writeData(const QByteArray& data, const QString& toFile, bool append)
{
    const int flags = O_WRONLY | O_CREAT | O_CLOEXEC | (append ? O_APPEND : O_TRUNC);
    const int descriptor = ::open(QFile::encodeName(toFile).constData(), flags, kOwnerOnly);
    if (descriptor < 0)
        return false;
    const bool isWritten = writeAll(descriptor, data);
    return ::close(descriptor) == 0 && isWritten;
}

std::optional<FileStamp> ToolFile::replaceFile(const QString& path, const QByteArray& data, QString* reason)
{
    const QByteArray target = QFile::encodeName(path);
    QByteArray temporary = target + ".XXXXXX";
    const int descriptor = ::mkstemp(temporary.data());
    if (descriptor < 0) {
        *reason = qt_error_string(errno);
        return std::nullopt;
    }
    const std::optional<FileStamp> stamp = writeAndClose(descriptor, data);
    if (stamp && ::rename(temporary.constData(), target.constData()) == 0)
        return stamp;
    *reason = qt_error_string(errno);
    ::unlink(temporary.constData());
    return std::nullopt;
}

QString ToolFile::linkTarget(const QString& path)
{
    QString target = path;
    for (int links = 0; links < kLinkLimit && QFileInfo(target).isSymLink(); ++links)
        target = QFileInfo(target).symLinkTarget();
    return target;
}
