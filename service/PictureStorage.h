#pragma once

#include "service/Fault.h"
#include "service/PictureInfo.h"

#include <cstddef>
#include <functional>
#include <vector>

class PictureDraft;

// A stored picture that has its day.
struct Expiring {
    std::int64_t when = 0; // seconds since 1970, UTC
    std::string id;
    friend bool operator==(const Expiring&, const Expiring&) = default;
};

// Where the pictures are kept. A picture is stored completely or not at all, also when the process is killed
// in the middle. One that expires has a mark, which says when: a mark is there before its picture, so that
// none is forgotten. Names come in as strangers wrote them. Any thread.
class PictureStorage {
public:
    using Take = std::function<bool(const char* bytes, size_t count)>;

    virtual ~PictureStorage() = default;

    // Makes what it needs; a fault when pictures cannot be kept here.
    virtual Fault open() = 0;
    // Whether pictures can be kept at this moment.
    virtual Fault check() const = 0;
    // Without a fault the picture outlives the process and the machine's power.
    virtual Fault store(PictureDraft& draft, const PictureInfo& info) = 0;
    // 404 for an unknown name and for any text that is not one.
    virtual Fault find(const std::string& id, PictureInfo& info) const = 0;
    // Hands the picture's bytes on piece by piece, until they end or `take` answers false, which is a fault.
    virtual Fault read(
        const std::string& id, std::int64_t offset, std::int64_t length, const Take& take) const = 0;
    virtual Fault remove(const std::string& id) = 0;

    // Up to a thousand of those that expire soonest, the first one first.
    virtual Fault soonest(std::vector<Expiring>& expiring) const = 0;
    // Takes the mark away, once its picture is gone.
    virtual Fault forget(const Expiring& expiring) = 0;

    static constexpr size_t kSoonest = 1000;

protected:
    // A mark's name sorts by its time. What is read is empty for any other text.
    static std::string markOf(const Expiring& expiring);
    static std::optional<Expiring> marked(const std::string& mark);
};
