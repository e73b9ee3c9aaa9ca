#include "platform/macos/NativeFileBookmarks.h"

#include "platform/macos/BookmarkRules.h"

#include <QFileInfo>

#include <Foundation/Foundation.h>

// The permission belongs to the very URL that a bookmark resolved to, so those are kept by their path.
class FileURLs final : public BookmarkService {
public:
    QByteArray make(const QString& path, bool isScoped) const override
    {
        NSURL* url = [NSURL fileURLWithPath:path.toNSString()];
        const NSURLBookmarkCreationOptions options = isScoped ? NSURLBookmarkCreationWithSecurityScope : 0;
        NSData* data = [url bookmarkDataWithOptions:options
                     includingResourceValuesForKeys:nil
                                      relativeToURL:nil
                                              error:nil];
        return QByteArray::fromNSData(data);
    }
    std::optional<Target> resolve(const QByteArray& bookmark, bool isScoped) override
    {
        const NSURLBookmarkResolutionOptions options =
            NSURLBookmarkResolutionWithoutUI | (isScoped ? NSURLBookmarkResolutionWithSecurityScope : 0);
        BOOL isStale = NO;
        NSURL* url = [NSURL URLByResolvingBookmarkData:bookmark.toNSData()
                                               options:options
                                         relativeToURL:nil
                                   bookmarkDataIsStale:&isStale
                                                 error:nil];
        if (!url.path)
            return std::nullopt;
        m_resolved[url.path] = url;
        return Target{QString::fromNSString(url.path), bool(isStale)};
    }
    bool startAccessing(const QString& path)
    {
        return [m_resolved[path.toNSString()] startAccessingSecurityScopedResource];
    }
    void stopAccessing(const QString& path)
    {
        [m_resolved[path.toNSString()] stopAccessingSecurityScopedResource];
    }

private:
    NSMutableDictionary<NSString*, NSURL*>* m_resolved = [NSMutableDictionary dictionary];
};

NativeFileBookmarks::NativeFileBookmarks()
    : m_urls(std::make_unique<FileURLs>())
{
}

NativeFileBookmarks::~NativeFileBookmarks() = default;

QByteArray NativeFileBookmarks::bookmarkData(const QString& path) const
{
    return BookmarkRules::dataFor(*m_urls, path);
}

QString NativeFileBookmarks::resolved(const QByteArray& bookmark, QByteArray* renewed) const
{
    return BookmarkRules::resolved(*m_urls, bookmark, renewed);
}

bool NativeFileBookmarks::startAccessing(const QString& path)
{
    return m_urls->startAccessing(path) || QFileInfo(path).isReadable();
}

void NativeFileBookmarks::stopAccessing(const QString& path)
{
    m_urls->stopAccessing(path);
}
