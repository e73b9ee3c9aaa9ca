#pragma once

#include <QFileSystemWatcher>
#include <QString>
#include <QTimer>

#include <functional>

// Tells of edits of one file by others: in place, by a rename over it, its coming and its going, also behind
// a symbolic link. The folder must exist. Needs the event loop; costs nothing while nothing happens.
class FileWatch {
public:
    FileWatch(QString path, std::function<void()> onTouched);

private:
    // Aims at the files that bear the names now: a replaced file takes the watch on it along.
    void aim();

    QString m_path;
    QFileSystemWatcher m_watcher;
    QTimer m_settled;
};
