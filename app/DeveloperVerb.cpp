#include "app/DeveloperVerb.h"

#include "app/CommandLine.h"
#include "capture/ZRScreenShotManager.h"
#include "editor/ZRScreenShotSetting.h"

namespace {

const QString kVerb = QStringLiteral("tool");

void setStyle(const QString& option, const QString& value, ZRScreenShotManager& manager)
{
    if (option == QLatin1String("--width")) {
        ZRScreenShotSetting::setSelectedLineWidth(qMax(1, value.toInt()));
        manager.changeLineWidth();
    } else if (option == QLatin1String("--color")) {
        ZRScreenShotSetting::setSelectedColor(QColor(value));
        manager.changeDrawColor();
    }
}

}

std::optional<QString> DeveloperVerb::parsed(const QStringList& arguments)
{
    const QString verb = arguments.join(QLatin1Char(' '));
    return isOne(verb) ? std::optional(verb) : std::nullopt;
}

bool DeveloperVerb::isOne(const QString& verb)
{
    return qEnvironmentVariableIsSet("LUMORA_DEVELOPER") && verb.section(QLatin1Char(' '), 0, 0) == kVerb;
}

Reply DeveloperVerb::carryOut(const QString& verb, ZRScreenShotManager& manager)
{
    if (!manager.isCapturing())
        return {ExitCode::kFailed, {}, QStringLiteral("no capture is under way\n")};
    QStringList words = verb.split(QLatin1Char(' '), Qt::SkipEmptyParts).mid(1);
    if (!words.isEmpty() && !words.first().startsWith(QLatin1String("--"))) {
        const QString id = words.takeFirst();
        manager.updateGraffitID(id == QLatin1String("none") ? QString() : id);
    }
    for (; words.size() >= 2; words = words.mid(2))
        setStyle(words[0], words[1], manager);
    return {};
}
