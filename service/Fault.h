#pragma once

#include <string>

// Why something could not be done; status 0 for nothing.
struct Fault {
    int status = 0;     // the HTTP status that the asker is answered with
    std::string reason; // in words; names no picture and no secret
    explicit operator bool() const { return status != 0; }
};
