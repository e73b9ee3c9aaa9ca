#include "bench/desktop/FileArrival.h"

#include <QDir>
#include <QFile>

#include <sys/inotify.h>
#include <unistd.h>

FileArrival::FileArrival(const QString& folder)
    : m_watch(inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
{
    QDir().mkpath(folder);
    inotify_add_watch(m_watch, QFile::encodeName(folder).constData(), IN_CLOSE_WRITE | IN_MOVED_TO);
}

FileArrival::~FileArrival()
{
    close(m_watch);
}

bool FileArrival::hasArrived()
{
    bool isThere = false;
    alignas(inotify_event) char buffer[4096];
    for (ssize_t size; (size = read(m_watch, buffer, sizeof buffer)) > 0;) {
        for (const char* at = buffer; at < buffer + size;) {
            const auto* event = reinterpret_cast<const inotify_event*>(at);
            isThere |= event->len > 0 && event->name[0] != '.';
            at += sizeof(inotify_event) + event->len;
        }
    }
    return isThere;
}
