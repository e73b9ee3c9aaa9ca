#pragma once

#include "settings/PropertyList.h"
#include "settings/UserDefaults.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

// A folder of settings files, as a user's own.
class SettingsFolder {
public:
    QString path() const { return m_folder.path(); }
    QString file() const { return m_folder.filePath(QStringLiteral("app.plist")); }
    QString in(const QString& name) const { return m_folder.filePath(name); }
    QStringList names() const
    {
        return QDir(path()).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    }

    UserDefaults store() const { return {path(), QStringLiteral("app"), QStringLiteral("older")}; }

    static QByteArray contents(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    QVariantMap onDisk() const
    {
        QString reason;
        return PropertyList::parsedDictionary(contents(file()), &reason).value_or(QVariantMap());
    }

    // An edit in place, as many editors do it.
    static void put(const QString& path, const QByteArray& bytes)
    {
        QFile file(path);
        if (file.open(QIODevice::WriteOnly))
            file.write(bytes);
    }
    void put(const QVariantMap& values) const { put(file(), PropertyList::xml(values)); }
    // An edit by a rename over the file.
    void replace(const QVariantMap& values) const
    {
        const QString draft = in(QStringLiteral("draft"));
        put(draft, PropertyList::xml(values));
        QFile::remove(file());
        QFile::rename(draft, file());
    }

private:
    QTemporaryDir m_folder;
};
