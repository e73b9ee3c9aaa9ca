#include "tests/desktop/ProgramTest.h"

#include <QCoreApplication>
#include <QFile>

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
    const int exitCode = m_program.run({QStringLiteral("quit")}).exitCode;
    EXPECT_TRUE(exitCode == 0 || exitCode == 3) << exitCode;
    if (m_program.hasResident()) {
        EXPECT_EQ(m_program.quitResident(), 0) << qPrintable(m_program.residentErrors());
    }
}

bool ProgramTest::startResidentAt(const char* scale)
{
    m_program.setEnvironment(QStringLiteral("QT_SCALE_FACTOR"), QLatin1String(scale));
    return m_program.startResident();
}

testing::AssertionResult ProgramTest::startOnDisplays(QRect first, QRect second, const char* scales)
{
    for (const char* name : {"SECOND", "FIRST"})
        m_desktop.removeDisplay(QLatin1String(name));
    m_program.setEnvironment(QStringLiteral("QT_SCREEN_SCALE_FACTORS"), QLatin1String(scales));
    m_desktop.input().moveTo(first.center());
    const bool isStarted = m_desktop.setPrimaryDisplay(QStringLiteral("FIRST"), first) &&
                           m_desktop.setDisplay(QStringLiteral("SECOND"), second) &&
                           m_program.startResident();
    return isStarted ? testing::AssertionSuccess() : testing::AssertionFailure() << "not started";
}

testing::AssertionResult ProgramTest::openOverlay()
{
    return openOverlay(QRect({}, m_desktop.server().size()));
}

testing::AssertionResult ProgramTest::openOverlay(QRect display)
{
    m_before = m_desktop.settledScreen();
    m_desktop.input().chord({Key::Super, Key::Digit1});
    if (m_program.waitForOverlay(m_before, display))
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << "no overlay; the log ends with "
                                       << qPrintable(m_program.logLines().mid(-3).join(QLatin1Char('|')));
}

testing::AssertionResult ProgramTest::openOverlayOnFreeGround()
{
    m_desktop.input().moveTo(kFreeGround);
    return openOverlay();
}

bool ProgramTest::opensOverlay(std::initializer_list<Key> keys, int milliseconds)
{
    m_desktop.input().chord(keys);
    const bool isOpen = waitUntil([this] { return m_program.overlay() != XCB_NONE; }, milliseconds);
    if (isOpen)
        m_desktop.input().click(Button::Right);
    return waitForRest() && isOpen;
}

QImage ProgramTest::savedRegion(QPoint from, QPoint to)
{
    m_desktop.input().drag(from, to);
    return pictureAfter({Key::Control, Key::S});
}

QImage ProgramTest::pictureAfter(std::initializer_list<Key> keys)
{
    const qsizetype count = m_program.savedPictures().size();
    m_desktop.input().chord(keys);
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

QByteArray ProgramTest::clipboard(const char* mimeType) const
{
    const auto reader = m_program.startOther(QStringLiteral("xclip"),
        {QStringLiteral("-selection"), QStringLiteral("clipboard"), QStringLiteral("-out"),
            QStringLiteral("-target"), QLatin1String(mimeType)});
    return reader->waitForFinished(5000) ? reader->readAllStandardOutput() : QByteArray();
}

int ProgramTest::logCount(const char* message) const
{
    return m_program.logLines().count(QLatin1String(message));
}

void ProgramTest::standInForTheBrowser()
{
    const QString folder = m_desktop.home() + QStringLiteral("/bin");
    QDir().mkpath(folder);
    QFile script(folder + QStringLiteral("/xdg-open"));
    ASSERT_TRUE(script.open(QIODevice::WriteOnly));
    script.write("#!/bin/sh\necho \"$1\" >> " + QFile::encodeName(m_desktop.home()) + "/opened\n");
    script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    m_program.setEnvironment(QStringLiteral("PATH"),
        folder + QLatin1Char(':') + m_desktop.environment().value(QStringLiteral("PATH")));
}

QStringList ProgramTest::openedAddresses() const
{
    QFile file(m_desktop.home() + QStringLiteral("/opened"));
    file.open(QIODevice::ReadOnly);
    return QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
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
