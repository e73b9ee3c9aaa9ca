#pragma once

#include "service/PictureStorage.h"

#include <filesystem>

// Pictures in a folder of the file system: each one is a folder "pictures/<name>" with the files "picture"
// and "info.json", and its mark is an empty file in "expiry". Drafts lie in "incoming", on the same file
// system. One process owns the folder.
class FolderStorage : public PictureStorage {
public:
    explicit FolderStorage(std::filesystem::path folder);

    Fault open() override;
    Fault check() const override;
    Fault store(PictureDraft& draft, const PictureInfo& info) override;
    Fault find(const std::string& id, PictureInfo& info) const override;
    Fault read(
        const std::string& id, std::int64_t offset, std::int64_t length, const Take& take) const override;
    Fault remove(const std::string& id) override;
    Fault soonest(std::vector<Expiring>& expiring) const override;
    Fault forget(const Expiring& expiring) override;

private:
    bool mark(const Expiring& expiring) const;

    const std::filesystem::path m_pictures;
    const std::filesystem::path m_marks;
    const std::filesystem::path m_leaving; // where a picture goes out of sight in one step
};
