#pragma once

#include "settings/DomainFile.h"

#include <QObject>
#include <QSet>
#include <QStringList>
#include <QVariantMap>

#include <functional>
#include <memory>

class FileWatch;

// One user's settings: a flat dictionary of property-list values, kept in memory and in the file
// "<folder>/<bundle id>.plist". A change is on disk when its setter returns. Main thread only.
//
// A change that cannot be written stays in memory, is logged and goes to disk with the next write. Edits of
// the file by others are taken over, never overwritten; where one makes the file unreadable, the values in
// memory stand, and the file is kept as "<file>.broken" before it is written again.
class UserDefaults {
public:
    // Reads the application's domain and the older identifier's beside it. A missing file is an empty domain.
    UserDefaults(const QString& folder, const QString& bundleId, const QString& olderBundleId);
    ~UserDefaults();
    UserDefaults(const UserDefaults&) = delete;
    UserDefaults& operator=(const UserDefaults&) = delete;

    // The process's own store; null until one is set. Borrowed.
    static UserDefaults* standardUserDefaults() { return s_standard; }
    static void setStandardUserDefaults(UserDefaults* store) { s_standard = store; }

    // Values for the keys that the domain lacks; never written.
    void registerDefaults(const QVariantMap& values);

    // The domain's value, else the registered one, converted where its type differs (ValueRules); invalid,
    // empty, false or zero when there is none. No read touches the disk.
    QVariant objectForKey(const QString& key) const;
    QByteArray dataForKey(const QString& key) const;
    bool boolForKey(const QString& key) const;
    qint64 integerForKey(const QString& key) const;
    double doubleForKey(const QString& key) const;
    // getObject:fromBundleIdentifier: The value in one domain alone; invalid when it is not there.
    QVariant getObject(const QString& key, const QString& bundleIdentifier) const;

    // An invalid value removes the key. A value that is there already is not written.
    void setObject(const QVariant& value, const QString& key);

    // From now on edits by others are taken over as they happen, not only at the next write. Needs the
    // application object.
    void startWatching();
    // The keys that others changed, told from the event loop.
    std::function<void(const QStringList& changedKeys)> onExternalChange;

private:
    void loadFirst();
    void takeOverChanges();
    void merge(QVariantMap onDisk);
    void store(const QString& key, const QVariant& value);
    bool makeRoom();
    void write();

    static UserDefaults* s_standard;
    const QString m_bundleId;
    const QString m_olderBundleId;
    DomainFile m_file;
    QVariantMap m_domain;
    QVariantMap m_older;
    QVariantMap m_registered;
    QSet<QString> m_unsaved; // keys whose change is not on disk yet
    QString m_writeProblem;  // logged; empty when the last write succeeded
    bool m_isBroken = false; // the file on disk cannot be read and is not ours to overwrite
    QObject m_context;       // of calls that wait in the event loop
    std::unique_ptr<FileWatch> m_watch;
};
