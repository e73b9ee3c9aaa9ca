#include "service/ExpirySweep.h"

#include "service/BucketStorage.h"
#include "service/Metrics.h"
#include "service/PictureDraft.h"
#include "tests/service/FakeBucket.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <ctime>

namespace {

class ExpirySweepTest : public testing::Test {
protected:
    ExpirySweepTest() { EXPECT_EQ(m_incoming.open(m_folder.path().toStdString()), ""); }

    void store(std::int64_t expires)
    {
        PictureInfo info;
        info.contentType = "image/png";
        info.expires = expires;
        EXPECT_FALSE(m_storage.store(*m_incoming.begin(), info));
    }
    // Within some seconds.
    bool becomes(size_t objects) const
    {
        for (int i = 0; i < 500 && m_bucket.count() != objects; ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        return m_bucket.count() == objects;
    }

    QTemporaryDir m_folder;
    IncomingFolder m_incoming;
    FakeBucket m_bucket;
    BucketStorage m_storage{m_bucket.place()};
    Metrics m_metrics;
};

}

TEST_F(ExpirySweepTest, RemovesEachPictureOnItsDayAndNoOther)
{
    const std::int64_t now = std::time(nullptr);
    store(now - 5);
    store(now + 1000);
    store(0);
    ASSERT_EQ(m_bucket.count(), 5u); // three pictures, two marks
    ExpirySweep sweep(m_storage, m_metrics);
    EXPECT_TRUE(becomes(3)) << "a picture whose day came while nobody swept";
    store(now + 2);
    sweep.expect(now + 2);
    EXPECT_EQ(m_bucket.count(), 5u);
    EXPECT_TRUE(becomes(3)) << "a picture that is due before the one that it waited for";
    EXPECT_GE(std::time(nullptr), now + 2);
    EXPECT_NE(m_metrics.text().find("kestrel_pictures_expired_total 2"), std::string::npos);
}

TEST_F(ExpirySweepTest, KeepsTheMarkOfAPictureThatCannotBeRemoved)
{
    store(1000);
    m_bucket.failWith(503);
    {
        ExpirySweep sweep(m_storage, m_metrics);
        for (int i = 0; i < 500 && m_metrics.text().find("storage_faults_total 1") == std::string::npos; ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    EXPECT_EQ(m_bucket.count(), 2u);
    m_bucket.failWith(0);
    const ExpirySweep again(m_storage, m_metrics);
    EXPECT_TRUE(becomes(0));
}
