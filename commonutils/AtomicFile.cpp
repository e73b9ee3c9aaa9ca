#include "commonutils/AtomicFile.h"

#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr int kTries = 16; // names, before a folder full of leftovers is believed

QString reason(const QString& what, int error)
{
    return what + QStringLiteral(": ") + qt_error_string(error);
}

QByteArray hiddenNameIn(const QString& folder)
{
    const quint64 number = QRandomGenerator::global()->generate64();
    return QFile::encodeName(
        folder + QStringLiteral("/.lumora-%1.tmp").arg(number, 16, 16, QLatin1Char('0')));
}

// The descriptor of a new file whose path is left in `name`; -1 with errno set when there can be none.
int createIn(const QString& folder, mode_t mode, QByteArray& name)
{
    int descriptor = -1;
    for (int i = 0; i < kTries && descriptor < 0; ++i) {
        name = hiddenNameIn(folder);
        descriptor = open(name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        if (descriptor < 0 && errno != EEXIST)
            break;
    }
    return descriptor;
}

// The error number, 0 when all of it was written.
int writeAll(int descriptor, const char* bytes, size_t count)
{
    while (count > 0) {
        const ssize_t written = ::write(descriptor, bytes, count);
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            return errno;
        bytes += written;
        count -= size_t(written);
    }
    return 0;
}

// Closes in every case. A file system may report only here that it is full.
int writeAndClose(int descriptor, const void* bytes, size_t count, std::optional<FileStamp>* stamp)
{
    const int error = writeAll(descriptor, static_cast<const char*>(bytes), count);
    if (stamp)
        *stamp = FileStamp::of(descriptor);
    const bool closed = close(descriptor) == 0 || errno == EINTR;
    return error != 0 || closed ? error : errno;
}

} // namespace

QString AtomicFile::write(
    const QString& path, const void* bytes, size_t count, Access access, std::optional<FileStamp>* stamp)
{
    const QString folder = QFileInfo(path).path();
    QByteArray name;
    const int descriptor = createIn(folder, access == Access::Umask ? 0666 : 0600, name);
    if (descriptor < 0)
        return reason(QStringLiteral("no file can be made in %1").arg(folder), errno);

    QString failure;
    if (const int error = writeAndClose(descriptor, bytes, count, stamp))
        failure = reason(QStringLiteral("%1 cannot be written").arg(path), error);
    else if (std::rename(name.constData(), QFile::encodeName(path).constData()) != 0)
        failure = reason(QStringLiteral("%1 cannot be put in place").arg(path), errno);
    if (!failure.isEmpty())
        unlink(name.constData());
    return failure;
}
