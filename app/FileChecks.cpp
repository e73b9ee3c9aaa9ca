#include "app/FileChecks.h"

#include "settings/DomainFile.h"
#include "settings/XMLParser.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QTemporaryFile>

namespace {

using State = Finding::State;

constexpr qint64 kMebibyte = 1 << 20;
constexpr qint64 kTooLittle = 16 * kMebibyte; // less than some pictures of a large display
constexpr qint64 kLittle = 256 * kMebibyte;
constexpr QFile::Permissions kOfOthers = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                                         QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;

// The folder, or the nearest one above it that is there.
QString nearestFolder(QString path)
{
    while (!QFileInfo::exists(path) && path != QFileInfo(path).path())
        path = QFileInfo(path).path();
    return path;
}

bool isWritable(const QString& folder)
{
    QTemporaryFile trial(folder + QStringLiteral("/.lumora-XXXXXX.tmp"));
    return QFileInfo(folder).isDir() && trial.open();
}

// Why a language file cannot be used; empty when it can.
QString languageProblem(const QString& path)
{
    XMLParser parser;
    XMLError error;
    if (!parser.parseWithFilePath(path, &error))
        return error.message;
    return parser.getValueForkey(u"LangName").isEmpty() ? QStringLiteral("it has no LangName") : QString();
}

QStringList languageFiles(const QString& folder)
{
    QStringList names = QDir(folder).entryList({QStringLiteral("*.xml")}, QDir::Files, QDir::Name);
    names.removeIf([](const QString& n) { return n.toLower() == QLatin1String("link.xml"); });
    return names;
}

}

Finding FileChecks::settingsFile(const QString& path)
{
    const QString subject = QStringLiteral("settings");
    const DomainFile::Contents contents = DomainFile(path).read();
    if (contents.state == DomainFile::State::Broken)
        return {State::Wrong, subject, QStringLiteral("%1 cannot be read: %2").arg(path, contents.reason),
            QStringLiteral("correct or remove it")};
    if (!isWritable(nearestFolder(QFileInfo(path).path())))
        return {State::Wrong, subject, QStringLiteral("%1 cannot be written").arg(path),
            QStringLiteral("make its folder yours to write")};
    if (contents.state == DomainFile::State::Missing)
        return {State::Right, subject, QStringLiteral("there is no %1 yet, the defaults hold").arg(path)};
    return {State::Right, subject, path};
}

Finding FileChecks::saveFolder(const QString& folder, bool isChosen)
{
    const QString subject = QStringLiteral("save folder");
    const bool isThere = QFileInfo(folder).isDir();
    if (!isThere && (isChosen || QFileInfo::exists(folder)))
        return {State::Wrong, subject, QStringLiteral("there is no folder %1").arg(folder),
            QStringLiteral("make it, or choose another one in the preferences")};
    if (!isWritable(nearestFolder(folder)))
        return {State::Wrong, subject, QStringLiteral("%1 cannot be written").arg(folder),
            QStringLiteral("make it yours to write, or choose another one in the preferences")};
    return {State::Right, subject,
        isThere ? folder : QStringLiteral("%1 is made with the first picture").arg(folder)};
}

Finding FileChecks::freeSpace(const QString& folder, qint64 bytes)
{
    Finding finding{State::Right, QStringLiteral("free space"),
        QStringLiteral("%1 for pictures").arg(QLocale::c().formattedDataSize(bytes))};
    if (bytes >= kLittle)
        return finding;
    finding.state = bytes < kTooLittle ? State::Wrong : State::Warning;
    finding.remedy = QStringLiteral("make room on the disk of %1").arg(folder);
    return finding;
}

Finding FileChecks::languages(const QStringList& folders)
{
    const QString subject = QStringLiteral("languages");
    QStringList problems;
    int whole = 0;
    for (const QString& folder : folders) {
        for (const QString& name : languageFiles(folder)) {
            const QString path = folder + QLatin1Char('/') + name;
            const QString problem = languageProblem(path);
            if (problem.isEmpty())
                ++whole;
            else
                problems += QStringLiteral("%1 is left out: %2").arg(path, problem.simplified());
        }
    }
    if (!problems.isEmpty())
        return {State::Wrong, subject, problems.join(QStringLiteral(", ")),
            QStringLiteral("correct or remove it")};
    if (whole == 0)
        return {State::Wrong, subject, QStringLiteral("there is no language file"),
            QStringLiteral("install the program again")};
    return {State::Right, subject, QStringLiteral("%1 language files are whole").arg(whole)};
}

Finding FileChecks::journal(const QString& folder, bool isKept)
{
    const QString subject = QStringLiteral("last capture");
    if (!isKept)
        return {State::Right, subject, QStringLiteral("it is not kept, as the settings ask for")};
    if (!isWritable(nearestFolder(folder)))
        return {State::Wrong, subject, QStringLiteral("%1 cannot be written").arg(folder),
            QStringLiteral("make it yours to write")};
    if (QFileInfo::exists(folder) && (QFileInfo(folder).permissions() & kOfOthers))
        return {State::Warning, subject, QStringLiteral("others can look into %1").arg(folder),
            QStringLiteral("run chmod 700 on it")};
    return {State::Right, subject, QStringLiteral("it is kept for an hour in %1").arg(folder)};
}
