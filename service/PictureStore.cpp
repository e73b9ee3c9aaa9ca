#include "service/PictureStore.h"

#include "service/Secrets.h"

#include <QByteArray>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <cerrno>
#include <memory>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

bool writeAll(int descriptor, const char* bytes, size_t count)
{
    while (count > 0) {
        const ssize_t written = ::write(descriptor, bytes, count);
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            return false;
        bytes += written;
        count -= size_t(written);
    }
    return true;
}

int createFile(const fs::path& path)
{
    return ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
}

// Onto the disk itself, and closed in every case.
bool settle(int descriptor)
{
    const bool isSettled = ::fsync(descriptor) == 0;
    return (::close(descriptor) == 0 || errno == EINTR) && isSettled;
}

bool settleFolder(const fs::path& folder)
{
    const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    return descriptor >= 0 && settle(descriptor);
}

bool writeFile(const fs::path& path, const QByteArray& bytes)
{
    const int descriptor = createFile(path);
    if (descriptor < 0)
        return false;
    const bool isWritten = writeAll(descriptor, bytes.constData(), size_t(bytes.size()));
    return settle(descriptor) && isWritten;
}

QString text(const std::string& value)
{
    return QString::fromStdString(value);
}

QByteArray written(const PictureInfo& info)
{
    const QJsonObject object{
        {QStringLiteral("title"), text(info.title)},
        {QStringLiteral("contentType"), text(info.contentType)},
        {QStringLiteral("width"), info.width},
        {QStringLiteral("height"), info.height},
        {QStringLiteral("uploaded"), qint64(info.uploaded)},
        {QStringLiteral("passwordHash"), text(info.passwordHash)},
        {QStringLiteral("deleteTokenHash"), text(info.deleteTokenHash)},
    };
    return QJsonDocument(object).toJson();
}

PictureInfo read(const QJsonObject& object)
{
    const auto string = [&object](
                            const char* key) { return object[QLatin1String(key)].toString().toStdString(); };
    return {string("title"), string("contentType"), object[QLatin1String("width")].toInt(),
        object[QLatin1String("height")].toInt(), object[QLatin1String("uploaded")].toInteger(),
        string("passwordHash"), string("deleteTokenHash")};
}

}

PictureDraft::PictureDraft(fs::path folder, std::string id, int descriptor)
    : m_folder(std::move(folder))
    , m_id(std::move(id))
    , m_descriptor(descriptor)
{
}

PictureDraft::~PictureDraft()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
    std::error_code ignored; // what stays is swept at the next start
    if (!m_isStored)
        fs::remove_all(m_folder, ignored);
}

void PictureDraft::write(const char* bytes, size_t count)
{
    m_isIntact = m_isIntact && m_descriptor >= 0 && writeAll(m_descriptor, bytes, count);
}

bool PictureDraft::close()
{
    if (m_descriptor >= 0)
        m_isIntact = settle(std::exchange(m_descriptor, -1)) && m_isIntact;
    return m_isIntact;
}

std::string PictureStore::open(const fs::path& folder)
{
    m_folder = folder;
    std::error_code error;
    fs::create_directories(stored(), error);
    if (!error)
        fs::remove_all(unfinished(), error);
    if (!error)
        fs::create_directory(unfinished(), error);
    if (!error)
        fs::permissions(m_folder, fs::perms::owner_all, error);
    return error ? folder.string() + ": " + error.message() : std::string();
}

std::unique_ptr<PictureDraft> PictureStore::begin() const
{
    const std::string id = Secrets::unguessableName();
    const fs::path folder = unfinished() / id;
    if (::mkdir(folder.c_str(), 0700) != 0)
        return nullptr;
    auto draft = std::unique_ptr<PictureDraft>(new PictureDraft(folder, id, createFile(folder / "picture")));
    return draft->m_descriptor >= 0 ? std::move(draft) : nullptr;
}

std::string PictureStore::store(PictureDraft& draft, const PictureInfo& info) const
{
    if (!draft.close() || !writeFile(draft.m_folder / "info.json", written(info)) ||
        !settleFolder(draft.m_folder))
        return {};
    std::error_code error;
    fs::rename(draft.m_folder, stored() / draft.m_id, error);
    draft.m_isStored = !error;
    return !error && settleFolder(stored()) ? draft.m_id : std::string();
}

std::optional<PictureInfo> PictureStore::find(const std::string& id) const
{
    if (!Secrets::isName(id))
        return {};
    QFile file(text((stored() / id / "info.json").string()));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QJsonObject object = QJsonDocument::fromJson(file.readAll()).object();
    return object.isEmpty() ? std::nullopt : std::optional(read(object));
}

bool PictureStore::remove(const std::string& id) const
{
    if (!Secrets::isName(id))
        return false;
    // Out of sight in one step, so that nobody meets half of it.
    std::error_code error;
    fs::rename(stored() / id, unfinished() / id, error);
    std::error_code ignored;
    fs::remove_all(unfinished() / id, ignored);
    return !error;
}
