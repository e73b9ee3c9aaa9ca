#include "platform/x11/NativeLoginItem.h"

#include "platform/x11/AutostartRules.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QStandardPaths>

#include <algorithm>

namespace {

const QString kEntryName = QStringLiteral("com.Lumora.Screenshot.desktop");

QString autostartFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/autostart");
}

bool startsProgram(const QString& entryPath, const QString& program)
{
    QFile file(entryPath);
    return file.open(QIODevice::ReadOnly) &&
           programOfEntry(QString::fromUtf8(file.readAll())).startsWith(program);
}

}

NativeLoginItem::NativeLoginItem(QString program)
    : m_program(std::move(program))
    , m_folder(autostartFolder())
{
}

bool NativeLoginItem::isRegistered() const
{
    return !ownEntries().isEmpty();
}

bool NativeLoginItem::registerItem()
{
    if (!QDir().mkpath(m_folder))
        return false;
    QSaveFile file(m_folder + QLatin1Char('/') + kEntryName);
    return file.open(QIODevice::WriteOnly) && file.write(entryForProgram(m_program).toUtf8()) >= 0 &&
           file.commit();
}

bool NativeLoginItem::unregisterItem()
{
    const QStringList entries = ownEntries();
    return std::count_if(entries.begin(), entries.end(),
               [](const QString& path) { return QFile::remove(path); }) == entries.size();
}

// Paths of the entries that start this program, under whatever name.
QStringList NativeLoginItem::ownEntries() const
{
    QStringList paths;
    const QFileInfoList entries = QDir(m_folder).entryInfoList({QStringLiteral("*.desktop")}, QDir::Files);
    for (const QFileInfo& entry : entries) {
        if (startsProgram(entry.filePath(), m_program))
            paths.append(entry.filePath());
    }
    return paths;
}
