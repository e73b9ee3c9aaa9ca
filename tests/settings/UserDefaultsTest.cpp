#include "settings/UserDefaults.h"

#include "tests/commonutils/FileSizeLimit.h"
#include "tests/settings/SettingsFolder.h"

#include <gtest/gtest.h>

namespace {

const QString kA = QStringLiteral("a");
const QString kB = QStringLiteral("b");

}

TEST(UserDefaults, HaveAChangeOnDiskBeforeTheSetterReturns)
{
    const SettingsFolder folder;
    UserDefaults store = folder.store();
    const struct {
        QVariant value;
        QVariantMap expected;
    } steps[] = {
        {1, {{kA, qint64(1)}}},
        {true, {{kA, true}}},
        {QStringLiteral("text"), {{kA, QStringLiteral("text")}}},
        {QVariant(), {}},
    };
    for (const auto& step : steps) {
        SCOPED_TRACE(step.value.typeName());
        store.setObject(step.value, kA);
        EXPECT_EQ(folder.onDisk(), step.expected);
        EXPECT_EQ(folder.onDisk().value(kA).typeId(), step.expected.value(kA).typeId());
        EXPECT_EQ(folder.store().objectForKey(kA), step.expected.value(kA));
    }
    EXPECT_EQ(folder.names(), QStringList{QStringLiteral("app.plist")});
    EXPECT_EQ(
        QFile::permissions(folder.file()) & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
}

TEST(UserDefaults, DoNotWriteAValueThatIsThereAlready)
{
    const SettingsFolder folder;
    UserDefaults store = folder.store();
    store.setObject(QVariant(), kA);
    EXPECT_TRUE(folder.names().isEmpty());
    store.setObject(5, kA);
    const auto before = FileStamp::of(folder.file());
    store.setObject(5, kA);
    store.setObject(QVariant(), kB);
    EXPECT_EQ(FileStamp::of(folder.file()), before);
    store.setObject(6, kA);
    EXPECT_NE(FileStamp::of(folder.file()), before);
}

TEST(UserDefaults, KeepABrokenFileBesideAndNeverOverAnEarlierOne)
{
    const SettingsFolder folder;
    const QByteArray contents[] = {"", "junk", "<plist><dict><key>a</key>", "<plist><array/></plist>"};
    QStringList expected;
    for (const QByteArray& broken : contents) {
        SCOPED_TRACE(broken.toStdString());
        folder.put(folder.file(), broken);
        const QString number = expected.isEmpty() ? QString() : QString::number(-1 - expected.size());
        expected.append(QStringLiteral("app.plist.broken") + number);
        EXPECT_FALSE(folder.store().objectForKey(kA).isValid());
        EXPECT_EQ(folder.names(), expected);
        EXPECT_EQ(folder.contents(folder.in(expected.last())), broken);
    }
}

TEST(UserDefaults, LeaveALinkALinkEvenOneThatLeadsNowhereYet)
{
    const SettingsFolder folder;
    const SettingsFolder elsewhere;
    const QString target = elsewhere.in(QStringLiteral("sub/real"));
    ASSERT_TRUE(QFile::link(target, folder.file()));
    UserDefaults store = folder.store();
    for (const int value : {1, 2}) {
        store.setObject(value, kA);
        EXPECT_EQ(QFileInfo(folder.file()).symLinkTarget(), target);
        EXPECT_TRUE(QFileInfo::exists(target));
        EXPECT_EQ(folder.onDisk(), (QVariantMap{{kA, qint64(value)}}));
    }
    folder.put(target, "junk");
    EXPECT_FALSE(folder.store().objectForKey(kA).isValid());
    EXPECT_EQ(folder.contents(target + QStringLiteral(".broken")), "junk");
}

TEST(UserDefaults, MergeAnEditByHandWithTheNextWrite)
{
    const SettingsFolder folder;
    UserDefaults store = folder.store();
    store.setObject(1, kA);
    folder.put({{kA, 20}, {kB, 30}});
    store.setObject(true, QStringLiteral("c"));
    EXPECT_EQ(
        folder.onDisk(), (QVariantMap{{kA, qint64(20)}, {kB, qint64(30)}, {QStringLiteral("c"), true}}));
    EXPECT_EQ(store.integerForKey(kA), 20);
    folder.replace({{kB, 31}});
    store.setObject(1, kA); // the same as before the edit, yet a change now
    EXPECT_EQ(folder.onDisk(), (QVariantMap{{kA, qint64(1)}, {kB, qint64(31)}}));
}

TEST(UserDefaults, KeepTheirValuesWhenAnEditBreaksTheFile)
{
    const SettingsFolder folder;
    UserDefaults store = folder.store();
    store.setObject(1, kA);
    folder.put(folder.file(), "<plist><dict><key>half");
    store.setObject(1, kA);
    EXPECT_EQ(folder.names(), QStringList{QStringLiteral("app.plist")}) << "nothing to write, nothing moved";
    store.setObject(2, kB);
    EXPECT_EQ(folder.contents(folder.in(QStringLiteral("app.plist.broken"))), "<plist><dict><key>half");
    EXPECT_EQ(folder.onDisk(), (QVariantMap{{kA, qint64(1)}, {kB, qint64(2)}}));
}

TEST(UserDefaults, KeepAChangeThatCannotBeWrittenForTheNextWrite)
{
    const SettingsFolder folder;
    UserDefaults store = folder.store();
    store.setObject(1, kA);
    const QByteArray before = folder.contents(folder.file());
    {
        const FileSizeLimit limit(40);
        store.setObject(2, kA);
        EXPECT_EQ(store.integerForKey(kA), 2);
    }
    EXPECT_EQ(folder.contents(folder.file()), before) << "never half written";
    EXPECT_EQ(folder.names(), QStringList{QStringLiteral("app.plist")});
    folder.replace({{kA, 10}, {kB, 10}});
    store.setObject(10, kB); // no change, yet the retry
    EXPECT_EQ(folder.onDisk(), (QVariantMap{{kA, qint64(2)}, {kB, qint64(10)}}));
}

TEST(UserDefaults, WorkInMemoryWhereTheFolderCannotBeMade)
{
    const SettingsFolder folder;
    folder.put(folder.in(QStringLiteral("file")), "in the folder's place");
    UserDefaults store(folder.in(QStringLiteral("file/sub")), QStringLiteral("app"), QStringLiteral("older"));
    store.setObject(1, kA);
    store.setObject(2, kB);
    EXPECT_EQ(store.integerForKey(kA) + store.integerForKey(kB), 3);
    EXPECT_EQ(folder.contents(folder.in(QStringLiteral("file"))), "in the folder's place");
}
