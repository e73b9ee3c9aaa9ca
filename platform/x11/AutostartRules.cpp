#include "platform/x11/AutostartRules.h"

#include <QStringList>

namespace {

const QString kExecKey = QStringLiteral("Exec=");

// An Exec line is quoted twice: as an argument, and its backslashes again as a value of the file.
QString quotedForExec(const QString& path)
{
    QString argument;
    for (QChar c : path) {
        if (QStringLiteral("\"`$\\").contains(c))
            argument += QLatin1Char('\\');
        argument += c;
        if (c == QLatin1Char('%'))
            argument += c;
    }
    return QLatin1Char('"') + argument.replace(QLatin1Char('\\'), QStringLiteral("\\\\")) + QLatin1Char('"');
}

QString firstArgument(const QString& command)
{
    const bool isQuoted = command.startsWith(QLatin1Char('"'));
    const QChar end = QLatin1Char(isQuoted ? '"' : ' ');
    QString argument;
    for (qsizetype i = isQuoted; i < command.size() && command[i] != end; ++i) {
        if (isQuoted && command[i] == QLatin1Char('\\') && i + 1 < command.size())
            ++i;
        argument += command[i];
    }
    return argument.replace(QStringLiteral("%%"), QStringLiteral("%"));
}

QString valueOf(const QStringList& lines, const QString& key)
{
    for (const QString& line : lines) {
        if (line.startsWith(key))
            return line.mid(key.size()).trimmed().replace(QStringLiteral("\\\\"), QStringLiteral("\\"));
    }
    return {};
}

}

QString entryForProgram(const QString& program)
{
    return QStringLiteral("[Desktop Entry]\nType=Application\nName=Lumora Mac Screenshot\n") +
           QStringLiteral("Icon=com.Lumora.Screenshot\nTerminal=false\n") + kExecKey +
           quotedForExec(program) + QLatin1Char('\n');
}

QString programOfEntry(const QString& text)
{
    const QStringList lines = text.split(QLatin1Char('\n'));
    if (valueOf(lines, QStringLiteral("Hidden=")) == QStringLiteral("true"))
        return {};
    return firstArgument(valueOf(lines, kExecKey));
}
