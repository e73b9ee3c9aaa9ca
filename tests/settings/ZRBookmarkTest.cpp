#include "settings/ZRBookmark.h"

#include "tests/fakes/FakeFileBookmarks.h"
#include "tests/settings/SettingsFolder.h"

#include <gtest/gtest.h>

namespace {

class Bookmark : public testing::Test {
protected:
    Bookmark()
        : m_store(m_folder.store())
    {
        UserDefaults::setStandardUserDefaults(&m_store);
        m_bookmark.install(&m_files);
        m_files.target = m_target;
    }

    const QString m_path = QStringLiteral("/pictures");
    const QString m_target = QStringLiteral("/renamed");
    SettingsFolder m_folder;
    UserDefaults m_store;
    FakeFileBookmarks m_files;
    ZRBookmark m_bookmark;
};

}

TEST_F(Bookmark, KeepsThePermissionUnderThePath)
{
    EXPECT_TRUE(m_bookmark.saveOpenFileToBookmarkWithFilePath(m_path));
    EXPECT_EQ(m_folder.onDisk(), (QVariantMap{{m_path, QByteArray("/pictures*")}}));
    EXPECT_TRUE(m_bookmark.BookmarkStartAccessingSecurityScopedResourceWithFilePath(m_path));
    EXPECT_EQ(m_files.asked, QStringList(QStringLiteral("/pictures*")));
    EXPECT_EQ(m_files.open, QStringList(m_target));
    EXPECT_TRUE(m_bookmark.BookmarkStopAccessingSecurityScopedResourceWithFilePath(m_path));
    EXPECT_EQ(m_files.open, QStringList());
    EXPECT_TRUE(m_bookmark.removeFileBookmarkInfoWithFilePath(m_path));
    EXPECT_FALSE(m_bookmark.removeFileBookmarkInfoWithFilePath(m_path));
    EXPECT_EQ(m_folder.onDisk(), QVariantMap());
}

TEST_F(Bookmark, OpensNothingThatIsNotStored)
{
    EXPECT_FALSE(m_bookmark.BookmarkStartAccessingSecurityScopedResourceWithFilePath(m_path));
    EXPECT_FALSE(m_bookmark.BookmarkStopAccessingSecurityScopedResourceWithFilePath(m_path));
    EXPECT_EQ(m_files.asked, QStringList()) << "no file was looked at";
    m_store.setObject(QStringLiteral("a text"), m_path);
    EXPECT_FALSE(m_bookmark.BookmarkStartAccessingSecurityScopedResourceWithFilePath(m_path));
    EXPECT_FALSE(m_bookmark.removeFileBookmarkInfoWithFilePath(m_path));
}

TEST_F(Bookmark, ReplacesWhatIsOutOfDate)
{
    ASSERT_TRUE(m_bookmark.saveOpenFileToBookmarkWithFilePath(m_path));
    m_files.isStale = true;
    EXPECT_TRUE(m_bookmark.BookmarkStartAccessingSecurityScopedResourceWithFilePath(m_path));
    EXPECT_EQ(m_folder.onDisk(), (QVariantMap{{m_path, QByteArray("/renamed*")}}));
    EXPECT_EQ(m_files.open, QStringList(m_target));
}

TEST_F(Bookmark, AnswersNoWhereThePermissionIsGone)
{
    ASSERT_TRUE(m_bookmark.saveOpenFileToBookmarkWithFilePath(m_path));
    m_files.isPermitted = false;
    EXPECT_FALSE(m_bookmark.BookmarkStartAccessingSecurityScopedResourceWithFilePath(m_path));
    EXPECT_FALSE(m_bookmark.saveOpenFileToBookmarkWithFilePath(QStringLiteral("/other")));
    m_files.target.clear();
    EXPECT_FALSE(m_bookmark.BookmarkStopAccessingSecurityScopedResourceWithFilePath(m_path));
    EXPECT_EQ(m_folder.onDisk().keys(), QStringList(m_path));
}

TEST_F(Bookmark, LeavesOtherSettingsAlone)
{
    m_store.setObject(QStringLiteral("Greek"), QStringLiteral("clientLang"));
    EXPECT_FALSE(m_bookmark.saveOpenFileToBookmarkWithFilePath(QStringLiteral("clientLang")));
    EXPECT_FALSE(m_bookmark.removeFileBookmarkInfoWithFilePath(QStringLiteral("clientLang")));
    EXPECT_EQ(m_store.objectForKey(QStringLiteral("clientLang")), QStringLiteral("Greek"));
    m_bookmark.install(nullptr);
    EXPECT_FALSE(m_bookmark.saveOpenFileToBookmarkWithFilePath(m_path));
}
