#include "commonutils/CommLog.h"

#include "commonutils/ToolFile.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QMutex>
#include <QStandardPaths>

#include <cstdio>

namespace {

constexpr qint64 kLargestKept = 1'048'576; // bytes

QMutex s_pathLock;
QString s_path;

QString cacheFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
           QStringLiteral("/com.Lumora.Screenshot");
}

void append(const QString& line)
{
    const QByteArray bytes = line.toUtf8();
    std::fwrite(bytes.constData(), 1, bytes.size(), stderr);
    const QString file = CommLog::path();
    if (!file.isEmpty())
        ToolFile::writeData(bytes, file, true);
}

}

void CommLog::start(const QString& baseName)
{
    QDir().mkpath(cacheFolder());
    const QString file =
        QStringLiteral("%1/%2.log").arg(cacheFolder(), QFileInfo(baseName).completeBaseName());
    ToolFile::writeData({}, file, QFileInfo(file).size() <= kLargestKept);
    const QMutexLocker lock(&s_pathLock);
    s_path = file;
}

void CommLog::writeStartHeader()
{
    const QString now = QLocale::system().toString(QDateTime::currentDateTime(), QLocale::LongFormat);
    append(QStringLiteral("\n================%1================\n").arg(now));
}

QString CommLog::path()
{
    const QMutexLocker lock(&s_pathLock);
    return s_path;
}

void CommLog::log(const QString& message)
{
    const QString now = QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    append(QStringLiteral("[%1] %2\n").arg(now, message));
}
