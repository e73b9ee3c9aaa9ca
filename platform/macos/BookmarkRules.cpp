#include "platform/macos/BookmarkRules.h"

#include <QFile>

QByteArray BookmarkRules::dataFor(const BookmarkService& service, const QString& path)
{
    if (!QFile::exists(path))
        return {};
    for (const bool isScoped : {true, false})
        if (QByteArray bookmark = service.make(path, isScoped); !bookmark.isEmpty())
            return bookmark;
    return QFile::encodeName(path);
}

QString BookmarkRules::resolved(BookmarkService& service, const QByteArray& bookmark, QByteArray* renewed)
{
    for (const bool isScoped : {true, false}) {
        const auto target = service.resolve(bookmark, isScoped);
        if (!target)
            continue;
        if (target->isStale && renewed)
            *renewed = dataFor(service, target->path);
        return target->path;
    }
    const QString path = QFile::decodeName(bookmark);
    return path.startsWith(QLatin1Char('/')) && QFile::exists(path) ? path : QString();
}
