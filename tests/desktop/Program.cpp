#include "tests/desktop/Program.h"

#include "tests/desktop/Files.h"
#include "tests/desktop/Wait.h"

#include <QRegularExpression>

#include <array>

namespace {

// The corners stay dimmed whatever is drawn around the pointer.
bool isDimmed(const QImage& now, const QImage& before, QRect display)
{
    const QRect inner = display.adjusted(2, 2, -2, -2);
    const std::array corners{inner.topLeft(), inner.topRight(), inner.bottomLeft(), inner.bottomRight()};
    const auto isHalf = [](int value, int whole) { return std::abs(value * 2 - whole) <= 4; };
    return std::all_of(corners.begin(), corners.end(), [&](QPoint corner) {
        const QRgb dimmed = now.pixel(corner);
        const QRgb plain = before.pixel(corner);
        return isHalf(qRed(dimmed), qRed(plain)) && isHalf(qGreen(dimmed), qGreen(plain)) &&
               isHalf(qBlue(dimmed), qBlue(plain));
    });
}

QString plistValue(const QVariant& value)
{
    if (value.typeId() == QMetaType::Bool)
        return value.toBool() ? QStringLiteral("<true/>") : QStringLiteral("<false/>");
    if (value.typeId() == QMetaType::Int)
        return QStringLiteral("<integer>%1</integer>").arg(value.toInt());
    return QStringLiteral("<string>%1</string>").arg(value.toString().toHtmlEscaped());
}

} // namespace

Program::Program(Desktop& desktop, QString path)
    : m_desktop(desktop)
    , m_path(std::move(path))
    , m_environment(desktop.environment())
{
    setEnvironment("LUMORA_NOTICES", "off"); // on no picture of the screen
}

Program::~Program()
{
    if (m_resident)
        endProcess(*m_resident);
}

Answer Program::finish(QProcess& process)
{
    Answer answer;
    if (process.state() == QProcess::NotRunning || process.waitForFinished(10000))
        answer.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    if (!process.isReadable()) // its output went elsewhere
        return answer;
    answer.out = QString::fromUtf8(process.readAllStandardOutput());
    answer.err = QString::fromUtf8(process.readAllStandardError());
    return answer;
}

bool Program::startResident()
{
    return startAndWait(m_path, {});
}

bool Program::startResidentBehind(const QString& shellPrefix)
{
    const QString command = QStringLiteral("%1 \"$0\"").arg(shellPrefix);
    return startAndWait(QStringLiteral("sh"), {QStringLiteral("-c"), command, m_path});
}

bool Program::startAndWait(const QString& program, const QStringList& arguments)
{
    m_resident = startProcess(program, arguments, m_environment, {QProcess::nullDevice(), errorsFile()});
    return m_resident->waitForStarted() && waitUntil([this] { return answers(); });
}

int Program::quitResident()
{
    run("quit");
    const int exitCode = finish(*m_resident).exitCode;
    m_resident.reset();
    return exitCode;
}

void Program::killResident()
{
    m_resident->kill();
    m_resident->waitForFinished(1000);
    m_resident.reset();
}

xcb_window_t Program::overlay() const
{
    const std::vector<xcb_window_t> overlays = m_desktop.server().windowsTitled("Lumora Capture");
    return overlays.empty() ? xcb_window_t(XCB_NONE) : overlays.front();
}

bool Program::waitForOverlay(const QImage& before, QRect pixels) const
{
    return waitUntil([&] { return overlay() != XCB_NONE; }) &&
           waitUntil([&] { return isDimmed(m_desktop.screen(), before, pixels); }) &&
           waitUntil([&] { return m_desktop.server().isKeyboardTaken(); });
}

bool Program::waitForNoOverlay() const
{
    return waitUntil([this] { return overlay() == XCB_NONE; });
}

QString Program::logFile() const
{
    return m_desktop.cacheFolder() + QStringLiteral("/com.Lumora.Screenshot/lumora-screenshot.log");
}

QStringList Program::logLines() const
{
    static const QRegularExpression stamp(
        QStringLiteral("^\\[\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d\\] "));
    QStringList lines = QString::fromUtf8(readFile(logFile())).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (QString& line : lines)
        line.remove(stamp);
    return lines;
}

QString Program::residentErrors() const
{
    return QString::fromUtf8(readFile(errorsFile()));
}

QString Program::settingsFile() const
{
    return m_desktop.configFolder() + QStringLiteral("/com.Lumora.Screenshot.plist");
}

void Program::writeSettings(const QVariantMap& changes) const
{
    QVariantMap values{{QStringLiteral("applicationIsNeedShowStartWindow"), false}};
    values.insert(changes);
    QString entries;
    for (auto value = values.begin(); value != values.end(); ++value)
        entries += QStringLiteral("<key>%1</key>%2\n").arg(value.key(), plistValue(value.value()));
    QDir().mkpath(saveFolder());
    writeFile(
        settingsFile(), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n<dict>\n" +
                            entries.toUtf8() + "</dict>\n</plist>\n");
}

QString Program::saveFolder() const
{
    return m_desktop.picturesFolder() + QStringLiteral("/Lumora Mac Screenshot");
}

QStringList Program::filesIn(const QString& folder, QDir::Filters filters)
{
    const QDir directory(folder);
    QStringList paths;
    for (const QString& name : directory.entryList(filters, QDir::Name))
        paths.push_back(directory.filePath(name));
    return paths;
}
