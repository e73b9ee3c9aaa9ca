#pragma once

#include "service/PictureStore.h"

#include <chrono>
#include <functional>
#include <string>
#include <vector>

namespace httplib {
class ContentReader;
struct MultipartFormData;
struct Request;
}

// One upload as it came: a form with the fields "title", "password" and "file".
struct UploadForm {
    std::unique_ptr<PictureDraft> draft; // the file's bytes; set when nothing is at fault
    std::string title;                   // one line of UTF-8
    std::string password;
};

// What is wrong with an upload; status 0 for nothing.
struct UploadFault {
    int status = 0;
    std::string reason;
    explicit operator bool() const { return status != 0; }
};

// Reads the form of one upload, its file straight into the store's draft. A form that is refused is read to
// its end all the same: a sender that still writes would not see the answer.
class UploadReader {
public:
    UploadReader(const PictureStore& store, std::int64_t maxBytes);

    UploadFault read(const httplib::Request& request, const httplib::ContentReader& content);
    UploadForm& form() { return m_form; }

    static constexpr std::int64_t kFormBytes = 65536; // of a form beside its file

private:
    bool beginField(const httplib::MultipartFormData& field);
    bool beginFile();
    bool takeBytes(const char* bytes, size_t count);
    void takeFile(const char* bytes, size_t count);
    void takeText(const char* bytes, size_t count);
    void refuse(int status, const std::string& reason);
    UploadFault verdict(bool isComplete);

    const PictureStore& m_store;
    const std::int64_t m_maxBytes;
    const std::chrono::steady_clock::time_point m_begin = std::chrono::steady_clock::now();
    UploadForm m_form;
    UploadFault m_fault;
    std::string* m_text = nullptr; // the text field that is being read
    bool m_isInFile = false;
    std::int64_t m_fileBytes = 0;
    std::int64_t m_allBytes = 0;
};
