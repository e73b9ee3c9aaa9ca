#pragma once

#include "platform/Frame.h"

#include <QByteArray>
#include <QObject>
#include <QThreadPool>
#include <QTimer>

#include <functional>
#include <optional>

struct JournalRecord;

// What it takes to open a capture again.
struct JournalEntry {
    DisplayRecord display;
    QImage picture; // of the whole display, Format_RGB32
    ZRRect region;  // points of the display
    QByteArray annotations;
    std::shared_ptr<const Frame> frame = nullptr; // whose pixels the picture may borrow
};

// Keeps the last capture in a folder, in files that the user alone can read: a picture, written once, and a
// small record, written after each change. Off the main thread and a moment late, so that nobody waits for
// it. Whatever happens in between, the folder holds one whole capture. Used on the main thread.
class CaptureJournal : public QObject {
public:
    // The folder is made when it is needed.
    explicit CaptureJournal(const QString& folder);
    // Writes what is to be written.
    ~CaptureJournal() override;
    static QString standardFolder();

    // Takes the place of the entry before, for an hour.
    void keep(JournalEntry entry);
    void forget();
    // Forgets an entry that is too old, and one that grows too old later.
    void watchAge();
    // Whether there is an entry, of whatever worth.
    bool hasEntry() const;
    // Nothing when there is none, or none that can be read, which is then forgotten; `reason` says why.
    std::optional<JournalEntry> last(QString* reason);

    static constexpr qint64 kLifeMs = 60 * 60 * 1000;
    // The time of the day, in milliseconds since 1970; a test sets its own.
    std::function<qint64()> now;

private:
    void writeWaiting();
    // Empty when it stands; else the reason. A null picture means that the record's one stands already.
    QString write(const JournalRecord& record, const QImage& newPicture) const;
    void writeFailed(const QString& reason);
    std::optional<JournalEntry> read(QString* reason) const;
    QString recordPath() const;

    const QString m_folder;
    std::optional<JournalEntry> m_waiting;
    QTimer m_delay;
    QTimer m_expiry;
    qint64 m_writtenPicture = 0; // the cache key of the picture that the record's file shows
    QString m_pictureName;
    QThreadPool m_pool;
};
