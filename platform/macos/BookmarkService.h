#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

// The system's bookmarks: data that leads to a file wherever it was moved to. A scoped one carries the user's
// permission as well and is made by sandboxed programs alone.
class BookmarkService {
public:
    struct Target {
        QString path;
        bool isStale = false; // the data still leads there, but is to be made anew
    };

    virtual ~BookmarkService() = default;

    // Empty when the system refuses.
    virtual QByteArray make(const QString& path, bool isScoped) const = 0;
    virtual std::optional<Target> resolve(const QByteArray& bookmark, bool isScoped) = 0;
};
