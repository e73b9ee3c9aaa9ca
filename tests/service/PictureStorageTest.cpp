#include "service/BucketStorage.h"
#include "service/FolderStorage.h"
#include "service/PictureDraft.h"
#include "tests/service/FakeBucket.h"

#include <gtest/gtest.h>

#include <QProcess>
#include <QStandardPaths>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QThread>

#include <fstream>
#include <iterator>
#include <tuple>

namespace fs = std::filesystem;

namespace {

// A home of pictures that a test may fill.
struct Home {
    virtual ~Home() = default;
    std::unique_ptr<PictureStorage> storage; // null when this machine has no such home
    virtual bool isEmpty() const = 0;
};

struct FolderHome : Home {
    explicit FolderHome(const fs::path& folder)
        : m_folder(folder)
    {
        storage = std::make_unique<FolderStorage>(folder);
    }
    bool isEmpty() const override
    {
        return fs::is_empty(m_folder / "pictures") && fs::is_empty(m_folder / "incoming") &&
               fs::is_empty(m_folder / "expiry");
    }
    const fs::path m_folder;
};

struct FakeBucketHome : Home {
    FakeBucketHome() { storage = std::make_unique<BucketStorage>(m_bucket.place()); }
    bool isEmpty() const override { return m_bucket.count() == 0; }
    FakeBucket m_bucket;
};

// A server of others, when it is installed: npm install -g s3rver.
struct S3rverHome : Home {
    explicit S3rverHome(const QString& folder)
        : m_folder(folder)
    {
        QTcpServer port;
        port.listen(QHostAddress::LocalHost);
        const QString number = QString::number(port.serverPort());
        port.close();
        m_server.setStandardErrorFile(QProcess::nullDevice());
        m_server.setStandardOutputFile(QProcess::nullDevice());
        m_server.start(QStringLiteral("s3rver"),
            {QStringLiteral("-d"), folder, QStringLiteral("-a"), QStringLiteral("127.0.0.1"),
                QStringLiteral("-p"), number, QStringLiteral("--configure-bucket"), QStringLiteral("shelf")});
        storage = std::make_unique<BucketStorage>(BucketPlace{
            "http://127.0.0.1:" + number.toStdString(), "shelf", "us-east-1", "S3RVER", "S3RVER", ""});
        for (int i = 0; i < 100 && storage->check(); ++i)
            QThread::msleep(100);
    }
    ~S3rverHome() override
    {
        m_server.kill();
        m_server.waitForFinished();
    }
    bool isEmpty() const override
    {
        const auto files =
            fs::recursive_directory_iterator((m_folder + QStringLiteral("/shelf")).toStdString());
        return std::none_of(begin(files), end(files),
            [](const fs::directory_entry& entry) { return entry.is_regular_file(); });
    }
    const QString m_folder;
    QProcess m_server;
};

// What every home does.
class PictureStorageTest : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override
    {
        const std::string kind = GetParam();
        if (kind == "S3rver" && QStandardPaths::findExecutable(QStringLiteral("s3rver")).isEmpty())
            GTEST_SKIP() << "s3rver is not installed";
        if (kind == "Folder")
            m_home = std::make_unique<FolderHome>(folder());
        else if (kind == "FakeBucket")
            m_home = std::make_unique<FakeBucketHome>();
        else
            m_home = std::make_unique<S3rverHome>(m_folder.filePath(QStringLiteral("s3")));
        ASSERT_EQ(storage().open().reason, "");
        ASSERT_EQ(m_incoming.open(folder() / "incoming"), "");
    }

    fs::path folder() const { return fs::path(m_folder.path().toStdString()) / "data"; }
    PictureStorage& storage() { return *m_home->storage; }
    std::string stored(const std::string& bytes, const PictureInfo& info)
    {
        const auto draft = m_incoming.begin();
        draft->write(bytes.data(), bytes.size());
        EXPECT_EQ(storage().store(*draft, info).reason, "");
        return draft->id();
    }
    std::string read(const std::string& id, std::int64_t offset, std::int64_t length)
    {
        std::string all;
        const auto take = [&all](const char* bytes, size_t count) {
            all.append(bytes, count);
            return true;
        };
        const Fault fault = storage().read(id, offset, length, take);
        return fault ? fault.reason : all;
    }

    QTemporaryDir m_folder;
    IncomingFolder m_incoming;
    std::unique_ptr<Home> m_home;
};

PictureInfo info(std::int64_t expires = 0)
{
    return {"Grüße \"<b>\"", "image/png", 3, 4, 1234567890123, expires, "hash", "token"};
}

}

INSTANTIATE_TEST_SUITE_P(Homes, PictureStorageTest, testing::Values("Folder", "FakeBucket", "S3rver"),
    [](const auto& home) { return std::string(home.param); });

TEST_P(PictureStorageTest, KeepsAPictureUntilItIsRemovedAndReadsAnyPart)
{
    const std::string bytes = "012" + std::string(99994, 'x') + "789";
    const std::string id = stored(bytes, info());
    PictureInfo found;
    ASSERT_EQ(storage().find(id, found).status, 0);
    const auto fields = [](const PictureInfo& i) {
        return std::tuple(
            i.title, i.contentType, i.width, i.height, i.uploaded, i.passwordHash, i.deleteTokenHash);
    };
    EXPECT_EQ(fields(found), fields(info()));
    EXPECT_EQ(found.bytes, 100000);
    EXPECT_EQ(read(id, 0, 100000), bytes);
    EXPECT_EQ(read(id, 0, 3), "012");
    EXPECT_EQ(read(id, 99996, 4), "x789");
    EXPECT_TRUE(storage().read(id, 0, 10, [](const char*, size_t) { return false; }));

    EXPECT_FALSE(storage().remove(id));
    EXPECT_EQ(storage().find(id, found).status, 404);
    EXPECT_TRUE(m_home->isEmpty());
}

TEST_P(PictureStorageTest, KnowsWhichPicturesExpireFirst)
{
    const std::string last = stored("c", info(3000000000)), first = stored("a", info(1000)),
                      other = stored("b", info());
    std::vector<Expiring> expiring;
    ASSERT_EQ(storage().soonest(expiring).reason, "");
    EXPECT_EQ(expiring, (std::vector<Expiring>{{1000, first}, {3000000000, last}}));
    for (const Expiring& picture : expiring) {
        EXPECT_FALSE(storage().remove(picture.id));
        EXPECT_FALSE(storage().forget(picture));
    }
    EXPECT_FALSE(storage().soonest(expiring));
    EXPECT_TRUE(expiring.empty());
    EXPECT_FALSE(storage().remove(other));
    EXPECT_TRUE(m_home->isEmpty());
}

TEST_P(PictureStorageTest, KnowsNoOtherNames)
{
    PictureInfo found;
    for (const char* id : {"", ".", "..", "../pictures", "aaaaaaaaaaaaaaaaaaaaaa"}) {
        SCOPED_TRACE(id);
        EXPECT_EQ(storage().find(id, found).status, 404);
        EXPECT_NE(storage().read(id, 0, 1, [](const char*, size_t) { return true; }).status, 0);
    }
}

TEST(FolderStorage, SweepsWhatAKilledProcessLeftAndSaysWhyAFolderCannotBeHad)
{
    const QTemporaryDir temporary;
    const fs::path folder = temporary.path().toStdString();
    fs::create_directories(folder / "incoming" / "abandoned");
    std::ofstream(folder / "incoming" / "abandoned" / "picture") << "half";
    EXPECT_EQ(IncomingFolder().open(folder / "incoming"), "");
    EXPECT_TRUE(fs::is_empty(folder / "incoming"));
    std::ofstream(folder / "file") << "in the way";
    EXPECT_NE(FolderStorage(folder / "file").open().reason, "");
    EXPECT_NE(IncomingFolder().open(folder / "file" / "incoming"), "");
}

TEST(BucketStorage, AnswersWhatTheBucketCannotAndKeepsNothing)
{
    const QTemporaryDir temporary;
    IncomingFolder incoming;
    ASSERT_EQ(incoming.open(temporary.path().toStdString()), "");
    FakeBucket bucket;
    BucketPlace forged = bucket.place(), elsewhere = bucket.place();
    forged.secretKey += "x";
    elsewhere.bucket = "attic";
    struct Case {
        BucketPlace place;
        int bucketStatus; // that the bucket was told to answer with; 1 for stopped
        int status;
        const char* reason;
    };
    const Case cases[] = {
        {forged, 0, 502, "the bucket answered PUT with 403 AsItWasTold"},
        {elsewhere, 0, 502, "there is no such bucket"},
        {bucket.place(), 403, 502, "the bucket answered PUT with 403 AsItWasTold"},
        {bucket.place(), 301, 502, "the bucket answered PUT with 301 AsItWasTold"},
        {bucket.place(), 500, 503, "the bucket answered PUT with 500 AsItWasTold"},
        {bucket.place(), 503, 503, "the bucket answered PUT with 503 AsItWasTold"},
        {bucket.place(), 1, 503, "the bucket cannot be reached: Couldn't connect to server"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.reason);
        bucket.failWith(c.bucketStatus);
        if (c.bucketStatus == 1)
            bucket.stop();
        BucketStorage storage(c.place);
        const auto draft = incoming.begin();
        draft->write("bytes", 5);
        const Fault fault = storage.store(*draft, info(1000));
        EXPECT_EQ(fault.status, c.status);
        EXPECT_EQ(fault.reason, c.reason);
        PictureInfo found;
        EXPECT_NE(storage.open().status, 0);
        EXPECT_NE(storage.find(draft->id(), found).status, 0);
    }
    EXPECT_EQ(bucket.count(), 0u);
}
