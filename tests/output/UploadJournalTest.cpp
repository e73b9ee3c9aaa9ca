#include "output/UploadJournal.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

class UploadJournalTest : public testing::Test {
protected:
    QString created(const char* name) const
    {
        const QString path = m_folder.filePath(QString::fromLatin1(name));
        write(path, "picture");
        return path;
    }
    static void write(const QString& path, const QByteArray& bytes)
    {
        QFile file(path);
        file.open(QIODevice::WriteOnly);
        file.write(bytes);
    }
    UploadJournal again() const { return UploadJournal(m_path); }

    QTemporaryDir m_folder;
    const QString m_path = m_folder.filePath(QStringLiteral("cache/uploads.json"));
    UploadJournal m_journal{m_path};
};

}

TEST_F(UploadJournalTest, ListsWhatWasAddedAndNotRemoved)
{
    const QString one = created("one.jpg"), two = created("zwei ü.jpg");
    EXPECT_TRUE(m_journal.add(one));
    EXPECT_TRUE(m_journal.add(two));
    EXPECT_TRUE(m_journal.add(two));
    m_journal.remove(one);
    EXPECT_EQ(again().leftOver(), QStringList{two});
    EXPECT_FALSE(again().contains(one));
    EXPECT_TRUE(again().contains(two));
    EXPECT_EQ(QFile::permissions(m_path) & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
}

TEST_F(UploadJournalTest, OffersOnlyFilesThatAreThere)
{
    const QString linked = m_folder.filePath(QStringLiteral("link.jpg"));
    QFile::link(created("target"), linked);
    for (const QString& path : {m_folder.path(), m_folder.filePath(QStringLiteral("gone.jpg")), linked,
             QStringLiteral("relative.jpg")})
        m_journal.add(path);
    EXPECT_EQ(m_journal.leftOver(), QStringList());
    EXPECT_FALSE(again().contains(linked));
}

TEST_F(UploadJournalTest, IsDroppedWhenItCannotBeUnderstood)
{
    QDir().mkpath(QFileInfo(m_path).path());
    const std::pair<const char*, bool> cases[] = {
        {"", true},
        {"{}", true},
        {"[{", true},
        {"[1, {}, {\"uploadImage.Info.imageFilePath\": 3}, \"/etc/passwd\"]", false},
    };
    for (const auto& [text, isDropped] : cases) {
        SCOPED_TRACE(text);
        write(m_path, text);
        EXPECT_EQ(m_journal.leftOver(), QStringList());
        EXPECT_EQ(QFile::exists(m_path), !isDropped);
        EXPECT_TRUE(m_journal.add(created("one.jpg")));
        EXPECT_EQ(m_journal.leftOver().size(), 1);
    }
}

TEST_F(UploadJournalTest, SaysWhenItCannotBeKept)
{
    write(m_folder.filePath(QStringLiteral("cache")), "in the way");
    EXPECT_FALSE(m_journal.add(created("one.jpg")));
}
