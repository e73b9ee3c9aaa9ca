#pragma once

#include "platform/FileBookmarks.h"

#include <QStringList>

// Files that can be renamed: the bookmark of a path is "<path>*" and leads to `target`.
class FakeFileBookmarks final : public FileBookmarks {
public:
    QByteArray bookmarkData(const QString& path) const override
    {
        return isPermitted ? path.toUtf8() + '*' : QByteArray();
    }
    QString resolved(const QByteArray& bookmark, QByteArray* renewed) const override
    {
        if (isStale && renewed)
            *renewed = target.toUtf8() + '*';
        asked.append(QString::fromUtf8(bookmark));
        return target;
    }
    bool startAccessing(const QString& path) override
    {
        open.append(path);
        return isPermitted;
    }
    void stopAccessing(const QString& path) override { open.removeOne(path); }

    bool isPermitted = true;
    bool isStale = false; // every bookmark is out of date
    QString target;
    QStringList open;
    mutable QStringList asked; // the bookmarks, in order
};
