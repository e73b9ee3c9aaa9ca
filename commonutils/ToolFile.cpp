#include "commonutils/ToolFile.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
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

QString ToolFile::linkTarget(const QString& path)
{
    QString target = path;
    for (int links = 0; links < kLinkLimit && QFileInfo(target).isSymLink(); ++links)
        target = QFileInfo(target).symLinkTarget();
    return target;
}
