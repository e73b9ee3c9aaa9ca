// The release of a drag of the region at 3840x2160, until both toolbars are painted, beside a bare
// widget that paints the same pictures in the same places. Processor time, in turns. The first release of a
// program's life, which takes the crosshair and the magnifier off as well, has a process of its own each
// time. Prints one table; ends with 1 when a limit is not kept.
#include "bench/desktop/ProcessorTime.h"
#include "capture/ScreenShotBackView.h"
#include "capture/ToolScreen.h"
#include "capture/ZRScreenShotManager.h"
#include "capture/ZRStaticScreenShotWindow.h"
#include "customui/Images.h"
#include "editor/ZRScreenShotGraffitToolbar.h"
#include "editor/ZRScreenShotShareToolbar.h"
#include "editor/ZRScreenShotToolbarItem.h"
#include "settings/AppSettings.h"
#include "settings/LanguageCatalogue.h"
#include "settings/UserDefaults.h"
#include "tests/fakes/FakePlatform.h"

#include <QApplication>
#include <QEventLoop>
#include <QFile>
#include <QPainter>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>

namespace {

constexpr QSize k4K(3840, 2160);
constexpr int kRounds = 25;
constexpr int kLives = 9; // programs whose first release is measured
constexpr int kPaintDelayMs = 30;
const QString kFirstRelease = QStringLiteral("first-release"); // the argument of such a process
constexpr ZRPoint kFrom{900, 1700}, kTo{2700, 700}, kInside{1500, 1200};

// The program's capture on a faked desktop.
class Capture {
public:
    Capture()
    {
        UserDefaults::setStandardUserDefaults(&m_store);
        LanguageCatalogue::updateLangMenu({QStringLiteral(":/languages")});
        AppSettings::setClientLanguage(QStringLiteral("English"));
        AppSettings::install(m_platform.workspace.get(), nullptr);
        auto& displays = static_cast<FakeDisplays&>(*m_platform.displays);
        DisplayRecord display;
        display.id = 1;
        display.name = QStringLiteral("first");
        display.pixels = {{0, 0}, k4K};
        display.frame = {0, 0, double(k4K.width()), double(k4K.height())};
        displays.displays = {display};
        ToolScreen::install(&displays);
        m_manager = std::make_unique<ZRScreenShotManager>(m_platform);
    }
    ~Capture()
    {
        m_manager.reset();
        ToolScreen::install(nullptr);
        AppSettings::install(nullptr, nullptr);
        UserDefaults::setStandardUserDefaults(nullptr);
    }

    // Drags a region that is not fixed yet.
    void start()
    {
        m_manager->initialize();
        settle(); // the program rests before a hot key
        m_manager->startScreenShotIsFullScreen(false);
        settle();
        m_manager->mouseDown({kFrom, Qt::LeftButton});
        m_manager->mouseDragged({kTo, Qt::NoButton});
        settle();
    }
    // Fixes the region; milliseconds of the release.
    double firstReleaseTime()
    {
        return ProcessorTime::of([this] {
            m_manager->mouseUp({kTo, Qt::LeftButton});
            settle();
        });
    }
    // Moves the region, without its toolbars; milliseconds of the release.
    double releaseTime()
    {
        m_step = -m_step;
        const ZRPoint to{kInside.x + m_step, kInside.y + m_step};
        m_manager->mouseDown({kInside, Qt::LeftButton});
        m_manager->mouseDragged({to, Qt::NoButton});
        settle();
        return ProcessorTime::of([this, to] {
            m_manager->mouseUp({to, Qt::LeftButton});
            settle();
        });
    }
    static ZRStaticScreenShotWindow& overlay()
    {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* window = dynamic_cast<ZRStaticScreenShotWindow*>(widget); window && window->isVisible())
                return *window;
        qFatal("no overlay is shown");
    }
    // Until what has changed is painted, which Qt does a few milliseconds later.
    static void settle()
    {
        QEventLoop loop;
        QTimer::singleShot(kPaintDelayMs, &loop, &QEventLoop::quit);
        loop.exec();
    }

private:
    QTemporaryDir m_folder;
    UserDefaults m_store{m_folder.path(), QStringLiteral("bench"), QStringLiteral("older")};
    Platform m_platform = makeFakePlatform();
    std::unique_ptr<ZRScreenShotManager> m_manager;
    double m_step = 10; // points
};

// Paints the panels and the pictures of the toolbars and, where something comes off, what was below it;
// nothing else.
class BareWidget : public QWidget {
public:
    explicit BareWidget(ZRStaticScreenShotWindow& overlay, const QRegion& bared = {})
        : m_picture(overlay.frame()->image())
        , m_bared(bared)
    {
        setAttribute(Qt::WA_OpaquePaintEvent);
        resize(k4K);
        for (const QWidget* toolbar : {static_cast<QWidget*>(&overlay.graffitToolbar()),
                 static_cast<QWidget*>(&overlay.shareToolbar())})
            add(*toolbar);
        show();
    }

    double paintTime()
    {
        Capture::settle();
        return ProcessorTime::of([this] {
            update(m_panels + m_bared);
            Capture::settle();
        });
    }

private:
    void add(const QWidget& toolbar)
    {
        m_panels += toolbar.geometry();
        for (const auto* item : toolbar.findChildren<ZRScreenShotToolbarItem*>())
            if (item->isVisible())
                m_items += item->geometry().translated(toolbar.pos());
    }
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        for (const QRect& part : m_bared)
            painter.drawImage(part.topLeft(), m_picture, part);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QColor(150, 173, 205));
        painter.setBrush(QColor(240, 248, 255));
        for (const QRect& panel : m_panels)
            painter.drawRoundedRect(panel, 6, 6);
        const QPixmap picture = imageNamed(QStringLiteral("arrow-normal"), {24, 24}, devicePixelRatioF());
        for (const QRect& item : m_items)
            painter.drawPixmap(item.topLeft() + QPoint(4, 4), picture);
    }

    const QImage m_picture;
    const QRegion m_bared;
    QRegion m_panels;
    QRegion m_items;
};

// In a program that has just started: prints the milliseconds of the floor and ours.
int printFirstRelease()
{
    Capture capture;
    capture.start();
    const QRegion before = Capture::overlay().backView().touchedPoints();
    const double ours = capture.firstReleaseTime();
    BareWidget bare(Capture::overlay(), before - Capture::overlay().backView().touchedPoints());
    std::vector<double> floor(kRounds);
    std::generate(floor.begin(), floor.end(), [&bare] { return bare.paintTime(); });
    std::printf("%f %f\n", median(floor), ours);
    return 0;
}

void benchFirstRelease(BenchTable& table)
{
    std::vector<double> floorTimes, ourTimes;
    for (int life = 0; life < kLives; ++life) {
        QProcess program;
        program.start(QCoreApplication::applicationFilePath(), {kFirstRelease});
        program.waitForFinished();
        const QList<QByteArray> times = program.readAllStandardOutput().simplified().split(' ');
        floorTimes.push_back(times.first().toDouble());
        ourTimes.push_back(times.last().toDouble());
    }
    table.add({QStringLiteral("first release, aids off and toolbars painted"), k4K, median(floorTimes),
        median(ourTimes), QStringLiteral("ms"), 2});
}

// A screen of the display's size, off any real one.
void chooseScreen(const QTemporaryDir& folder)
{
    QFile file(folder.filePath(QStringLiteral("screens.json")));
    if (!file.open(QIODevice::WriteOnly))
        qFatal("the screen cannot be described");
    file.write(R"({"screens":[{"name":"first","x":0,"y":0,"width":3840,"height":2160,)"
               R"("logicalDpi":96,"logicalBaseDpi":96,"dpr":1.0}]})");
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + file.fileName().toUtf8());
}

}

int main(int argc, char* argv[])
{
    const QTemporaryDir folder;
    chooseScreen(folder);
    const QApplication app(argc, argv);
    if (app.arguments().contains(kFirstRelease))
        return printFirstRelease();
    BenchTable table;
    benchFirstRelease(table);
    Capture capture;
    capture.start();
    capture.firstReleaseTime();
    BareWidget bare(Capture::overlay());
    ProcessorTime::compare(
        {QStringLiteral("release, both toolbars painted"), k4K, {}, 0, {}, 2}, kRounds,
        [&bare] { return bare.paintTime(); }, [&capture] { return capture.releaseTime(); }, table);
    return table.isKept() ? 0 : 1;
}
