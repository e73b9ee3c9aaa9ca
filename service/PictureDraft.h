#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>

// A picture on its way into the storage: a folder of its own on the local disk, with the bytes in the file
// "picture". It goes with this object unless the storage has taken it away.
class PictureDraft {
public:
    ~PictureDraft();
    PictureDraft(const PictureDraft&) = delete;
    PictureDraft& operator=(const PictureDraft&) = delete;

    // The unguessable name that the picture will have.
    const std::string& id() const { return m_id; }
    const std::filesystem::path& folder() const { return m_folder; }
    // Where the bytes are. Complete after close().
    std::string path() const { return m_folder / "picture"; }

    void write(const char* bytes, size_t count);
    // False when the disk did not take every byte.
    bool close();

private:
    friend class IncomingFolder;
    PictureDraft(std::filesystem::path folder, std::string id, int descriptor);

    const std::filesystem::path m_folder;
    const std::string m_id;
    int m_descriptor;
    bool m_isIntact = true;
};

// The folder of the drafts. One process owns it; any thread.
class IncomingFolder {
public:
    // Makes the folder and sweeps what an earlier process left unfinished; empty, or the reason in words.
    std::string open(const std::filesystem::path& folder);
    // Null when there can be none.
    std::unique_ptr<PictureDraft> begin() const;

private:
    std::filesystem::path m_folder;
};
