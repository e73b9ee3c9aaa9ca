#pragma once

#include "service/BucketClient.h"

// Pictures in a bucket: each one is the object "pictures/<name>", with what is kept beside its bytes in its
// metadata, so that one request stores all of it or nothing; its mark is the empty object "expiry/<mark>".
class BucketStorage : public PictureStorage {
public:
    explicit BucketStorage(BucketPlace place);

    Fault open() override { return check(); }
    Fault check() const override;
    Fault store(PictureDraft& draft, const PictureInfo& info) override;
    Fault find(const std::string& id, PictureInfo& info) const override;
    Fault read(
        const std::string& id, std::int64_t offset, std::int64_t length, const Take& take) const override;
    Fault remove(const std::string& id) override;
    Fault soonest(std::vector<Expiring>& expiring) const override;
    Fault forget(const Expiring& expiring) override;

private:
    const BucketClient m_client;
};
