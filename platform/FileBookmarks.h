#pragma once

#include <QByteArray>
#include <QString>

// The user's permission to use a file or folder, kept as data beyond the end of the program. Main thread
// only.
class FileBookmarks {
public:
    virtual ~FileBookmarks() = default;

    // Empty when there is no such file, or no permission for it.
    virtual QByteArray bookmarkData(const QString& path) const = 0;
    // The path that the data leads to now; empty when it leads nowhere. Where the data is out of date though
    // it leads somewhere, `renewed`, unless null, is set to what has to be kept in its place.
    virtual QString resolved(const QByteArray& bookmark, QByteArray* renewed) const = 0;
    // Both of a path that was resolved. False when the permission is refused.
    virtual bool startAccessing(const QString& path) = 0;
    virtual void stopAccessing(const QString& path) = 0;
};
