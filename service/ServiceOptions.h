#pragma once

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
    std::int64_t maxBytes = 64 << 20;   // of one picture's file
    std::int64_t maxPixels = 100000000; // of one picture

    bool isTls() const { return !certificate.empty(); }
    bool isLoopback() const;
};

struct ParsedOptions {
    ServiceOptions options;
    bool isHelp = false;
    std::string reason; // what is wrong with the arguments; empty for nothing
};

ParsedOptions parsedOptions(const std::vector<std::string>& arguments);
std::string optionsUsage();
