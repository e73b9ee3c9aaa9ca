#include "platform/x11/NativeFileBookmarks.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

TEST(NativeFileBookmarks, LeadToTheFolderAsLongAsItStands)
{
    const QTemporaryDir parent;
    const QString folder = parent.filePath(QStringLiteral("Bilder für später"));
    NativeFileBookmarks bookmarks;
    EXPECT_TRUE(bookmarks.bookmarkData(folder).isEmpty());
    ASSERT_TRUE(QDir().mkdir(folder));
    const QByteArray bookmark = bookmarks.bookmarkData(folder);
    EXPECT_EQ(bookmarks.resolved(bookmark, nullptr), folder);
    EXPECT_TRUE(bookmarks.startAccessing(folder));
    bookmarks.stopAccessing(folder);
    ASSERT_TRUE(QDir().rmdir(folder));
    EXPECT_EQ(bookmarks.resolved(bookmark, nullptr), QString());
    EXPECT_FALSE(bookmarks.startAccessing(folder));
    EXPECT_EQ(bookmarks.resolved({}, nullptr), QString());
}
