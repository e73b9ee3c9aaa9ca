#include "bench/desktop/Benches.h"

#include <QGuiApplication>

namespace {

struct Bench {
    const char* name;
    void (*run)(BenchDesktop&, BenchTable&);
};

constexpr Bench kBenches[] = {
    {"start", benchStart},
    {"overlay", benchOverlay},
    {"drag", benchDrag},
    {"chrome", benchChrome},
    {"windows", benchWindows},
    {"hover", benchHover},
    {"capture", benchCapture},
    {"png", benchPng},
    {"languages", benchLanguages},
    {"journal", benchJournal},
    {"pins", benchPins},
    {"rest", benchRest},
};

constexpr QSize kSizes[] = {{1920, 1080}, {3840, 2160}};

// A busy machine may need more than one attempt to start every part. Null when none succeeds.
std::unique_ptr<BenchDesktop> standingDesktop(QSize size)
{
    for (int attempt = 0; attempt < 3; ++attempt)
        if (auto desktop = std::make_unique<BenchDesktop>(size); desktop->isReady())
            return desktop;
    return nullptr;
}

}

// bench_desktop [NAME...]: the named benches, or all, on virtual desktops of their own. Prints one
// table; ends with 1 when a limit is not kept, with 2 when a desktop does not stand.
int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen"); // the pictures on the desktops need fonts, not a display
    QGuiApplication app(argc, argv);
    const QStringList wanted = app.arguments().mid(1);
    BenchTable table;
    for (const QSize size : kSizes) {
        const auto desktop = standingDesktop(size);
        if (!desktop)
            return 2;
        for (const Bench& bench : kBenches)
            if (wanted.isEmpty() || wanted.contains(QLatin1String(bench.name)))
                bench.run(*desktop, table);
    }
    return table.isKept() ? 0 : 1;
}
