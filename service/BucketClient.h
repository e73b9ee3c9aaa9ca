#pragma once

#include "service/BucketPlace.h"
#include "service/Fault.h"
#include "service/PictureStorage.h"

#include <map>
#include <string>
#include <vector>

struct BucketRequest {
    const char* method = "GET"; // or HEAD, PUT, DELETE
    std::string key = {};       // of an object, of unreserved characters and '/'; empty for the bucket itself
    std::string query = {};     // percent-encoded and sorted by name, as it is signed
    std::vector<std::string> headers = {};
    std::string file = {};          // what PUT sends; empty for nothing
    std::string range = {};         // of GET, such as "0-99"; empty for all
    PictureStorage::Take take = {}; // gets the bytes of a good answer; without it they are the answer's body
};

struct BucketAnswer {
    Fault fault; // 404 as it is, 503 when another try may help, 502 for all else
    std::map<std::string, std::string> headers; // names in lower case
    std::string body;                           // its first MiB
};

// Speaks to a bucket: requests signed with version 4, the bucket's name in the path, each on a connection
// that its thread keeps. Any thread.
class BucketClient {
public:
    explicit BucketClient(BucketPlace place);

    BucketAnswer send(const BucketRequest& request) const;

private:
    const BucketPlace m_place;
};
