#include "service/PictureDraft.h"

#include "service/DiskFile.h"
#include "service/Secrets.h"

#include <system_error>
#include <utility>

#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

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
    fs::remove_all(m_folder, ignored);
}

void PictureDraft::write(const char* bytes, size_t count)
{
    m_isIntact = m_isIntact && m_descriptor >= 0 && DiskFile::writeAll(m_descriptor, bytes, count);
}

bool PictureDraft::close()
{
    if (m_descriptor >= 0)
        m_isIntact = DiskFile::settle(std::exchange(m_descriptor, -1)) && m_isIntact;
    return m_isIntact;
}

std::string IncomingFolder::open(const fs::path& folder)
{
    m_folder = folder;
    std::error_code error;
    fs::remove_all(m_folder, error);
    if (!error)
        fs::create_directories(m_folder, error);
    if (!error)
        fs::permissions(m_folder, fs::perms::owner_all, error);
    return error ? folder.string() + ": " + error.message() : std::string();
}

std::unique_ptr<PictureDraft> IncomingFolder::begin() const
{
    const std::string id = Secrets::unguessableName();
    const fs::path folder = m_folder / id;
    if (::mkdir(folder.c_str(), 0700) != 0)
        return nullptr;
    const int descriptor = DiskFile::create(folder / "picture");
    auto draft = std::unique_ptr<PictureDraft>(new PictureDraft(folder, id, descriptor));
    return descriptor >= 0 ? std::move(draft) : nullptr;
}
