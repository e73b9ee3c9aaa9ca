#include "platform/x11/NativeLoginItem.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

class NativeLoginItemTest : public testing::Test {
protected:
    void SetUp() override { qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_config.path())); }
    void TearDown() override { qunsetenv("XDG_CONFIG_HOME"); }

    QString autostart() const { return m_config.path() + QStringLiteral("/autostart"); }
    QStringList entries() const { return QDir(autostart()).entryList(QDir::Files, QDir::Name); }
    void write(const char* name, const char* text)
    {
        QDir().mkpath(autostart());
        QFile file(autostart() + QLatin1Char('/') + QString::fromUtf8(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

    QTemporaryDir m_config;
    NativeLoginItem make() const
    {
        return NativeLoginItem(QStringLiteral("/opt/my tools/lumora-screenshot"));
    }
};

}

TEST_F(NativeLoginItemTest, LeavesOneEntryAndTakesAllItsOwnAway)
{
    write("other.desktop", "[Desktop Entry]\nExec=/usr/bin/other\n");
    const QStringList others = entries();
    NativeLoginItem item = make();
    EXPECT_FALSE(item.isRegistered());
    EXPECT_TRUE(item.registerItem());
    EXPECT_TRUE(item.registerItem());
    EXPECT_EQ(entries(), QStringList{QStringLiteral("com.Lumora.Screenshot.desktop")} + others);
    write("by-hand.desktop", "[Desktop Entry]\nExec=\"/opt/my tools/lumora-screenshot\" region\n");
    EXPECT_TRUE(item.unregisterItem());
    EXPECT_FALSE(item.isRegistered());
    EXPECT_EQ(entries(), others);
}

TEST_F(NativeLoginItemTest, SaysWhenTheFolderCannotBe)
{
    QFile inTheWay(autostart());
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    EXPECT_FALSE(make().registerItem());
    EXPECT_FALSE(make().isRegistered());
    EXPECT_TRUE(make().unregisterItem());
}
