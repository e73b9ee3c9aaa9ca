#pragma once

#include "service/BucketPlace.h"

#include <cstdint>
#include <string>
#include <vector>

// How the service is started.
struct ServiceOptions {
    std::string host = "127.0.0.1";
    int port = 8437; // 0 takes any free one
    std::string dataFolder = "kestrel-data";
    std::string certificate; // PEM, with its chain; TLS is spoken when it is given
    std::string key;
    std::string publicUrl; // without a slash at its end; empty for the address that is listened on
    std::string uploadPath = "/upload";
    std::int64_t maxBytes = 64 << 20;      // of one picture's file
    std::int64_t maxPixels = 100000000;    // of one picture
    std::int64_t expireDays = 0;           // 0 for never
    std::int64_t uploadSeconds = 600;      // for one upload
    std::int64_t stallSeconds = 20;        // for a request of which nothing comes
    std::int64_t threads = 32;             // requests at once
    std::int64_t requestsPerMinute = 1200; // of one address, beside its uploads; 0 for no limit
    std::int64_t uploadsPerMinute = 240;   // likewise
    std::int64_t passwordTries = 10;       // wrong ones within a minute, for one picture or from one address
    std::string trustedProxy;              // an address as ClientAddress writes it; empty for none
    std::string metricsToken;              // from the environment; empty for nobody but this machine
    BucketPlace bucket;                    // without an endpoint the data folder keeps the pictures

    bool isInBucket() const { return !bucket.endpoint.empty(); }
    bool isTls() const { return !certificate.empty(); }
    bool isLoopback() const;
};

struct ParsedOptions {
    ServiceOptions options;
    bool isHelp = false;
    std::string reason; // what is wrong with the arguments; empty for nothing
};

// The keys of the bucket and the token of the metrics come from the environment: arguments can be read by
// all.
ParsedOptions parsedOptions(const std::vector<std::string>& arguments);
std::string optionsUsage();
