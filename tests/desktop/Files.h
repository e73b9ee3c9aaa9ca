#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>

// Empty when it cannot be read.
inline QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Makes the folders that lead there as well.
inline bool writeFile(const QString& path, const QByteArray& contents)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size();
}

// A field of a process's or a thread's status file below /proc.
inline int statusNumber(const QString& path, const QByteArray& field)
{
    const QByteArray text = readFile(path);
    const qsizetype value = text.indexOf('\n' + field + ':') + field.size() + 2;
    return text.mid(value).trimmed().split('\n')[0].split(' ')[0].toInt();
}
