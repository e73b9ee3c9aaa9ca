#include "tests/desktop/Desktop.h"

#include "tests/desktop/Files.h"
#include "tests/desktop/Wait.h"

Desktop::Desktop(const DesktopOptions& options)
{
    makeHome();
    m_isReady = startServer(options) && (!options.hasWindowManager || startWindowManager()) &&
                (!options.hasClients || startClients());
}

Desktop::~Desktop()
{
    m_input.reset();
    while (!m_processes.empty()) {
        endProcess(*m_processes.back());
        m_processes.pop_back();
    }
}

void Desktop::makeHome()
{
    m_environment = QProcessEnvironment::systemEnvironment();
    for (const QString& variable : m_environment.keys()) {
        if (variable.startsWith(QLatin1String("QT_")) || variable.startsWith(QLatin1String("XDG_")))
            m_environment.remove(variable);
    }
    m_environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
    m_environment.insert(QStringLiteral("HOME"), home());
    m_environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    m_environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), QStringLiteral("disabled:"));
    const std::pair<const char*, const char*> folders[] = {{"XDG_CONFIG_HOME", "config"},
        {"XDG_CACHE_HOME", "cache"}, {"XDG_DATA_HOME", "data"}, {"XDG_RUNTIME_DIR", "runtime"}};
    for (const auto& [variable, name] : folders) {
        const QString folder = m_home.filePath(QLatin1String(name));
        QDir().mkpath(folder);
        QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        m_environment.insert(QLatin1String(variable), folder);
    }
    declineGreeting();
}

void Desktop::declineGreeting() const
{
    writeFile(configFolder() + QStringLiteral("/com.Lumora.Screenshot.plist"),
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>"
        "<key>applicationIsNeedShowStartWindow</key><false/></dict></plist>\n");
}

bool Desktop::startServer(const DesktopOptions& options)
{
    const QString line = QString::asprintf("-displayfd 1 -screen 0 %dx%dx24 -nolisten tcp -noreset",
        options.size.width(), options.size.height());
    QProcess& server = start("Xvfb", words(qPrintable(line)) + options.serverArguments);
    if (!waitUntil([&] { return server.waitForReadyRead(50) || server.canReadLine(); }))
        return false;
    m_displayName = QLatin1Char(':') + QString::fromLatin1(server.readLine().trimmed());
    m_environment.insert(QStringLiteral("DISPLAY"), m_displayName);
    m_client = std::make_unique<XClient>(m_displayName);
    if (!m_client->isConnected())
        return false;
    m_input = std::make_unique<Input>(*m_client);
    m_client->paintNoise();
    return true;
}

bool Desktop::startWindowManager()
{
    start("openbox", words("--sm-disable"));
    return waitUntil([this] { return m_client->isManaged(); });
}

bool Desktop::startClients()
{
    start("xterm", words("-geometry 60x16+30+40 -e") +
                       QStringList(QStringLiteral("sh -c 'ls -l /usr/bin | head -14; exec sleep 1000'")));
    start("xclock", words("-update 3600 -geometry 200x200+520+60"));
    start("xlogo", words("-geometry 180x180+560+340"));
    return waitUntil([this] {
        m_client->wakeWindowManager();
        const std::vector<xcb_window_t> windows = m_client->visibleWindows();
        // A window manager's own ones are a pixel large.
        return std::count_if(windows.begin(), windows.end(),
                   [this](xcb_window_t window) { return m_client->geometry(window).width() > 100; }) == 3;
    });
}

QImage Desktop::settledScreen() const
{
    QImage last = screen();
    waitUntil([&] {
        QThread::msleep(100);
        return std::exchange(last, screen()) == last;
    });
    return last;
}

int Desktop::run(const QString& program, const QStringList& arguments) const
{
    const auto process = startProcess(program, arguments, m_environment);
    if (!process->waitForFinished(5000) || process->exitStatus() != QProcess::NormalExit)
        return -1;
    return process->exitCode();
}

QProcess& Desktop::start(const char* program, const QStringList& arguments)
{
    const ProcessOutput output{{}, m_home.filePath(QStringLiteral("clients.txt"))};
    m_processes.push_back(startProcess(QString::fromUtf8(program), arguments, m_environment, output));
    m_processes.back()->waitForStarted();
    return *m_processes.back();
}

bool Desktop::setDisplay(const char* name, QRect pixels) const
{
    return setMonitor(QLatin1String(name), pixels, pixels.topLeft().isNull() ? "screen" : "none");
}

bool Desktop::setPrimaryDisplay(const char* name, QRect pixels) const
{
    return setMonitor(QLatin1Char('*') + QLatin1String(name), pixels, "screen");
}

bool Desktop::setMonitor(const QString& name, QRect pixels, const char* output) const
{
    const QString place = QString::asprintf("%d/%dx%d/%d+%d+%d", pixels.width(), pixels.width() / 4,
        pixels.height(), pixels.height() / 4, pixels.x(), pixels.y());
    return run(QStringLiteral("xrandr"),
               {QStringLiteral("--setmonitor"), name, place, QLatin1String(output)}) == 0;
}

bool Desktop::removeDisplay(const char* name) const
{
    return run(QStringLiteral("xrandr"), {QStringLiteral("--delmonitor"), QLatin1String(name)}) == 0;
}

void Desktop::killServer()
{
    m_processes.front()->kill();
    m_processes.front()->waitForFinished(1000);
}
