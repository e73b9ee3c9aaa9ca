#include "service/FolderStorage.h"

#include "service/DiskFile.h"
#include "service/PictureDraft.h"
#include "service/Secrets.h"

#include <QFile>

#include <algorithm>
#include <array>
#include <fstream>
#include <system_error>

#include <unistd.h>

namespace fs = std::filesystem;

namespace {

Fault unknown()
{
    return {404, "there is no such picture"};
}

Fault noRoom()
{
    return {507, "there is no room for the picture"};
}

Fault fault(const std::string& what, const std::error_code& error)
{
    return error ? Fault{500, what + ": " + error.message()} : Fault();
}

}

FolderStorage::FolderStorage(fs::path folder)
    : m_pictures(folder / "pictures")
    , m_marks(folder / "expiry")
    , m_leaving(folder / "incoming")
{
}

Fault FolderStorage::open()
{
    std::error_code error;
    for (const fs::path& folder : {m_pictures, m_marks, m_leaving}) {
        if (!error)
            fs::create_directories(folder, error);
    }
    if (!error)
        fs::permissions(m_pictures.parent_path(), fs::perms::owner_all, error);
    return fault(m_pictures.parent_path().string(), error);
}

Fault FolderStorage::check() const
{
    constexpr std::uintmax_t kLeast = 16 << 20; // bytes
    std::error_code error;
    const fs::space_info space = fs::space(m_pictures, error);
    if (error || ::access(m_pictures.c_str(), W_OK) != 0)
        return {503, "the folder of the pictures cannot be written to"};
    return space.available < kLeast ? Fault{507, "the disk is full"} : Fault();
}

Fault FolderStorage::store(PictureDraft& draft, const PictureInfo& info)
{
    const QByteArray json = written(info);
    const bool isMarked = info.expires == 0 || mark({info.expires, draft.id()});
    if (!isMarked || !draft.close() ||
        !DiskFile::write(draft.folder() / "info.json", {json.constData(), size_t(json.size())}) ||
        !DiskFile::settleFolder(draft.folder()))
        return noRoom();
    std::error_code error;
    fs::rename(draft.folder(), m_pictures / draft.id(), error);
    return !error && DiskFile::settleFolder(m_pictures) ? Fault() : noRoom();
}

bool FolderStorage::mark(const Expiring& expiring) const
{
    return DiskFile::write(m_marks / markOf(expiring), {}) && DiskFile::settleFolder(m_marks);
}

Fault FolderStorage::find(const std::string& id, PictureInfo& info) const
{
    if (!Secrets::isName(id))
        return unknown();
    QFile file(QString::fromStdString((m_pictures / id / "info.json").string()));
    const auto found = file.open(QIODevice::ReadOnly) ? readInfo(file.readAll()) : std::nullopt;
    std::error_code error;
    const std::uintmax_t bytes = fs::file_size(m_pictures / id / "picture", error);
    if (!found || error)
        return unknown();
    info = *found;
    info.bytes = std::int64_t(bytes);
    return {};
}

Fault FolderStorage::read(
    const std::string& id, std::int64_t offset, std::int64_t length, const Take& take) const
{
    std::ifstream file(m_pictures / id / "picture", std::ios::binary);
    if (!Secrets::isName(id) || !file.seekg(offset))
        return unknown();
    std::array<char, 65536> bytes;
    while (length > 0) {
        file.read(bytes.data(), std::min(std::streamsize(length), std::streamsize(bytes.size())));
        if (file.gcount() <= 0 || !take(bytes.data(), size_t(file.gcount())))
            return {500, "the picture was not read to its end"};
        length -= file.gcount();
    }
    return {};
}

Fault FolderStorage::remove(const std::string& id)
{
    if (!Secrets::isName(id))
        return unknown();
    std::error_code error;
    fs::rename(m_pictures / id, m_leaving / id, error);
    if (error == std::errc::no_such_file_or_directory)
        return unknown();
    std::error_code ignored; // what stays is swept at the next start
    fs::remove_all(m_leaving / id, ignored);
    return fault("a picture was not removed", error);
}

Fault FolderStorage::soonest(std::vector<Expiring>& expiring) const
{
    std::error_code error;
    expiring.clear();
    for (fs::directory_iterator file(m_marks, error); !error && file != fs::directory_iterator();
         file.increment(error)) {
        if (const auto found = marked(file->path().filename()))
            expiring.push_back(*found);
    }
    const auto end = expiring.begin() + std::ptrdiff_t(std::min(kSoonest, expiring.size()));
    std::partial_sort(expiring.begin(), end, expiring.end(),
        [](const Expiring& a, const Expiring& b) { return a.when < b.when; });
    expiring.erase(end, expiring.end());
    return fault("the marks were not read", error);
}

Fault FolderStorage::forget(const Expiring& expiring)
{
    std::error_code error;
    fs::remove(m_marks / markOf(expiring), error);
    return fault("a mark was not removed", error);
}
