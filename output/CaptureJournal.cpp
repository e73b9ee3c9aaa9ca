#include "output/CaptureJournal.h"

#include "commonutils/AtomicFile.h"
#include "commonutils/CommLog.h"
#include "output/ImageWriter.h"
#include "output/JournalRecord.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QUuid>

#include <utility>

namespace {

constexpr int kDelayMs = 300; // after a change, in which more of them may come
const QString kPictures = QStringLiteral("last-capture-*.png");
constexpr qint64 kMostRecordBytes = qint64(64) << 20;

// Empty when it stands; else the reason.
QString writeFile(const QString& path, const QByteArray& bytes)
{
    if (bytes.isEmpty())
        return QStringLiteral("there is not enough memory");
    return AtomicFile::write(path, bytes.constData(), size_t(bytes.size()), AtomicFile::Access::OwnerOnly);
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.read(kMostRecordBytes) : QByteArray();
}

void removePictures(const QString& folder, const QString& butThis)
{
    const QStringList names = QDir(folder).entryList({kPictures}, QDir::Files | QDir::Hidden);
    for (const QString& name : names)
        if (name != butThis)
            QFile::remove(folder + QLatin1Char('/') + name);
}

bool makePrivateFolder(const QString& folder)
{
    return QDir().mkpath(folder) &&
           QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

}

CaptureJournal::CaptureJournal(const QString& folder)
    : now(QDateTime::currentMSecsSinceEpoch)
    , m_folder(folder)
{
    m_pool.setMaxThreadCount(1);
    m_pool.setExpiryTimeout(0); // no thread lingers, so none wakes up later
    m_pool.setThreadPriority(QThread::LowestPriority);
    m_delay.setSingleShot(true);
    m_expiry.setSingleShot(true);
    m_expiry.setTimerType(Qt::VeryCoarseTimer);
    connect(&m_delay, &QTimer::timeout, this, [this] { writeWaiting(); });
    connect(&m_expiry, &QTimer::timeout, this, [this] { watchAge(); });
}

CaptureJournal::~CaptureJournal()
{
    writeWaiting();
    m_pool.waitForDone();
}

QString CaptureJournal::standardFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
           QStringLiteral("/com.Lumora.Screenshot/journal");
}

QString CaptureJournal::recordPath() const
{
    return m_folder + QStringLiteral("/last-capture");
}

void CaptureJournal::keep(JournalEntry entry)
{
    m_waiting = std::move(entry);
    m_delay.start(kDelayMs);
    m_expiry.start(int(kLifeMs));
}

void CaptureJournal::writeWaiting()
{
    m_delay.stop();
    auto entry = std::exchange(m_waiting, std::nullopt);
    if (!entry)
        return;
    const bool isNewPicture = std::exchange(m_writtenPicture, entry->picture.cacheKey()) != m_writtenPicture;
    if (isNewPicture)
        m_pictureName = QStringLiteral("last-capture-%1.png").arg(QUuid::createUuid().toString(QUuid::Id128));
    const JournalRecord record{now(), m_pictureName, entry->display, entry->region, entry->annotations};
    m_pool.start([this, entry = std::move(*entry), record, isNewPicture] {
        const QString failure = write(record, isNewPicture ? entry.picture : QImage());
        if (!failure.isEmpty())
            QMetaObject::invokeMethod(
                this, [this, failure] { writeFailed(failure); }, Qt::QueuedConnection);
    });
}

// On the worker. A picture has a name of its own, and the one before goes only when the record names it.
QString CaptureJournal::write(const JournalRecord& record, const QImage& newPicture) const
{
    if (!makePrivateFolder(m_folder))
        return QStringLiteral("the folder %1 cannot be made").arg(m_folder);
    if (newPicture.isNull())
        return writeFile(recordPath(), record.encoded());
    const QByteArray bytes = ImageWriter::encode(newPicture, QStringLiteral(".png"), PngEffort::Quick);
    QString failure = writeFile(m_folder + QLatin1Char('/') + record.pictureName, bytes);
    if (failure.isEmpty())
        failure = writeFile(recordPath(), record.encoded());
    if (failure.isEmpty())
        removePictures(m_folder, record.pictureName);
    return failure;
}

void CaptureJournal::writeFailed(const QString& reason)
{
    CommLog::log(QStringLiteral("the last capture is not kept: %1"), reason);
    m_writtenPicture = 0; // the next record needs a picture
}

void CaptureJournal::forget()
{
    m_waiting.reset();
    m_delay.stop();
    m_expiry.stop();
    m_writtenPicture = 0;
    m_pool.start([folder = m_folder, path = recordPath()] {
        QFile::remove(path);
        removePictures(folder, {});
    });
}

void CaptureJournal::watchAge()
{
    QString reason;
    const auto record = JournalRecord::decoded(contentOf(recordPath()), &reason);
    if (!record && hasEntry())
        CommLog::log(QStringLiteral("the last capture is dropped: %1"), reason);
    const qint64 left = record ? record->time + kLifeMs - now() : 0;
    if (left > 0 && left <= kLifeMs)
        m_expiry.start(int(left));
    else
        forget();
}

bool CaptureJournal::hasEntry() const
{
    return m_waiting || QFile::exists(recordPath());
}

std::optional<JournalEntry> CaptureJournal::last(QString* reason)
{
    writeWaiting();
    m_pool.waitForDone();
    *reason = QStringLiteral("there is none");
    if (!hasEntry())
        return std::nullopt;
    auto entry = read(reason);
    if (!entry)
        forget();
    return entry;
}

std::optional<JournalEntry> CaptureJournal::read(QString* reason) const
{
    const auto record = JournalRecord::decoded(contentOf(recordPath()), reason);
    if (!record)
        return std::nullopt;
    *reason = QStringLiteral("it is too old");
    if (now() - record->time > kLifeMs || record->time > now())
        return std::nullopt;
    QImage picture(m_folder + QLatin1Char('/') + record->pictureName);
    picture.convertTo(QImage::Format_RGB32);
    *reason = QStringLiteral("its picture is damaged");
    if (picture.size() != record->display.pixels.size())
        return std::nullopt;
    return JournalEntry{record->display, picture, record->region, record->annotations};
}
