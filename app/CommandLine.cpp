#include "app/CommandLine.h"

#include "capture/AreaRules.h"

#include <QFileInfo>

#include <algorithm>
#include <array>
#include <span>

namespace {

constexpr int kLongestDelay = 3600; // seconds
constexpr std::array<const char*, 6> kTypes{".png", ".jpg", ".jpeg", ".bmp", ".tiff", ".gif"};

// Each takes the option's value over, or says what is wrong with it.
QString takeDisplay(VerbRequest& request, const QString& value)
{
    request.display = value;
    return {};
}

QString takeGeometry(VerbRequest& request, const QString& value)
{
    request.geometry = value;
    return AreaRules::parsed(value) ? QString() : QStringLiteral("it is not of the form WxH+X+Y");
}

QString takeLast(VerbRequest& request, const QString&)
{
    request.isLast = true;
    return {};
}

QString takeDelay(VerbRequest& request, const QString& value)
{
    bool isNumber = false;
    request.delay = value.toInt(&isNumber);
    return isNumber && request.delay >= 0 && request.delay <= kLongestDelay
               ? QString()
               : QStringLiteral("it is not a number of seconds from 0 to %1").arg(kLongestDelay);
}

QString takeOutput(VerbRequest& request, const QString& value)
{
    request.output = value;
    const QString type = QLatin1Char('.') + QFileInfo(value).suffix().toLower();
    const bool isKnown = std::ranges::any_of(kTypes, [&](const char* t) { return type == QLatin1String(t); });
    return isKnown || type.size() == 1 ? QString() : QStringLiteral("\"%1\" is no type of picture").arg(type);
}

QString takeClipboard(VerbRequest& request, const QString&)
{
    request.toClipboard = true;
    return {};
}

QString takeJson(VerbRequest& request, const QString&)
{
    request.isJson = true;
    return {};
}

struct Option {
    const char* name;
    const char* verbs; // that take it, each between spaces
    bool hasValue;
    QString (*take)(VerbRequest& request, const QString& value);
};
constexpr Option kOptions[] = {
    {"--display", " full ", true, takeDisplay},
    {"--geometry", " region ", true, takeGeometry},
    {"--last", " region ", false, takeLast},
    {"--delay", " region full window ", true, takeDelay},
    {"--output", " region full window reopen ", true, takeOutput},
    {"--clipboard", " region full window reopen ", false, takeClipboard},
    {"--json", " region full window reopen doctor ", false, takeJson},
};

struct Conflict {
    const char* text;
    bool (*isIn)(const VerbRequest& request);
};
constexpr Conflict kConflicts[] = {
    {"--last and --geometry name two regions",
        [](const VerbRequest& r) { return r.isLast && !r.geometry.isEmpty(); }},
    {"--output and --clipboard name two places",
        [](const VerbRequest& r) { return r.toClipboard && !r.output.isEmpty(); }},
    {"--json and --output - both write to stdout",
        [](const VerbRequest& r) { return r.isJson && r.output == VerbRequest::kToCaller; }},
};

CommandLine wrong(const QString& problem)
{
    return {CommandLine::Kind::Wrong, {}, problem};
}

bool isVerb(const QString& word)
{
    constexpr std::array kVerbs{
        "region", "full", "window", "reopen", "measure", "pick", "menu", "cancel", "quit", "doctor"};
    return std::ranges::any_of(kVerbs, [&](const char* verb) { return word == QLatin1String(verb); });
}

// Takes the first of the arguments, and its value, off them. Empty, or what is wrong.
QString takeOption(VerbRequest& request, QStringList& arguments)
{
    const QString argument = arguments.takeFirst();
    const QString name = argument.section(QLatin1Char('='), 0, 0);
    const auto option =
        std::ranges::find_if(kOptions, [&](const Option& o) { return name == QLatin1String(o.name); });
    if (option == std::end(kOptions))
        return QStringLiteral("\"%1\" is not an option").arg(argument);
    if (!QString::fromLatin1(option->verbs).contains(QStringLiteral(" %1 ").arg(request.verb)))
        return QStringLiteral("%1 means nothing with %2").arg(name, request.verb);
    const bool isJoined = argument.size() > name.size();
    if (isJoined && !option->hasValue)
        return QStringLiteral("%1 takes no value").arg(name);
    QString value = isJoined ? argument.mid(name.size() + 1) : QString();
    if (option->hasValue && !isJoined && !arguments.isEmpty())
        value = arguments.takeFirst();
    if (option->hasValue && value.isEmpty())
        return QStringLiteral("%1 needs a value").arg(name);
    const QString problem = option->take(request, value);
    return problem.isEmpty() ? QString() : QStringLiteral("%1 %2: %3").arg(name, value, problem);
}

}

CommandLine CommandLine::parsed(const QStringList& arguments)
{
    if (arguments.isEmpty())
        return {};
    QStringList rest = arguments;
    VerbRequest request{.verb = rest.takeFirst()};
    const bool asksForHelp = request.verb == QLatin1String("--help") || request.verb == QLatin1String("-h");
    if (asksForHelp || (isVerb(request.verb) && rest == QStringList{QStringLiteral("--help")}))
        return {Kind::Help};
    if (request.verb == QLatin1String("--version") && rest.isEmpty())
        return {Kind::Version};
    if (!isVerb(request.verb))
        return wrong(QStringLiteral("\"%1\" is not a verb").arg(request.verb));
    while (!rest.isEmpty())
        if (const QString problem = takeOption(request, rest); !problem.isEmpty())
            return wrong(problem);
    for (const Conflict& conflict : kConflicts)
        if (conflict.isIn(request))
            return wrong(QString::fromLatin1(conflict.text));
    return {request.verb == QLatin1String("doctor") ? Kind::Doctor : Kind::Verb, request, {}};
}

QString CommandLine::usage()
{
    return QStringLiteral(
        "usage: lumora-screenshot [VERB [OPTION]...]\n"
        "       lumora-screenshot --version | --help\n"
        "\n"
        "Without a verb the program starts and waits for its hot keys, or opens the\n"
        "menu of the one that runs.\n"
        "  region   capture a region and print the path of the saved picture\n"
        "  full     capture the display under the pointer and print the path\n"
        "  window   capture the active window, on the display that holds most of it,\n"
        "           and print the path\n"
        "  reopen   open the last capture again, for an hour after it was made\n"
        "  measure  measure distances on the screen until Escape is pressed\n"
        "  pick     pick a colour from the screen and print it as #rrggbb\n"
        "  menu     open the menu at the pointer\n"
        "  cancel   end a running capture, countdown or tool\n"
        "  quit     end the program\n"
        "  doctor   say what works, what does not and how to mend it\n"
        "\n"
        "options of a verb:\n"
        "  --display N         full: the display of that number, from 1, or of that name\n"
        "  --last              region: the region that was chosen last, without asking\n"
        "  --geometry WxH+X+Y  region: that rectangle, without asking; device pixels of\n"
        "                      the virtual screen, from its top left corner; -X and -Y\n"
        "                      count from its right and bottom edges\n"
        "  --delay S           region, full, window: count S seconds on the screen first\n"
        "  --output FILE       region, full, window, reopen: save there; the extension\n"
        "                      names the type: .png .jpg .jpeg .bmp .tiff .gif,\n"
        "                      PNG without one; - writes a PNG to stdout\n"
        "  --clipboard         region, full, window, reopen: copy instead of saving\n"
        "  --json              region, full, window, reopen, doctor: print JSON; of a\n"
        "                      picture its path, size, display, scale and region\n"
        "\n"
        "exit codes: 0 done, 1 failed, 2 wrong usage, 3 the program does not run,\n"
        "            4 it was cancelled or ended elsewhere than --output says,\n"
        "            5 another capture is under way,\n"
        "            6 the output cannot be written, 7 no such display, window or region\n");
}
