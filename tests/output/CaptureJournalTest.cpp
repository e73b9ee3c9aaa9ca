#include "output/CaptureJournal.h"

#include "output/JournalRecord.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace {

QImage picture(QRgb colour)
{
    QImage image(320, 200, QImage::Format_RGB32);
    image.fill(colour);
    image.setPixel(7, 9, qRgb(1, 2, 3));
    return image;
}

JournalEntry entry(const QImage& image, const QByteArray& annotations = "some")
{
    const DisplayRecord display{3, QStringLiteral("LEFT"), {0, 0, 320, 200}, 2, {0, 0, 160, 100}};
    return {display, image, {10.5, 20, 60, 40}, annotations};
}

class CaptureJournalTest : public testing::Test {
protected:
    CaptureJournalTest() { startAgain(); }
    // As after a crash or a new start of the program.
    void startAgain()
    {
        journal = std::make_unique<CaptureJournal>(folder());
        journal->now = [this] { return time; };
    }
    QString folder() const { return m_home.filePath(QStringLiteral("cache/journal")); }
    QStringList files() const { return QDir(folder()).entryList(QDir::Files | QDir::Hidden); }
    QString reason()
    {
        QString text;
        EXPECT_FALSE(journal->last(&text));
        return text;
    }
    bool waitForFiles(qsizetype count)
    {
        return QTest::qWaitFor([&] { return files().size() == count; }, 2000);
    }

    QTemporaryDir m_home;
    qint64 time = 1'000'000'000;
    std::unique_ptr<CaptureJournal> journal;
};

}

TEST_F(CaptureJournalTest, GivesBackWhatWasKeptLastToTheUserAlone)
{
    EXPECT_FALSE(journal->hasEntry());
    EXPECT_EQ(reason(), QStringLiteral("there is none"));
    journal->keep(entry(picture(Qt::red)));
    journal->keep(entry(picture(Qt::green), "others"));
    startAgain();
    QString why;
    const auto last = journal->last(&why);
    ASSERT_TRUE(last) << qPrintable(why);
    EXPECT_EQ(last->display, entry({}).display);
    EXPECT_EQ(last->region, entry({}).region);
    EXPECT_EQ(last->annotations, "others");
    EXPECT_EQ(last->picture, picture(Qt::green));
    EXPECT_EQ(files().size(), 2) << "one record, one picture";
    constexpr auto kOthers = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther |
                             QFile::WriteOther | QFile::ExeOther;
    for (const QString& name : files() + QStringList{QStringLiteral(".")})
        EXPECT_FALSE(QFile::permissions(folder() + QLatin1Char('/') + name) & kOthers) << qPrintable(name);
}

TEST_F(CaptureJournalTest, WritesAPictureOnceAndTheRecordAfterEachChange)
{
    const QImage kept = picture(Qt::red);
    journal->keep(entry(kept, "first"));
    ASSERT_TRUE(waitForFiles(2));
    const QStringList before = files();
    journal->keep(entry(kept, "second"));
    startAgain();
    QString why;
    EXPECT_EQ(journal->last(&why)->annotations, "second");
    EXPECT_EQ(files(), before);
}

TEST_F(CaptureJournalTest, KeepsForAnHour)
{
    journal->keep(entry(picture(Qt::red)));
    startAgain();
    time += CaptureJournal::kLifeMs - 1;
    journal->watchAge();
    QString why;
    EXPECT_TRUE(journal->last(&why)) << qPrintable(why);
    time += 2;
    EXPECT_EQ(reason(), QStringLiteral("it is too old"));
    journal->keep(entry(picture(Qt::red)));
    startAgain();
    time -= 1; // the machine's time was set back
    EXPECT_EQ(reason(), QStringLiteral("it is too old"));
    time += 1;
    journal->keep(entry(picture(Qt::red)));
    startAgain();
    time += CaptureJournal::kLifeMs;
    journal->watchAge();
    EXPECT_TRUE(waitForFiles(0)) << "nobody asked for it";
}

TEST_F(CaptureJournalTest, RefusesDamagedFilesInWords)
{
    journal->keep(entry(picture(Qt::red)));
    startAgain();
    const QString record = folder() + QStringLiteral("/last-capture");
    QFile file(record);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray whole = file.readAll();
    file.close();
    const auto reasonFor = [&](const QByteArray& bytes) {
        EXPECT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(bytes);
        file.close();
        const QString why = reason();
        EXPECT_TRUE(waitForFiles(0)) << "what is of no use is dropped";
        return why;
    };
    for (const qsizetype size : {qsizetype(0), qsizetype(3), qsizetype(50), whole.size() - 1}) {
        SCOPED_TRACE(size);
        EXPECT_EQ(reasonFor(whole.left(size)), QStringLiteral("it is damaged"));
    }
    EXPECT_EQ(reasonFor(QByteArray(whole).replace(60, 1, "~")), QStringLiteral("it is damaged"));
    EXPECT_EQ(reasonFor(QByteArray(whole).replace(7, 1, "\x09")),
        QStringLiteral("it was written by another version of the program"));
}

TEST_F(CaptureJournalTest, RefusesADamagedPicture)
{
    const std::function<void(const QString&)> damages[] = {
        [](const QString& path) { QFile::resize(path, QFileInfo(path).size() / 2); },
        [](const QString& path) { QFile::remove(path); },
    };
    for (const auto& damage : damages) {
        journal->keep(entry(picture(Qt::red)));
        startAgain();
        const QStringList pictures = QDir(folder()).entryList({QStringLiteral("*.png")});
        ASSERT_EQ(pictures.size(), 1);
        damage(folder() + QLatin1Char('/') + pictures.first());
        EXPECT_EQ(reason(), QStringLiteral("its picture is damaged"));
        ASSERT_TRUE(waitForFiles(0));
    }
}

TEST_F(CaptureJournalTest, ForgetsOnDemandAndKeepsAgain)
{
    const QImage kept = picture(Qt::red);
    journal->keep(entry(kept));
    ASSERT_TRUE(waitForFiles(2));
    journal->forget();
    ASSERT_TRUE(waitForFiles(0));
    EXPECT_FALSE(journal->hasEntry());
    journal->keep(entry(kept));
    QString why;
    EXPECT_TRUE(journal->last(&why)) << qPrintable(why);
}

TEST_F(CaptureJournalTest, SurvivesAFolderThatCannotBeMade)
{
    QFile blocker(m_home.filePath(QStringLiteral("cache")));
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    const QImage kept = picture(Qt::red);
    journal->keep(entry(kept));
    EXPECT_EQ(reason(), QStringLiteral("there is none"));
    QCoreApplication::processEvents(); // the failure arrives
    blocker.remove();
    journal->keep(entry(kept));
    QString why;
    EXPECT_TRUE(journal->last(&why)) << qPrintable(why);
}
