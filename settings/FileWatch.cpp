#include "settings/FileWatch.h"

#include "commonutils/ToolFile.h"

#include <QFileInfo>

namespace {

constexpr int kSettleMs = 50; // an editor empties, writes and renames in several steps; one reading is enough

}

FileWatch::FileWatch(QString path, std::function<void()> onTouched)
    : m_path(std::move(path))
{
    m_settled.setSingleShot(true);
    m_settled.setInterval(kSettleMs);
    const auto settle = [this] { m_settled.start(); };
    QObject::connect(&m_watcher, &QFileSystemWatcher::directoryChanged, &m_settled, settle);
    QObject::connect(&m_watcher, &QFileSystemWatcher::fileChanged, &m_settled, settle);
    QObject::connect(&m_settled, &QTimer::timeout, &m_watcher, [this, onTouched = std::move(onTouched)] {
        aim();
        onTouched();
    });
    aim();
}

void FileWatch::aim()
{
    if (const QStringList before = m_watcher.files() + m_watcher.directories(); !before.isEmpty())
        m_watcher.removePaths(before);
    const QString target = ToolFile::linkTarget(m_path);
    QStringList now{QFileInfo(m_path).path()};
    if (const QString folder = QFileInfo(target).path(); !now.contains(folder))
        now.append(folder);
    if (QFileInfo::exists(target))
        now.append(target);
    m_watcher.addPaths(now);
}
