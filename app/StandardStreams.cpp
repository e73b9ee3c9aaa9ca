#include "app/StandardStreams.h"

#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

// Opened for reading, so that a write to the stream fails as it would on the closed one.
void StandardStreams::secure()
{
    std::signal(SIGPIPE, SIG_IGN);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (fcntl(stream, F_GETFD) == -1 && open("/dev/null", O_RDONLY) == -1)
            return;
}

QString StandardStreams::outputProblem()
{
    const int flags = fcntl(STDOUT_FILENO, F_GETFL);
    if (flags == -1 || (flags & O_ACCMODE) == O_RDONLY)
        return QStringLiteral("it is closed");
    pollfd stream{STDOUT_FILENO, POLLOUT, 0};
    const bool hasNoReader = poll(&stream, 1, 0) == 1 && (stream.revents & POLLERR);
    return hasNoReader ? QStringLiteral("nobody reads it") : QString();
}

bool StandardStreams::isOutputTerminal()
{
    return isatty(STDOUT_FILENO) == 1;
}

QString StandardStreams::write(const char* bytes, qint64 count)
{
    while (count > 0) {
        const ssize_t written = ::write(STDOUT_FILENO, bytes, size_t(count));
        if (written < 0 && errno != EINTR)
            return qt_error_string(errno);
        if (written > 0) {
            bytes += written;
            count -= written;
        }
    }
    return {};
}
