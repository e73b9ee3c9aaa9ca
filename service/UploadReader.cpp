#include "service/UploadReader.h"

#include "service/ServiceOptions.h"

#include <QString>

#include <httplib.h>

#include <charconv>

namespace {

constexpr size_t kLongestText = 4096;  // bytes of a text field
constexpr qsizetype kShownTitle = 300; // characters

constexpr std::int64_t kLatest = std::int64_t(100) * 366 * 24 * 60 * 60; // seconds; a hundred years

std::string oneLine(const std::string& text)
{
    QString line = QString::fromStdString(text).simplified();
    line.removeIf([](QChar c) { return c.category() == QChar::Other_Control; });
    return line.left(kShownTitle).toStdString();
}

}

UploadReader::UploadReader(const IncomingFolder& incoming, const ServiceOptions& options)
    : m_incoming(incoming)
    , m_maxBytes(options.maxBytes)
    , m_longest(options.uploadSeconds)
    , m_longestStall(options.stallSeconds)
{
}

Fault UploadReader::read(const httplib::Request& request, const httplib::ContentReader& content)
{
    if (!request.is_multipart_form_data())
        return {400, "an upload is a multipart/form-data form"};
    const bool isComplete =
        content([this](const httplib::MultipartFormData& field) { return beginField(field); },
            [this](const char* bytes, size_t count) { return takeBytes(bytes, count); });
    if (request.get_header_value<uint64_t>("Content-Length") > uint64_t(m_maxBytes + kFormBytes))
        refuse(413, "the file is too large");
    readExpire();
    const Fault fault = verdict(isComplete);
    if (fault)
        m_form.draft.reset();
    m_form.title = oneLine(m_form.title);
    return fault;
}

bool UploadReader::beginField(const httplib::MultipartFormData& field)
{
    m_isInFile = field.name == "file";
    m_text = field.name == "title"      ? &m_form.title
             : field.name == "password" ? &m_form.password
             : field.name == "expire"   ? &m_expire
                                        : nullptr;
    return !m_isInFile || beginFile();
}

bool UploadReader::beginFile()
{
    if (m_form.draft)
        refuse(400, "an upload holds one file");
    else if (!(m_form.draft = m_incoming.begin()))
        refuse(507, "there is no room for the picture");
    return true;
}

bool UploadReader::takeBytes(const char* bytes, size_t count)
{
    m_allBytes += std::int64_t(count);
    m_last = std::chrono::steady_clock::now();
    if (m_last - m_begin > m_longest)
        refuse(408, "the upload took too long");
    else if (m_isInFile)
        takeFile(bytes, count);
    else
        takeText(bytes, count);
    return m_fault.status != 408 && m_allBytes <= m_maxBytes + kFormBytes;
}

void UploadReader::takeFile(const char* bytes, size_t count)
{
    m_form.bytes += std::int64_t(count);
    if (m_form.bytes > m_maxBytes)
        refuse(413, "the file is too large");
    else if (!m_fault)
        m_form.draft->write(bytes, count);
}

void UploadReader::takeText(const char* bytes, size_t count)
{
    if (!m_text)
        return;
    if (m_text->size() + count > kLongestText)
        refuse(400, "a field is too long");
    else
        m_text->append(bytes, count);
}

void UploadReader::refuse(int status, const std::string& reason)
{
    if (!m_fault)
        m_fault = {status, reason};
}

void UploadReader::readExpire()
{
    const char* end = m_expire.data() + m_expire.size();
    const auto [stop, error] = std::from_chars(m_expire.data(), end, m_form.expire);
    const bool isGood =
        error == std::errc() && stop == end && m_form.expire >= kSoonestExpiry && m_form.expire <= kLatest;
    if (!m_expire.empty() && !isGood)
        refuse(400, "expire is a whole number of seconds, " + std::to_string(kSoonestExpiry) + " or more");
}

Fault UploadReader::verdict(bool isComplete)
{
    if (m_fault)
        return m_fault;
    if (!isComplete && std::chrono::steady_clock::now() - m_last >= m_longestStall)
        return {408, "the upload took too long"};
    if (!isComplete)
        return {400, "the upload is incomplete"};
    if (!m_form.draft)
        return {400, "the upload holds no file"};
    if (!m_form.draft->close())
        return {507, "there is no room for the picture"};
    return {};
}
