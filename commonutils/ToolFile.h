#pragma once

#include "commonutils/FileStamp.h"

#include <QByteArray>
#include <QString>

#include <optional>

// Whole-file operations. Files that they create are for their user alone (mode 0600). Any thread.
class ToolFile {
public:
    // writeData:toFile:append: Appending is one write at the end, so that two writers do not interleave;
    // otherwise the file is emptied first. False when not everything was written.
    static bool writeData(const QByteArray& data, const QString& toFile, bool append);

    // Puts `data` in the place of the file by one rename: a reader sees the old file or the new one, never a
    // part. Not synced to the medium. Gives the new file's stamp; empty, and a reason, when the old file
    // stands.
    static std::optional<FileStamp> replaceFile(const QString& path, const QByteArray& data, QString* reason);

    // The file that a chain of symbolic links ends at, whether it exists or not; `path` itself when it is
    // none.
    static QString linkTarget(const QString& path);
};
