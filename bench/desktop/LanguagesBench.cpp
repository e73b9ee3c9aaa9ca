#include "bench/desktop/Benches.h"
#include "settings/LanguageCatalogue.h"
#include "settings/ZRParserManager.h"

#include <QDir>
#include <QFile>
#include <QXmlStreamReader>

#include <ctime>

namespace {

std::vector<QByteArray> contents(const QString& folder)
{
    std::vector<QByteArray> files;
    for (const QFileInfo& info : QDir(folder).entryInfoList(QDir::Files)) {
        QFile file(info.filePath());
        if (file.open(QIODevice::ReadOnly))
            files.push_back(file.readAll());
    }
    return files;
}

// The processor's: what else runs here takes longer turns than the reading.
double millisecondsNow()
{
    return 1000.0 * double(std::clock()) / CLOCKS_PER_SEC;
}

void readBare(const std::vector<QByteArray>& files)
{
    for (const QByteArray& file : files) {
        QXmlStreamReader reader(file);
        while (!reader.atEnd())
            reader.readNext();
    }
}

}

// The floor is one pass of Qt's reader over the same bytes, which are in memory already.
void benchLanguages(BenchDesktop& bench, BenchTable& table)
{
    constexpr int kRounds = 21;
    const QString folder = LanguageCatalogue::folders().last();
    const std::vector<QByteArray> files = contents(folder);
    std::vector<double> floor;
    std::vector<double> ours;
    for (int round = 0; round < kRounds; ++round) {
        ZRParserManager::clearCache();
        const double start = millisecondsNow();
        readBare(files);
        const double middle = millisecondsNow();
        LanguageCatalogue::updateLangMenu({folder});
        floor.push_back(middle - start);
        ours.push_back(millisecondsNow() - middle);
    }
    table.add({QStringLiteral("all language files read, CPU"), bench.size(), median(floor), median(ours),
        QStringLiteral("ms"), 2.0});
}
