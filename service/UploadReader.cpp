#include "service/UploadReader.h"

#include <QString>

#include <httplib.h>

namespace {

constexpr size_t kLongestText = 4096;              // bytes of the title and of the password
constexpr qsizetype kShownTitle = 300;             // characters
constexpr std::chrono::minutes kLongestUpload{10}; // for whoever sends a byte now and then

std::string oneLine(const std::string& text)
{
    return QString::fromStdString(text).simplified().left(kShownTitle).toStdString();
}

}

UploadReader::UploadReader(const PictureStore& store, std::int64_t maxBytes)
    : m_store(store)
    , m_maxBytes(maxBytes)
{
}

UploadFault UploadReader::read(const httplib::Request& request, const httplib::ContentReader& content)
{
    if (!request.is_multipart_form_data())
        return {400, "an upload is a multipart/form-data form"};
    const bool isComplete =
        content([this](const httplib::MultipartFormData& field) { return beginField(field); },
            [this](const char* bytes, size_t count) { return takeBytes(bytes, count); });
    if (request.get_header_value<uint64_t>("Content-Length") > uint64_t(m_maxBytes + kFormBytes))
        refuse(413, "the file is too large");
    const UploadFault fault = verdict(isComplete);
    if (fault)
        m_form.draft.reset();
    m_form.title = oneLine(m_form.title);
    return fault;
}

bool UploadReader::beginField(const httplib::MultipartFormData& field)
{
    m_isInFile = field.name == "file";
    m_text = field.name == "title" ? &m_form.title : field.name == "password" ? &m_form.password : nullptr;
    return !m_isInFile || beginFile();
}

bool UploadReader::beginFile()
{
    if (m_form.draft)
        refuse(400, "an upload holds one file");
    else if (!(m_form.draft = m_store.begin()))
        refuse(507, "there is no room for the picture");
    return true;
}

bool UploadReader::takeBytes(const char* bytes, size_t count)
{
    m_allBytes += std::int64_t(count);
    if (std::chrono::steady_clock::now() - m_begin > kLongestUpload)
        refuse(408, "the upload took too long");
    else if (m_isInFile)
        takeFile(bytes, count);
    else
        takeText(bytes, count);
    return m_fault.status != 408 && m_allBytes <= m_maxBytes + kFormBytes;
}

void UploadReader::takeFile(const char* bytes, size_t count)
{
    m_fileBytes += std::int64_t(count);
    if (m_fileBytes > m_maxBytes)
        refuse(413, "the file is too large");
    else if (!m_fault)
        m_form.draft->write(bytes, count);
}

void UploadReader::takeText(const char* bytes, size_t count)
{
    if (!m_text)
        return;
    if (m_text->size() + count > kLongestText)
        refuse(400, "the title or the password is too long");
    else
        m_text->append(bytes, count);
}

void UploadReader::refuse(int status, const std::string& reason)
{
    if (!m_fault)
        m_fault = {status, reason};
}

UploadFault UploadReader::verdict(bool isComplete)
{
    if (m_fault)
        return m_fault;
    if (!isComplete)
        return {400, "the upload is incomplete"};
    if (!m_form.draft)
        return {400, "the upload holds no file"};
    if (!m_form.draft->close())
        return {507, "there is no room for the picture"};
    return {};
}
