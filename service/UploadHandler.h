#pragma once

#include "service/Fault.h"
#include "service/PictureCheck.h"
#include "service/PictureDraft.h"
#include "service/PictureInfo.h"
#include "service/RateLimiter.h"

class ExpirySweep;
class Metrics;
class PictureStorage;
class UploadReader;
struct ServiceOptions;
struct UploadForm;
namespace httplib {
class ContentReader;
struct Request;
struct Response;
}

// Takes uploads: reads the form, looks whether the file is a picture, stores it and answers with its links.
// What it is given outlives it. Any thread.
class UploadHandler {
public:
    UploadHandler(
        const ServiceOptions& options, PictureStorage& storage, ExpirySweep& sweep, Metrics& metrics);

    // Makes the folder of what comes in; empty, or the reason in words.
    std::string open();
    // What links begin with.
    void setBase(const std::string& base) { m_base = base; }
    // What uploads may be.
    void describe(httplib::Response& response) const;
    void upload(
        const httplib::Request& request, httplib::Response& response, const httplib::ContentReader& content);

private:
    Fault checked(const UploadForm& form, PictureInfo& info);
    Fault store(UploadForm& form, PictureInfo& info, std::string& deleteToken);
    std::int64_t expiryOf(const UploadForm& form, std::int64_t now) const;
    void answerStored(const std::string& id, const PictureInfo& info, const std::string& deleteToken,
        httplib::Response& response) const;

    const ServiceOptions& m_options;
    PictureStorage& m_storage;
    ExpirySweep& m_sweep;
    Metrics& m_metrics;
    std::string m_base;
    IncomingFolder m_incoming;
    PictureCheck m_check;
    RateLimiter m_limiter;
};
