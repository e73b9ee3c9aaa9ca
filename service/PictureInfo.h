#pragma once

#include <cstdint>
#include <optional>
#include <string>

class QByteArray;

// What is kept of an upload beside its bytes.
struct PictureInfo {
    std::string title; // UTF-8, as its sender wrote it; may be empty
    std::string contentType;
    int width = 0; // pixels
    int height = 0;
    std::int64_t uploaded = 0;   // seconds since 1970, UTC
    std::int64_t expires = 0;    // likewise; 0 for never
    std::string passwordHash;    // empty for a picture that all may see
    std::string deleteTokenHash; // of the token in the sender's delete link
    std::int64_t bytes = 0;      // of the picture's file; its storage knows them, they are not written

    bool isExpired(std::int64_t now) const { return expires > 0 && expires <= now; }
};

// As JSON. What is read is empty when it is none.
QByteArray written(const PictureInfo& info);
std::optional<PictureInfo> readInfo(const QByteArray& json);
