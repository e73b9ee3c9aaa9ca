#include "tests/settings/SettingsFolder.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>

#include <gtest/gtest.h>

namespace {

const QString kA = QStringLiteral("a");
const QString kB = QStringLiteral("b");
constexpr int kPatienceMs = 5000;
constexpr int kQuietMs = 200; // longer than an edit takes to be noticed

class UserDefaultsWatch : public testing::Test {
protected:
    // The keys of the next news; empty when none comes in time.
    QStringList nextNews(int patienceMs = kPatienceMs)
    {
        m_news.clear();
        QElapsedTimer waited;
        waited.start();
        while (m_news.isEmpty() && waited.elapsed() < patienceMs)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 20);
        return m_news;
    }

    void watch(UserDefaults& store)
    {
        store.onExternalChange = [this](const QStringList& keys) { m_news += keys; };
        store.startWatching();
    }

    int m_argc = 0;
    QCoreApplication m_application{m_argc, nullptr};
    SettingsFolder m_folder;
    QStringList m_news;
};

}

TEST_F(UserDefaultsWatch, TellsOfEditsOfEveryKind)
{
    UserDefaults store = m_folder.store();
    watch(store);
    m_folder.put({{kA, 1}});
    EXPECT_EQ(nextNews(), QStringList{kA}) << "the file comes";
    m_folder.put({{kA, 22}});
    EXPECT_EQ(nextNews(), QStringList{kA}) << "an edit in place";
    m_folder.replace({{kA, 22}, {kB, 3}});
    EXPECT_EQ(nextNews(), QStringList{kB}) << "a rename over it";
    m_folder.put({{kA, 22}, {kB, 44}});
    EXPECT_EQ(nextNews(), QStringList{kB}) << "an edit in place after the rename";
    store.setObject(5, kA);
    m_folder.put({{kA, 5}, {kB, 55555}});
    EXPECT_EQ(nextNews(), QStringList{kB}) << "an edit in place after a write of ours";
    QFile::remove(m_folder.file());
    EXPECT_EQ(nextNews(), (QStringList{kA, kB})) << "the file goes";
    EXPECT_FALSE(store.objectForKey(kA).isValid());
}

TEST_F(UserDefaultsWatch, TellsOfEditsAndNotOfOurOwnWritesNorOfOtherFiles)
{
    UserDefaults store = m_folder.store();
    watch(store);
    store.setObject(1, kA);
    store.setObject(2, kA);
    SettingsFolder::put(m_folder.in(QStringLiteral("other")), "x");
    EXPECT_EQ(nextNews(kQuietMs), QStringList());
    m_folder.put({{kA, 2}, {kB, 1}});
    store.setObject(3, kA); // meets the edit first
    EXPECT_TRUE(m_news.isEmpty()) << "not from inside the setter";
    EXPECT_EQ(nextNews(), QStringList{kB});
}

TEST_F(UserDefaultsWatch, SeesBehindALink)
{
    const SettingsFolder elsewhere;
    ASSERT_TRUE(QFile::link(elsewhere.file(), m_folder.file()));
    UserDefaults store = m_folder.store();
    watch(store);
    elsewhere.put({{kA, 1}});
    EXPECT_EQ(nextNews(), QStringList{kA});
    elsewhere.replace({{kA, 22}});
    EXPECT_EQ(nextNews(), QStringList{kA});
}

TEST_F(UserDefaultsWatch, WaitsForTheWholeOfAHalfWrittenEdit)
{
    m_folder.put({{kA, 1}});
    UserDefaults store = m_folder.store();
    watch(store);
    SettingsFolder::put(m_folder.file(), "<plist><dict><key>a");
    EXPECT_EQ(nextNews(kQuietMs), QStringList());
    EXPECT_EQ(store.integerForKey(kA), 1);
    m_folder.put({{kA, 2}});
    EXPECT_EQ(nextNews(), QStringList{kA});
    EXPECT_EQ(m_folder.names(), QStringList{QStringLiteral("app.plist")});
}
