#pragma once

#include "tests/desktop/Desktop.h"

#include <QDir>

// What one run of the program answered.
struct Answer {
    int exitCode = -1; // -1 when it crashed or did not end in time
    QString out;
    QString err;
    // The saved file's path, which stands alone on its line.
    QString path() const { return out.trimmed(); }
};

// The program under test on a test desktop: its command line, its resident process, its files and its
// overlay.
class Program {
public:
    // `path` is the executable.
    Program(Desktop& desktop, QString path);
    ~Program();

    // Added to the environment of every run from now on.
    void setEnvironment(const char* variable, const QString& value)
    {
        m_environment.insert(QString::fromUtf8(variable), value);
    }
    void setEnvironment(const char* variable, const char* value)
    {
        setEnvironment(variable, QString::fromUtf8(value));
    }
    void removeEnvironment(const char* variable) { m_environment.remove(QString::fromUtf8(variable)); }

    // One run, from start to end.
    Answer run(const QStringList& arguments) const { return finish(*start(arguments)); }
    Answer run(const char* arguments) const { return run(words(arguments)); }
    // A run that goes on while the test does something, and its end.
    std::unique_ptr<QProcess> start(const QStringList& arguments) const
    {
        return startOther(m_path, arguments);
    }
    std::unique_ptr<QProcess> start(const char* arguments) const { return start(words(arguments)); }
    static Answer finish(QProcess& process);
    // Another program in the same environment.
    std::unique_ptr<QProcess> startOther(const QString& program, const QStringList& arguments) const
    {
        return startProcess(program, arguments, m_environment);
    }

    // Starts the resident program in the foreground; true when its hot keys are live.
    bool startResident();
    // Starts it behind a shell command that ends in the program, such as "ulimit -f 64; exec".
    bool startResidentBehind(const QString& shellPrefix);
    bool hasResident() const { return m_resident != nullptr; }
    QProcess& resident() const { return *m_resident; }
    // Ends it by force, as a crash would, and forgets it.
    void killResident();
    // Asks it to quit, waits and forgets it; its exit code, -1 when it crashed or did not end in time.
    int quitResident();
    bool answers() const { return run("cancel").exitCode == 0; }

    // The visible overlay, XCB_NONE when there is none.
    xcb_window_t overlay() const;
    // Waits until the overlay shows the display `pixels` dimmed, as it looked in `before`, and has the
    // keyboard.
    bool waitForOverlay(const QImage& before, QRect pixels) const;
    bool waitForOverlay(const QImage& before) const { return waitForOverlay(before, before.rect()); }
    bool waitForNoOverlay() const;

    QString logFile() const;
    // The messages of the log without their time stamps, and the lines that belong to none as they are.
    QStringList logLines() const;
    QString residentErrors() const;
    QString settingsFile() const;
    // Writes the settings file as a user with a text editor would, after a first start: the default save
    // folder stands, so that the next start leaves a chosen one alone, and the start window is declined.
    void writeSettings(const QVariantMap& changes) const;

    QString saveFolder() const;
    // The pictures in the save folder, the oldest first.
    QStringList savedPictures() const { return filesIn(saveFolder(), QDir::Files); }
    // Everything in a folder, hidden and unfinished files included.
    static QStringList allFiles(const QString& folder) { return filesIn(folder, QDir::Files | QDir::Hidden); }

private:
    bool startAndWait(const QString& program, const QStringList& arguments);
    static QStringList filesIn(const QString& folder, QDir::Filters filters);
    QString errorsFile() const { return m_desktop.home() + QStringLiteral("/errors.txt"); }

    Desktop& m_desktop;
    QString m_path;
    QProcessEnvironment m_environment;
    std::unique_ptr<QProcess> m_resident;
};
