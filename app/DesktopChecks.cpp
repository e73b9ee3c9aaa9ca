#include "app/DesktopChecks.h"

#include "app/HotKeyTables.h"
#include "capture/AreaRules.h"
#include "settings/AppSettings.h"

namespace {

using State = Finding::State;

// What the desktop says to each of the settings' hot keys, as the running program would put it.
QStringList refusalsOf(HotKeys& trial)
{
    QStringList refusals;
    quint32 id = 0;
    for (const QString& hotKey :
        {AppSettings::regionScreenShotHotKey(), AppSettings::fullScreenShotHotKey()}) {
        if (hotKey.isEmpty())
            continue;
        const HotKeyTables::Chord chord = HotKeyTables::parsed(hotKey);
        const QString reason = trial.registerHotKey(++id, chord.keyCode, chord.modifiers);
        if (!reason.isEmpty())
            refusals += QStringLiteral("the hot key \"%1\" does not work: it %2").arg(hotKey, reason);
    }
    for (; id > 0; --id)
        trial.unregisterHotKey(id);
    return refusals;
}

}

Finding DesktopChecks::displays(const Displays& displays)
{
    const QString subject = QStringLiteral("displays");
    const std::vector<DisplayRecord> all = displays.all();
    if (all.empty())
        return {State::Wrong, subject, QStringLiteral("there is none"), QStringLiteral("connect one")};
    QStringList scales;
    for (const DisplayRecord& display : all)
        scales += QString::number(display.scale);
    return {State::Right, subject,
        QStringLiteral("%1; scale %2")
            .arg(AreaRules::list(all, displays.virtualScreen()), scales.join(QStringLiteral(", ")))};
}

Finding DesktopChecks::capture(
    const Displays& displays, WindowServer& windowServer, const DesktopFacts& facts)
{
    const QString subject = QStringLiteral("capture");
    const std::vector<DisplayRecord> all = displays.all();
    QString reason = QStringLiteral("there is no display");
    if (all.empty() || !windowServer.freeze(all.front(), &reason))
        return {State::Wrong, subject, QStringLiteral("the screen cannot be read: %1").arg(reason),
            QStringLiteral("use a display server of 15, 16, 24 or 30 bits a pixel")};
    const QString message = QStringLiteral("the screen can be read, depth %1").arg(facts.depth);
    if (!facts.sharesMemory)
        return {State::Warning, subject, message + QStringLiteral(", slowly: without shared memory"),
            QStringLiteral("run the program where the X server runs, with its MIT-SHM extension")};
    return {State::Right, subject, message + QStringLiteral(", through shared memory")};
}

Finding DesktopChecks::hotKeys(const QStringList* refusals, HotKeys& trial)
{
    const QString subject = QStringLiteral("hot keys");
    const QStringList refused = refusals ? *refusals : refusalsOf(trial);
    if (!refused.isEmpty())
        return {State::Wrong, subject, refused.join(QStringLiteral(", ")),
            QStringLiteral("choose another one in the preferences, or take it from the other program")};
    return {State::Right, subject,
        QStringLiteral("\"%1\" and \"%2\" %3")
            .arg(AppSettings::regionScreenShotHotKey(), AppSettings::fullScreenShotHotKey(),
                refusals ? QStringLiteral("work") : QStringLiteral("are free"))};
}

Finding DesktopChecks::clipboard(const DesktopFacts& facts)
{
    const QString subject = QStringLiteral("clipboard");
    if (!facts.hasClipboardManager)
        return {State::Warning, subject,
            QStringLiteral("no clipboard manager runs: a copied picture goes when the program ends"),
            QStringLiteral("start one, or leave the program running until you have pasted")};
    return {State::Right, subject, QStringLiteral("copied pictures outlive the program")};
}

Finding DesktopChecks::tray(bool isFound)
{
    const QString subject = QStringLiteral("tray");
    if (!isFound)
        return {State::Warning, subject, QStringLiteral("the desktop has no place for status items"),
            QStringLiteral("start a tray, or start the program again to open its menu")};
    return {State::Right, subject, QStringLiteral("there is a place for the status item")};
}
