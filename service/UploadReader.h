#pragma once

#include "service/Fault.h"
#include "service/PictureDraft.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>

struct ServiceOptions;
namespace httplib {
class ContentReader;
struct MultipartFormData;
struct Request;
}

// One upload as it came: a form with the fields "title", "password", "expire" and "file".
struct UploadForm {
    std::unique_ptr<PictureDraft> draft; // the file's bytes; set when nothing is at fault
    std::string title;                   // one line of UTF-8
    std::string password;
    std::int64_t expire = 0; // seconds from now; 0 when its sender says nothing
    std::int64_t bytes = 0;  // of the file
};

// Reads the form of one upload, its file straight into the store's draft. A form that is refused is read to
// its end all the same: a sender that still writes would not see the answer.
class UploadReader {
public:
    UploadReader(const IncomingFolder& incoming, const ServiceOptions& options);

    Fault read(const httplib::Request& request, const httplib::ContentReader& content);
    UploadForm& form() { return m_form; }
    // Whatever comes is refused for this reason, or for an earlier one.
    void refuse(int status, const std::string& reason);

    static constexpr std::int64_t kFormBytes = 65536; // of a form beside its file
    // Seconds. Longer than any storing takes, so that no picture's day comes before the picture.
    static constexpr std::int64_t kSoonestExpiry = 900;

private:
    bool beginField(const httplib::MultipartFormData& field);
    bool beginFile();
    bool takeBytes(const char* bytes, size_t count);
    void takeFile(const char* bytes, size_t count);
    void takeText(const char* bytes, size_t count);
    void readExpire();
    Fault verdict(bool isComplete);

    const IncomingFolder& m_incoming;
    const std::int64_t m_maxBytes;
    const std::chrono::seconds m_longest; // for whoever sends a byte now and then
    const std::chrono::seconds m_longestStall;
    const std::chrono::steady_clock::time_point m_begin = std::chrono::steady_clock::now();
    std::chrono::steady_clock::time_point m_last = m_begin; // when something came
    UploadForm m_form;
    Fault m_fault;
    std::string* m_text = nullptr; // the text field that is being read
    std::string m_expire;          // as it came
    bool m_isInFile = false;
    std::int64_t m_allBytes = 0;
};
