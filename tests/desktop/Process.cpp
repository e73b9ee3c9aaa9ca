#include "tests/desktop/Process.h"

#include <csignal>
#include <sys/prctl.h>

std::unique_ptr<QProcess> startProcess(const QString& program, const QStringList& arguments,
    const QProcessEnvironment& environment, const ProcessOutput& output)
{
    auto process = std::make_unique<QProcess>();
    process->setProcessEnvironment(environment);
    process->setStandardInputFile(QProcess::nullDevice());
    if (!output.outFile.isEmpty())
        process->setStandardOutputFile(output.outFile, QIODevice::Append);
    if (!output.errFile.isEmpty())
        process->setStandardErrorFile(output.errFile, QIODevice::Append);
    process->setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    process->start(program, arguments);
    return process;
}

void endProcess(QProcess& process)
{
    if (process.state() == QProcess::NotRunning)
        return;
    process.terminate();
    if (process.waitForFinished(1000))
        return;
    process.kill();
    process.waitForFinished(1000);
}

PausedProcess::PausedProcess(const QProcess& process)
    : m_id(process.processId())
{
    kill(pid_t(m_id), SIGSTOP);
}

void PausedProcess::goOn() const
{
    kill(pid_t(m_id), SIGCONT);
}
