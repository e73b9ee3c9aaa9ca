#include "bench/desktop/ProcessorTime.h"
#include "output/NotificationRules.h"
#include "output/ZRBasicLocalNotification.h"
#include "output/ZRLocalNotificationCenter.h"
#include "tests/desktop/Desktop.h"
#include "tests/output/ManualClock.h"

#include <QApplication>
#include <QScreen>
#include <QThread>

namespace {

using namespace NotificationRules;

constexpr int kRounds = 31;
constexpr int kFrames = kSlideMs / kFrameMs;
constexpr int kServersTurnMs = 3; // in which the server draws and answers

void letServerDraw()
{
    QCoreApplication::processEvents();
    QThread::msleep(kServersTurnMs);
    QCoreApplication::processEvents();
}

// The processor time of a frame of this process, milliseconds; `step` carries out the given one.
double perFrame(const std::function<void(int frame)>& step)
{
    const double slide = ProcessorTime::of([&step] {
        for (int frame = 1; frame <= kFrames; ++frame) {
            step(frame);
            letServerDraw();
        }
    });
    return slide / kFrames;
}

// A bare window of a notice's size, moved to where a notice slides.
double moveBareWindow(bool isBlended)
{
    QWidget window(nullptr, Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::BypassWindowManagerHint |
                                Qt::Tool | Qt::WindowDoesNotAcceptFocus);
    window.setAttribute(Qt::WA_ShowWithoutActivating);
    window.setAttribute(Qt::WA_TranslucentBackground, isBlended);
    window.setFixedSize(QSizeF(kWidth, kHeight).toSize());
    const QPoint corner = QGuiApplication::primaryScreen()->geometry().topRight();
    const auto standAt = [&](int frame) {
        const double shown = (kWidth + kGap) * eased(double(frame) / kFrames);
        window.move(corner + QPoint(-qRound(shown), int(kBelowTop)));
    };
    standAt(0);
    window.show();
    letServerDraw();
    return perFrame(standAt);
}

double slideNotice(bool isBlended)
{
    auto owned = std::make_unique<ManualClock>();
    ManualClock& clock = *owned;
    ZRLocalNotificationCenter center(std::move(owned));
    center.isBlended = [isBlended] { return isBlended; };
    center.deliverZRNotification(std::make_unique<ZRBasicLocalNotification>(
        QStringLiteral("Saved"), QStringLiteral("The picture is in a folder."), QStringLiteral("logo")));
    letServerDraw();
    return perFrame([&clock](int) { clock.pass(kFrameMs); });
}

bool compare()
{
    BenchTable table;
    const QSize size{int(kWidth), int(kHeight)};
    for (const bool isBlended : {false, true}) {
        const QString name = isBlended ? QStringLiteral("a notice slides, blended, CPU a frame")
                                       : QStringLiteral("a notice slides, cut out, CPU a frame");
        ProcessorTime::compare(
            {name, size, {}, 0, {}, 2.0}, kRounds, [=] { return moveBareWindow(isBlended); },
            [=] { return slideNotice(isBlended); }, table);
    }
    return table.isKept();
}

}

// On a virtual desktop of its own. Ends with 1 when a limit is not kept, with 2 when the desktop does not
// stand.
int main(int argc, char** argv)
{
    const Desktop desktop;
    if (!desktop.isReady())
        return 2;
    qputenv("QT_QPA_PLATFORM", "xcb");
    qputenv("DISPLAY", desktop.displayName().toLocal8Bit());
    const QApplication application(argc, argv);
    return compare() ? 0 : 1;
}
