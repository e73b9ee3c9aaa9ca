#include "platform/x11/NativeFileBookmarks.h"

#include <QFile>
#include <QFileInfo>

QByteArray NativeFileBookmarks::bookmarkData(const QString& path) const
{
    return QFile::exists(path) ? QFile::encodeName(path) : QByteArray();
}

QString NativeFileBookmarks::resolved(const QByteArray& bookmark, QByteArray*) const
{
    QString path = QFile::decodeName(bookmark);
    return QFile::exists(path) ? path : QString();
}

bool NativeFileBookmarks::startAccessing(const QString& path)
{
    return QFileInfo(path).isReadable();
}

void NativeFileBookmarks::stopAccessing(const QString&)
{
}
