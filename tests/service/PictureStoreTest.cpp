#include "service/PictureStore.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <fstream>
#include <iterator>

namespace fs = std::filesystem;

namespace {

class PictureStoreTest : public testing::Test {
protected:
    PictureStoreTest() { EXPECT_EQ(m_store.open(folder()), ""); }

    fs::path folder() const { return fs::path(m_folder.path().toStdString()) / "data"; }
    size_t countIn(const char* part) const
    {
        return size_t(std::distance(fs::directory_iterator(folder() / part), fs::directory_iterator()));
    }
    std::string stored(const std::string& bytes, const PictureInfo& info = {})
    {
        const auto draft = m_store.begin();
        draft->write(bytes.data(), bytes.size());
        return m_store.store(*draft, info);
    }

    QTemporaryDir m_folder;
    PictureStore m_store;
};

std::string contents(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}

TEST_F(PictureStoreTest, KeepsAPictureUntilItIsRemoved)
{
    const PictureInfo info{"Grüße \"<b>\"", "image/png", 3, 4, 1234567890123, "hash", "token"};
    const std::string id = stored("bytes", info);
    const auto found = m_store.find(id);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->title, info.title);
    EXPECT_EQ(found->contentType, info.contentType);
    EXPECT_EQ(found->width, info.width);
    EXPECT_EQ(found->height, info.height);
    EXPECT_EQ(found->uploaded, info.uploaded);
    EXPECT_EQ(found->passwordHash, info.passwordHash);
    EXPECT_EQ(found->deleteTokenHash, info.deleteTokenHash);
    EXPECT_EQ(contents(m_store.pictureOf(id)), "bytes");

    EXPECT_TRUE(m_store.remove(id));
    EXPECT_FALSE(m_store.find(id));
    EXPECT_FALSE(m_store.remove(id));
    EXPECT_EQ(countIn("pictures") + countIn("incoming"), 0u);
}

TEST_F(PictureStoreTest, LeavesNothingOfADraftThatIsGivenUp)
{
    m_store.begin()->write("half", 4);
    EXPECT_EQ(countIn("pictures") + countIn("incoming"), 0u);
}

TEST_F(PictureStoreTest, SweepsWhatAKilledProcessLeftAndKeepsTheRest)
{
    const std::string id = stored("bytes");
    fs::create_directory(folder() / "incoming" / "abandoned");
    std::ofstream(folder() / "incoming" / "abandoned" / "picture") << "half";
    EXPECT_EQ(PictureStore().open(folder()), "");
    EXPECT_EQ(countIn("incoming"), 0u);
    EXPECT_TRUE(m_store.find(id));
}

TEST_F(PictureStoreTest, KnowsNoOtherFiles)
{
    std::ofstream(folder() / "info.json") << "{\"title\": \"not a picture\"}";
    for (const char* id : {"", ".", "..", "../pictures", "aaaaaaaaaaaaaaaaaaaaaa"}) {
        SCOPED_TRACE(id);
        EXPECT_FALSE(m_store.find(id));
        EXPECT_FALSE(m_store.remove(id));
    }
    EXPECT_TRUE(fs::exists(folder() / "info.json"));
}

TEST_F(PictureStoreTest, SaysWhyAFolderCannotBeHad)
{
    std::ofstream(folder() / "file") << "in the way";
    EXPECT_NE(PictureStore().open(folder() / "file"), "");
}
