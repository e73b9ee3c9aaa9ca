#pragma once

#include "tests/desktop/Desktop.h"

// A program that stays and waits for a hot key, from its start until the object goes.
class Resident {
public:
    // Returns when its hot key is live, or after five seconds. Its environment is the desktop's and
    // `variables`.
    Resident(Desktop& desktop, const QString& program, const QStringList& arguments, Key hotKey,
        const QProcessEnvironment& variables = {});
    ~Resident();

    Key hotKey() const { return m_hotKey; }
    qint64 pid() const { return m_process->processId(); }
    // Milliseconds until its hot key was live; infinite when it never was.
    double startTime() const { return m_startTime; }

private:
    Key m_hotKey;
    double m_startTime;
    std::unique_ptr<QProcess> m_process;
};
