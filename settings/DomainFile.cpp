#include "settings/DomainFile.h"

#include "commonutils/AtomicFile.h"
#include "commonutils/ToolFile.h"
#include "settings/PropertyList.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <fcntl.h>

namespace {

DomainFile::Contents broken(const QString& reason)
{
    return {DomainFile::State::Broken, {}, reason};
}

DomainFile::Contents parsedContents(const QByteArray& bytes)
{
    QString reason;
    const std::optional<QVariantMap> values = PropertyList::parsedDictionary(bytes, &reason);
    return values ? DomainFile::Contents{DomainFile::State::Whole, *values, {}} : broken(reason);
}

}

DomainFile::DomainFile(QString path)
    : m_path(std::move(path))
{
}

bool DomainFile::isChanged() const
{
    return FileStamp::of(m_path) != m_stamp;
}

DomainFile::Contents DomainFile::read()
{
    m_stamp = FileStamp::of(m_path); // of a file that cannot be opened, too
    // Not to wait for a writer, should there be a pipe in the file's place.
    const int descriptor = ::open(QFile::encodeName(m_path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0)
        return errno == ENOENT || errno == ENOTDIR ? Contents{} : broken(qt_error_string(errno));
    m_stamp = FileStamp::of(descriptor);
    QFile file;
    if (!file.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle))
        return broken(file.errorString());
    return parsedContents(file.read(PropertyList::kLargest + 1));
}

QString DomainFile::write(const QVariantMap& values)
{
    const QString target = ToolFile::linkTarget(m_path);
    QDir().mkpath(QFileInfo(target).path());
    const QByteArray list = PropertyList::xml(values);
    std::optional<FileStamp> stamp;
    const QString reason = AtomicFile::write(
        target, list.constData(), size_t(list.size()), AtomicFile::Access::OwnerOnly, &stamp);
    if (reason.isEmpty())
        m_stamp = stamp;
    return reason;
}

QString DomainFile::setAside()
{
    const QString target = ToolFile::linkTarget(m_path);
    const QString first = target + QStringLiteral(".broken");
    QString aside = first;
    for (int number = 2; QFileInfo(aside).isSymLink() || QFileInfo::exists(aside); ++number)
        aside = QStringLiteral("%1-%2").arg(first).arg(number);
    if (!QFile::rename(target, aside))
        return {};
    m_stamp.reset();
    return aside;
}
