#include "settings/UserDefaults.h"

#include "commonutils/CommLog.h"
#include "settings/FileWatch.h"
#include "settings/PropertyList.h"
#include "settings/ValueRules.h"

#include <QDir>
#include <QFileInfo>

#include <utility>

namespace {

QString domainPath(const QString& folder, const QString& bundleId)
{
    return QStringLiteral("%1/%2.plist").arg(folder, bundleId);
}

// Unlike QVariant's own comparison, true and 1 differ.
bool isSame(const QVariant& a, const QVariant& b)
{
    return a.typeId() == b.typeId() && a == b;
}

QStringList differingKeys(const QVariantMap& a, const QVariantMap& b)
{
    QStringList keys;
    for (auto it = a.begin(); it != a.end(); ++it)
        if (!isSame(it.value(), b.value(it.key())))
            keys.append(it.key());
    for (auto it = b.begin(); it != b.end(); ++it)
        if (!a.contains(it.key()))
            keys.append(it.key());
    return keys;
}

QVariantMap readOlder(const QString& path)
{
    DomainFile file(path);
    const DomainFile::Contents contents = file.read();
    if (contents.state == DomainFile::State::Broken)
        CommLog::log(QStringLiteral("older settings file %1 is left alone: %2"), path, contents.reason);
    return contents.values;
}

}

UserDefaults* UserDefaults::s_standard = nullptr;

UserDefaults::UserDefaults(const QString& folder, const QString& bundleId, const QString& olderBundleId)
    : m_bundleId(bundleId)
    , m_olderBundleId(olderBundleId)
    , m_file(domainPath(folder, bundleId))
    , m_older(readOlder(domainPath(folder, olderBundleId)))
{
    loadFirst();
}

UserDefaults::~UserDefaults()
{
    if (s_standard == this)
        s_standard = nullptr;
}

void UserDefaults::loadFirst()
{
    const DomainFile::Contents contents = m_file.read();
    m_domain = contents.values;
    if (contents.state != DomainFile::State::Broken)
        return;
    const QString aside = m_file.setAside();
    m_isBroken = aside.isEmpty();
    CommLog::log(
        QStringLiteral("settings file %1 cannot be read (%2); defaults apply, the file is kept as %3"),
        m_file.path(), contents.reason, m_isBroken ? m_file.path() : aside);
}

void UserDefaults::registerDefaults(const QVariantMap& values)
{
    m_registered = PropertyList::normalized(values).toMap();
}

QVariant UserDefaults::objectForKey(const QString& key) const
{
    const auto it = m_domain.constFind(key);
    return it != m_domain.constEnd() ? it.value() : m_registered.value(key);
}

QByteArray UserDefaults::dataForKey(const QString& key) const
{
    return ValueRules::dataValue(objectForKey(key));
}

bool UserDefaults::boolForKey(const QString& key) const
{
    return ValueRules::boolValue(objectForKey(key));
}

qint64 UserDefaults::integerForKey(const QString& key) const
{
    return ValueRules::integerValue(objectForKey(key));
}

double UserDefaults::doubleForKey(const QString& key) const
{
    return ValueRules::doubleValue(objectForKey(key));
}

QVariant UserDefaults::getObject(const QString& key, const QString& bundleIdentifier) const
{
    if (bundleIdentifier == m_bundleId)
        return m_domain.value(key);
    return bundleIdentifier == m_olderBundleId ? m_older.value(key) : QVariant();
}

void UserDefaults::setObject(const QVariant& value, const QString& key)
{
    takeOverChanges();
    const QVariant plain = PropertyList::normalized(value);
    if (!isSame(m_domain.value(key), plain)) {
        store(key, plain);
        m_unsaved.insert(key);
    }
    if (!m_unsaved.isEmpty())
        write();
}

void UserDefaults::startWatching()
{
    QDir().mkpath(QFileInfo(m_file.path()).path());
    m_watch = std::make_unique<FileWatch>(m_file.path(), [this] { takeOverChanges(); });
    takeOverChanges();
}

void UserDefaults::takeOverChanges()
{
    if (!m_file.isChanged())
        return;
    const DomainFile::Contents contents = m_file.read();
    m_isBroken = contents.state == DomainFile::State::Broken;
    if (!m_isBroken)
        merge(contents.values);
    else
        CommLog::log(QStringLiteral("settings file %1 was changed and cannot be read: %2"), m_file.path(),
            contents.reason);
}

void UserDefaults::merge(QVariantMap onDisk)
{
    const QVariantMap before = std::exchange(m_domain, std::move(onDisk));
    for (const QString& key : std::as_const(m_unsaved))
        store(key, before.value(key));
    const QStringList keys = differingKeys(before, m_domain);
    if (keys.isEmpty())
        return;
    const auto tell = [this, keys] {
        if (onExternalChange)
            onExternalChange(keys);
    };
    QMetaObject::invokeMethod(&m_context, tell, Qt::QueuedConnection);
}

void UserDefaults::store(const QString& key, const QVariant& value)
{
    if (value.isValid())
        m_domain.insert(key, value);
    else
        m_domain.remove(key);
}

// Sets an unreadable file of the user's aside. False when it cannot be kept and so must stand.
bool UserDefaults::makeRoom()
{
    if (!m_isBroken)
        return true;
    const QString aside = m_file.setAside();
    m_isBroken = aside.isEmpty();
    if (!m_isBroken)
        CommLog::log(QStringLiteral("unreadable settings file kept as %1"), aside);
    return !m_isBroken;
}

void UserDefaults::write()
{
    const QString problem =
        makeRoom() ? m_file.write(m_domain) : QStringLiteral("an unreadable file is in its place");
    if (problem.isEmpty())
        m_unsaved.clear();
    else if (problem != m_writeProblem)
        CommLog::log(QStringLiteral("settings file %1 cannot be written: %2"), m_file.path(), problem);
    m_writeProblem = problem;
}
