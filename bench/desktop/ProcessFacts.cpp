#include "bench/desktop/ProcessFacts.h"

#include <QDir>
#include <QFile>

#include <chrono>
#include <thread>

namespace {

QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The sum of what `number` reads from the named file of each thread.
template <class Number>
auto sumOfThreads(qint64 pid, const char* file, Number number)
{
    const QDir threads(QStringLiteral("/proc/%1/task").arg(pid));
    decltype(number(QByteArray())) sum = 0;
    for (const QString& thread : threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        sum += number(contents(threads.filePath(thread + QLatin1Char('/') + QLatin1String(file))));
    return sum;
}

// The number behind a name in a status file; 0 without it.
qint64 statusNumber(const QByteArray& status, const QByteArray& name)
{
    const qsizetype at = status.indexOf('\n' + name + ':');
    if (at < 0)
        return 0;
    const qsizetype start = at + name.size() + 2;
    return status.mid(start, status.indexOf('\n', start) - start).replace("kB", "").trimmed().toLongLong();
}

}

double ProcessFacts::cpuMilliseconds(qint64 pid)
{
    return sumOfThreads(pid, "schedstat", [](const QByteArray& s) {
        return s.split(' ').first().toLongLong();
    }) / 1e6;
}

double ProcessFacts::residentMegabytes(qint64 pid)
{
    return statusNumber(contents(QStringLiteral("/proc/%1/status").arg(pid)), "VmRSS") * 1024 / 1e6;
}

qint64 ProcessFacts::contextSwitches(qint64 pid)
{
    return sumOfThreads(pid, "status", [](const QByteArray& s) {
        return statusNumber(s, "voluntary_ctxt_switches") + statusNumber(s, "nonvoluntary_ctxt_switches");
    });
}

qint64 ProcessFacts::contextSwitchesIn10s(qint64 pid)
{
    const qint64 before = contextSwitches(pid);
    std::this_thread::sleep_for(std::chrono::seconds(10));
    return contextSwitches(pid) - before;
}
