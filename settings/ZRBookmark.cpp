#include "settings/ZRBookmark.h"

#include "platform/FileBookmarks.h"
#include "settings/ZRUserDefaultKit.h"

#include <QFileInfo>

ZRBookmark& ZRBookmark::defaultShareBookmark()
{
    static ZRBookmark shared;
    return shared;
}

bool ZRBookmark::saveOpenFileToBookmarkWithFilePath(const QString& path)
{
    if (!m_files || !QFileInfo(path).isAbsolute()) // a bare name might be another setting's key
        return false;
    const QByteArray bookmark = m_files->bookmarkData(path);
    if (!bookmark.isEmpty())
        ZRUserDefaultKit::saveToUserDefaultsForKeyObjectValue(path, bookmark);
    return !bookmark.isEmpty();
}

bool ZRBookmark::BookmarkStartAccessingSecurityScopedResourceWithFilePath(const QString& path)
{
    const QString target = resolved(path);
    return !target.isEmpty() && m_files->startAccessing(target);
}

bool ZRBookmark::BookmarkStopAccessingSecurityScopedResourceWithFilePath(const QString& path)
{
    const QString target = resolved(path);
    if (!target.isEmpty())
        m_files->stopAccessing(target);
    return !target.isEmpty();
}

bool ZRBookmark::removeFileBookmarkInfoWithFilePath(const QString& path)
{
    const bool wasThere = !ZRUserDefaultKit::getFromUserDefaultsData(path).isEmpty();
    if (wasThere)
        ZRUserDefaultKit::saveToUserDefaultsForKeyObjectValue(path, {});
    return wasThere;
}

// Empty where no data is stored under the path, or it leads nowhere. Data that is out of date is replaced.
QString ZRBookmark::resolved(const QString& path) const
{
    const QByteArray bookmark = ZRUserDefaultKit::getFromUserDefaultsData(path);
    if (!m_files || bookmark.isEmpty())
        return {};
    QByteArray renewed;
    QString target = m_files->resolved(bookmark, &renewed);
    if (!renewed.isEmpty())
        ZRUserDefaultKit::saveToUserDefaultsForKeyObjectValue(path, renewed);
    return target;
}
