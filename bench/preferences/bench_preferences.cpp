#include "app/PreferencesWindow.h"
#include "bench/desktop/ProcessorTime.h"
#include "platform/Platform.h"
#include "settings/AppSettings.h"
#include "settings/LanguageCatalogue.h"
#include "settings/UserDefaults.h"
#include "ui_ZRPreferencesView.h"

#include <QApplication>
#include <QTemporaryDir>

namespace {

constexpr int kRounds = 21;

// A workspace that is never asked.
class NoWorkspace final : public Workspace {
public:
    ActiveApplication activeApplication() const override { return {}; }
    void activate(const ActiveApplication&) override { }
    bool openLink(const QUrl&) override { return false; }
    bool revealFile(const QString&) override { return false; }
};

void paint(QWidget& window)
{
    QCoreApplication::processEvents();
    window.grab();
}

// The form as the designer left it, without a text.
double showBareForm()
{
    return ProcessorTime::of([] {
        QWidget window;
        Ui::ZRPreferencesView form;
        form.setupUi(&window);
        window.show();
        paint(window);
    });
}

double showPreferences(Workspace& workspace)
{
    return ProcessorTime::of([&workspace] {
        PreferencesWindow window(workspace);
        window.showPreferences();
        paint(window);
    });
}

}

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QTemporaryDir folder;
    UserDefaults settings(folder.path(), AppSettings::AppBundleId(), AppSettings::AppOldBundleId());
    UserDefaults::setStandardUserDefaults(&settings);
    AppSettings::setScreenshotSavePath(folder.path());
    LanguageCatalogue::updateLangMenu({QStringLiteral(":/languages")});
    NoWorkspace workspace;
    BenchTable table;
    ProcessorTime::compare(
        {QStringLiteral("preferences, built and shown, CPU"), {800, 800}, {}, 0, QStringLiteral("ms"), 2.0},
        kRounds, showBareForm, [&workspace] { return showPreferences(workspace); }, table);
    return table.isKept() ? 0 : 1;
}
