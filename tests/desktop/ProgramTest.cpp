#include "tests/desktop/ProgramTest.h"

#include <QCoreApplication>

namespace {

constexpr int kPauseAfterCaptureMs = 350; // the program drops hot keys for 0.3 s

} // namespace

ProgramTest::ProgramTest(const DesktopOptions& options, const char* program)
    : m_desktop(options)
    , m_program(m_desktop, QString::fromUtf8(program))
{
}

void ProgramTest::SetUp()
{
    ASSERT_TRUE(m_desktop.isReady());
}

void ProgramTest::TearDown()
{
    const int exitCode = m_program.run("quit").exitCode;
    EXPECT_TRUE(exitCode == 0 || exitCode == 3) << exitCode;
    if (m_program.hasResident()) {
        EXPECT_EQ(m_program.quitResident(), 0) << qPrintable(m_program.residentErrors());
    }
}

bool ProgramTest::startResidentAt(const char* scale)
{
    m_program.setEnvironment("QT_SCALE_FACTOR", scale);
    return m_program.startResident();
}

testing::AssertionResult ProgramTest::startOnDisplays(QRect first, QRect second, const char* scales)
{
    for (const char* name : {"SECOND", "FIRST"})
        m_desktop.removeDisplay(name);
    m_program.setEnvironment("QT_SCREEN_SCALE_FACTORS", scales);
    input().moveTo(first.center());
    const bool isStarted = m_desktop.setPrimaryDisplay("FIRST", first) &&
                           m_desktop.setDisplay("SECOND", second) && m_program.startResident();
    return isStarted ? testing::AssertionSuccess() : testing::AssertionFailure() << "not started";
}

testing::AssertionResult ProgramTest::openOverlay()
{
    return openOverlay(QRect({}, server().size()));
}

testing::AssertionResult ProgramTest::openOverlay(QRect display)
{
    m_before = m_desktop.settledScreen();
    input().chord({Key::Super, Key::Digit1});
    if (m_program.waitForOverlay(m_before, display))
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << "no overlay; the log ends with "
                                       << qPrintable(m_program.logLines().mid(-3).join(QLatin1Char('|')));
}

testing::AssertionResult ProgramTest::openOverlayOnFreeGround()
{
    input().moveTo(kFreeGround);
    return openOverlay();
}

bool ProgramTest::opensOverlay(const std::vector<Key>& keys, int milliseconds)
{
    input().chord(keys);
    const bool isOpen = waitUntil([this] { return m_program.overlay() != XCB_NONE; }, milliseconds);
    if (isOpen)
        input().click(Button::Right);
    return waitForRest() && isOpen;
}

std::unique_ptr<QProcess> ProgramTest::startRegion()
{
    return startRegion(QRect({}, server().size()));
}

std::unique_ptr<QProcess> ProgramTest::startRegion(QRect display)
{
    m_before = m_desktop.settledScreen();
    auto verb = m_program.start("region");
    return m_program.waitForOverlay(m_before, display) ? std::move(verb) : nullptr;
}

testing::AssertionResult ProgramTest::cancelCapture()
{
    input().chord({Key::Escape});
    return waitForRest();
}

testing::AssertionResult ProgramTest::saves(QRect part)
{
    return samePixels(pictureAfter({Key::Control, Key::S}), m_before.copy(part));
}

testing::AssertionResult ProgramTest::savesRegion(QPoint from, QPoint to)
{
    input().drag(from, to);
    return saves(spannedBy(from, to));
}

QImage ProgramTest::pictureAfter(const std::vector<Key>& keys)
{
    const qsizetype count = m_program.savedPictures().size();
    input().chord(keys);
    if (!waitUntil([&] { return m_program.savedPictures().size() > count; }) || !waitForRest())
        return {};
    return QImage(m_program.savedPictures().last());
}

testing::AssertionResult ProgramTest::waitForRest() const
{
    if (!m_program.waitForNoOverlay())
        return testing::AssertionFailure() << "the overlay stays";
    QThread::msleep(kPauseAfterCaptureMs);
    return testing::AssertionSuccess();
}

bool ProgramTest::waitForFocus(const char* title) const
{
    return waitUntil([&] { return server().title(server().focusedWindow()) == QString::fromUtf8(title); });
}

void ProgramTest::takeHotKey(Key key) const
{
    xcb_grab_key(server().connection(), false, server().root(), XCB_MOD_MASK_4, quint8(key),
        XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    server().sync();
}

QByteArray ProgramTest::clipboard(const char* mimeType) const
{
    const QString line = QStringLiteral("-selection clipboard -out -target ") + QLatin1String(mimeType);
    const auto reader = m_program.startOther(QStringLiteral("xclip"), words(qPrintable(line)));
    return reader->waitForFinished(5000) ? reader->readAllStandardOutput() : QByteArray();
}

int ProgramTest::logCount(const char* message) const
{
    return m_program.logLines().count(QLatin1String(message));
}

void ProgramTest::standInForTheBrowser()
{
    const QString folder = m_desktop.home() + QStringLiteral("/bin");
    const QString script = folder + QStringLiteral("/xdg-open");
    ASSERT_TRUE(
        writeFile(script, "#!/bin/sh\necho \"$1\" >> " + QFile::encodeName(m_desktop.home()) + "/opened\n"));
    QFile::setPermissions(script, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    m_program.setEnvironment(
        "PATH", folder + QLatin1Char(':') + m_desktop.environment().value(QStringLiteral("PATH")));
}

QStringList ProgramTest::openedAddresses() const
{
    return QString::fromUtf8(readFile(m_desktop.home() + QStringLiteral("/opened")))
        .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

std::string desktopName(const testing::TestParamInfo<bool>& hasWindowManager)
{
    return hasWindowManager.param ? "Openbox" : "NoWindowManager";
}

testing::AssertionResult samePixels(const QImage& actual, const QImage& expected)
{
    if (actual.size() != expected.size())
        return testing::AssertionFailure() << actual.width() << 'x' << actual.height() << " instead of "
                                           << expected.width() << 'x' << expected.height();
    const QImage plain = actual.convertToFormat(QImage::Format_RGB32);
    for (int y = 0; y < plain.height(); ++y) {
        for (int x = 0; x < plain.width(); ++x) {
            if (plain.pixel(x, y) != expected.pixel(x, y))
                return testing::AssertionFailure() << "pixel " << x << ',' << y << " is " << std::hex
                                                   << plain.pixel(x, y) << ", not " << expected.pixel(x, y);
        }
    }
    return testing::AssertionSuccess();
}

double meanDifference(const QImage& actual, const QImage& expected)
{
    if (actual.size() != expected.size() || actual.isNull())
        return 255;
    double sum = 0;
    for (int y = 0; y < actual.height(); ++y) {
        for (int x = 0; x < actual.width(); ++x) {
            const QRgb a = actual.pixel(x, y);
            const QRgb b = expected.pixel(x, y);
            sum +=
                std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) + std::abs(qBlue(a) - qBlue(b));
        }
    }
    return sum / 3 / actual.width() / actual.height();
}

QRect changed(const QImage& a, const QImage& b)
{
    QRect rect;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            if (a.pixel(x, y) != b.pixel(x, y))
                rect |= QRect(x, y, 1, 1);
    return rect;
}

QRect spannedBy(QPoint from, QPoint to)
{
    const QPoint topLeft(std::min(from.x(), to.x()), std::min(from.y(), to.y()));
    return {topLeft, QSize(std::abs(to.x() - from.x()), std::abs(to.y() - from.y()))};
}

// The pictures' plug-ins are found through the application object; the desktop's are no concern of it.
int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
