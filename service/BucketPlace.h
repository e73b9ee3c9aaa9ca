#pragma once

#include <string>

// A bucket of an S3-compatible service, and who may use it.
struct BucketPlace {
    std::string endpoint; // "https://host:port", without a slash at its end
    std::string bucket;
    std::string region = "us-east-1";
    std::string accessKey; // the three below come from the environment and reach no log
    std::string secretKey;
    std::string sessionToken; // empty for lasting keys
};
