#pragma once

#include "tests/desktop/Input.h"
#include "tests/desktop/Process.h"
#include "tests/desktop/XClient.h"

#include <QTemporaryDir>
#include <QVariantMap>

#include <optional>

struct DesktopOptions {
    QSize size{1280, 800};
    bool hasWindowManager = true;
    bool hasClients = true; // a terminal with text, a clock and a logo over the noise
    QStringList serverArguments = {};
};

// A desktop of its own: a virtual X server, on request a window manager and real programs, and a home that
// nobody else uses. Everything it started ends with it.
class Desktop {
public:
    explicit Desktop(const DesktopOptions& options = {});
    ~Desktop();

    // False when a part did not start; `server()` must then not be asked.
    bool isReady() const { return m_isReady; }
    const XClient& server() const { return *m_client; }
    Input& input() { return *m_input; }
    QString displayName() const { return m_displayName; }
    QProcessEnvironment environment() const { return m_environment; }

    // The whole screen.
    QImage screen() const { return m_client->pixels(QRect({}, m_client->size())); }
    // The screen once nothing on it moves any more.
    QImage settledScreen() const;

    // Runs a program of the desktop to its end; its exit code, -1 when it crashed or did not end in time.
    int run(const QString& program, const QStringList& arguments) const;
    // Starts a program that lives until the desktop ends.
    QProcess& start(const char* program, const QStringList& arguments);
    // Splits the screen: each rectangle becomes a display, named as given. The one that holds the screen's
    // corner is the first display, unless a primary one is set.
    bool setDisplay(const char* name, QRect pixels) const;
    bool setPrimaryDisplay(const char* name, QRect pixels) const;
    bool removeDisplay(const char* name) const;
    // The power cord of the server.
    void killServer();

    QString home() const { return m_home.path(); }
    QString configFolder() const { return m_home.filePath(QStringLiteral("config")); }
    QString cacheFolder() const { return m_home.filePath(QStringLiteral("cache")); }
    QString picturesFolder() const { return m_home.filePath(QStringLiteral("Pictures")); }

private:
    void makeHome();
    // The program under test starts without its start window.
    void declineGreeting() const;
    bool setMonitor(const QString& name, QRect pixels, const char* output) const;
    bool startServer(const DesktopOptions& options);
    bool startWindowManager();
    bool startClients();

    QTemporaryDir m_home;
    QProcessEnvironment m_environment;
    QString m_displayName;
    std::vector<std::unique_ptr<QProcess>> m_processes; // in the order of their start, the server first
    std::unique_ptr<XClient> m_client;
    std::unique_ptr<Input> m_input;
    bool m_isReady = false;
};
