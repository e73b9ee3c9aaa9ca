#include "bench/desktop/Benches.h"
#include "bench/desktop/Stopwatch.h"
#include "settings/LanguageCatalogue.h"
#include "settings/ZRParserManager.h"

#include <QDir>
#include <QFile>
#include <QXmlStreamReader>

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
        Stopwatch watch;
        readBare(files);
        floor.push_back(watch.milliseconds());
        watch.restart();
        LanguageCatalogue::updateLangMenu({folder});
        ours.push_back(watch.milliseconds());
    }
    table.add({QStringLiteral("all language files read"), bench.size(), median(floor), median(ours),
        QStringLiteral("ms"), 2.0});
}
