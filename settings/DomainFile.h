#pragma once

#include "commonutils/FileStamp.h"

#include <QString>
#include <QVariantMap>

#include <optional>

// One preferences domain on disk: a property list whose outermost value is a dictionary. A symbolic link
// stays one; what happens, happens to the file it leads to.
class DomainFile {
public:
    enum class State { Missing, Whole, Broken };
    struct Contents {
        State state = State::Missing;
        QVariantMap values; // where whole
        QString reason;     // where broken
    };

    explicit DomainFile(QString path);

    const QString& path() const { return m_path; }
    // Whether others have touched the file since it was read or written here. One look at the file's record.
    bool isChanged() const;
    Contents read();
    // Replaces the file by one rename, without syncing it to the medium. Empty, or the reason for which the
    // old file still stands.
    QString write(const QVariantMap& values);
    // Renames the file to "<file>.broken", or "<file>.broken-2" and so on where that is taken. The new path;
    // empty when it cannot.
    QString setAside();

private:
    QString m_path;
    std::optional<FileStamp> m_stamp; // of the file last seen; empty for none
};
