#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

// What is kept of an upload beside its bytes.
struct PictureInfo {
    std::string title; // UTF-8, as its sender wrote it; may be empty
    std::string contentType;
    int width = 0; // pixels
    int height = 0;
    std::int64_t uploaded = 0;   // seconds since 1970, UTC
    std::string passwordHash;    // empty for a picture that all may see
    std::string deleteTokenHash; // of the token in the sender's delete link
};

// A picture on its way into the store: a folder beside the stored ones that takes its place among them in one
// step, or goes with this object.
class PictureDraft {
public:
    ~PictureDraft();
    PictureDraft(const PictureDraft&) = delete;
    PictureDraft& operator=(const PictureDraft&) = delete;

    void write(const char* bytes, size_t count);
    // Where the bytes are. Complete after close().
    std::string path() const { return m_folder / "picture"; }
    // False when the disk did not take every byte.
    bool close();

private:
    friend class PictureStore;
    PictureDraft(std::filesystem::path folder, std::string id, int descriptor);

    const std::filesystem::path m_folder;
    const std::string m_id;
    int m_descriptor;
    bool m_isIntact = true;
    bool m_isStored = false;
};

// Pictures in a folder of the file system, each in a folder of its own under an unguessable name. One process
// owns the folder; any thread. A picture is stored completely or not at all, also when the process is killed
// or the machine loses its power.
class PictureStore {
public:
    // Makes the folder and sweeps what an earlier process left unfinished; empty, or the reason in words.
    std::string open(const std::filesystem::path& folder);

    // Null when there can be none.
    std::unique_ptr<PictureDraft> begin() const;
    // The name of the stored picture; empty when the disk does not take it.
    std::string store(PictureDraft& draft, const PictureInfo& info) const;
    // Empty for an unknown name and for any text that is not one.
    std::optional<PictureInfo> find(const std::string& id) const;
    std::filesystem::path pictureOf(const std::string& id) const { return stored() / id / "picture"; }
    // False when it is still there.
    bool remove(const std::string& id) const;

private:
    std::filesystem::path stored() const { return m_folder / "pictures"; }
    std::filesystem::path unfinished() const { return m_folder / "incoming"; }

    std::filesystem::path m_folder;
};
