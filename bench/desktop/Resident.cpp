#include "bench/desktop/Resident.h"

#include "bench/desktop/KeyProbe.h"
#include "bench/desktop/Stopwatch.h"

Resident::Resident(Desktop& desktop, const QString& program, const QStringList& arguments, Key hotKey,
    const QProcessEnvironment& variables)
    : m_hotKey(hotKey)
{
    QProcessEnvironment environment = desktop.environment();
    environment.insert(variables);
    const Stopwatch watch;
    m_process = startProcess(program, arguments, environment,
        {QProcess::nullDevice(), desktop.home() + QStringLiteral("/residents.txt")});
    m_process->waitForStarted();
    m_startTime = millisecondsUntil(watch, [&] { return isHotKeyTaken(desktop.server(), hotKey); });
}

Resident::~Resident()
{
    endProcess(*m_process);
}
