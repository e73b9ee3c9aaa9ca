#pragma once

#include <QProcess>

#include <memory>

// Where a process of the test desktop writes; an empty path leaves the stream to QProcess.
struct ProcessOutput {
    QString outFile;
    QString errFile;
};

// Starts a program that the kernel ends when this process ends, in whatever way.
std::unique_ptr<QProcess> startProcess(const QString& program, const QStringList& arguments,
    const QProcessEnvironment& environment, const ProcessOutput& output = {});

// The words of a command line, apart at its blanks.
inline QStringList words(const char* text)
{
    return QString::fromUtf8(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

// Ends it politely, after a second by force. Nothing happens to a process that has ended.
void endProcess(QProcess& process);

// Keeps a process from running as long as the object lives, as a busy machine would.
class PausedProcess {
public:
    explicit PausedProcess(const QProcess& process);
    ~PausedProcess() { goOn(); }
    Q_DISABLE_COPY_MOVE(PausedProcess)

    void goOn() const;

private:
    const qint64 m_id;
};
