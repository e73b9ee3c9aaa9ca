#include "output/UploadJournal.h"

#include "commonutils/AtomicFile.h"
#include "commonutils/CommLog.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>

#include <utility>

namespace {

constexpr QLatin1String kPath("uploadImage.Info.imageFilePath");
constexpr qint64 kLongest = 1 << 20; // bytes; no journal of ours comes near it

bool isFile(const QString& path)
{
    const QFileInfo file(path);
    return file.isAbsolute() && file.isFile() && !file.isSymLink();
}

}

UploadJournal::UploadJournal(QString path)
    : m_path(std::move(path))
{
}

QString UploadJournal::standardPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
           QStringLiteral("/com.Lumora.Screenshot/uploads.json");
}

bool UploadJournal::add(const QString& imageFilePath)
{
    QStringList paths = read();
    if (!paths.contains(imageFilePath))
        paths.append(imageFilePath);
    return write(paths);
}

void UploadJournal::remove(const QString& imageFilePath)
{
    QStringList paths = read();
    if (paths.removeAll(imageFilePath) > 0)
        write(paths);
}

QStringList UploadJournal::leftOver()
{
    const QStringList listed = read();
    QStringList found;
    std::copy_if(listed.begin(), listed.end(), std::back_inserter(found), isFile);
    if (found != listed)
        write(found);
    return found;
}

QStringList UploadJournal::read() const
{
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QJsonDocument document = QJsonDocument::fromJson(file.read(kLongest));
    if (!document.isArray())
        drop();
    QStringList paths;
    for (const QJsonValue& entry : document.array()) {
        const QString path = entry.toObject()[kPath].toString();
        if (!path.isEmpty())
            paths.append(path);
    }
    return paths;
}

void UploadJournal::drop() const
{
    CommLog::log(QStringLiteral("the journal of uploads is dropped, nobody can understand it: %1"), m_path);
    QFile::remove(m_path);
}

bool UploadJournal::write(const QStringList& paths) const
{
    QJsonArray entries;
    for (const QString& path : paths)
        entries.append(QJsonObject{{kPath, path}});
    QDir().mkpath(QFileInfo(m_path).path());
    const QByteArray bytes = QJsonDocument(entries).toJson();
    const QString reason =
        AtomicFile::write(m_path, bytes.constData(), size_t(bytes.size()), AtomicFile::Access::OwnerOnly);
    if (!reason.isEmpty())
        CommLog::log(QStringLiteral("the journal of uploads cannot be kept: %1"), reason);
    return reason.isEmpty();
}
