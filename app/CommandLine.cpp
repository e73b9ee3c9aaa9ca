#include "app/CommandLine.h"

CommandLine CommandLine::parsed(const QStringList& arguments)
{
    if (arguments.isEmpty())
        return {};
    const QString& first = arguments.first();
    if (arguments.size() > 1)
        return {Kind::Wrong, {}};
    if (first == QLatin1String("--help") || first == QLatin1String("-h"))
        return {Kind::Help, {}};
    if (first == QLatin1String("--version"))
        return {Kind::Version, {}};
    for (const char* verb : {"region", "full", "reopen", "measure", "pick", "menu", "cancel", "quit"})
        if (first == QLatin1String(verb))
            return {Kind::Verb, first};
    return {Kind::Wrong, {}};
}

QString CommandLine::usage()
{
    return QStringLiteral(
        "usage: lumora-screenshot [region | full | reopen | measure | pick | menu | cancel | quit |\n"
        "                          --version | --help]\n"
        "\n"
        "Without a verb the program starts and waits for its hot keys, or opens the\n"
        "menu of the one that runs.\n"
        "  region   capture a region and print the path of the saved picture\n"
        "  full     capture the display under the pointer and print the path\n"
        "  reopen   open the last capture again, for an hour after it was made\n"
        "  measure  measure distances on the screen until Escape is pressed\n"
        "  pick     pick a colour from the screen and print it as #rrggbb\n"
        "  menu     open the menu at the pointer\n"
        "  cancel   end a running capture or tool\n"
        "  quit     end the program\n"
        "\n"
        "exit codes: 0 done, 1 failed, 2 wrong usage, 3 the program does not run,\n"
        "            4 it was cancelled, 5 another capture is under way\n");
}
