#pragma once

#include <QByteArray>
#include <QString>

// Whole-file operations. Files that they create are for their user alone (mode 0600). Any thread.
class ToolFile {
public:
    // writeData:toFile:append: Appending is one write at the end, so that two writers do not interleave;
    // otherwise the file is emptied first. False when not everything was written.
    static bool writeData(const QByteArray& data, const QString& toFile, bool append);

    // The file that a chain of symbolic links ends at, whether it exists or not; `path` itself when it is
    // none.
    static QString linkTarget(const QString& path);
};
