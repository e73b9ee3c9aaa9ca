#include "service/BucketClient.h"

#include <QCryptographicHash>
#include <QFile>
#include <QXmlStreamReader>

#include <curl/curl.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>

namespace {

constexpr long kConnectSeconds = 5;
constexpr long kStallSeconds = 15; // without a byte
constexpr long kWholeSeconds = 600;
constexpr size_t kLongestBody = 1 << 20;

using Headers = std::unique_ptr<curl_slist, decltype(&curl_slist_free_all)>;
using File = std::unique_ptr<FILE, decltype(&std::fclose)>;

// One request under way.
struct Exchange {
    CURL* handle;
    const BucketRequest& request;
    BucketAnswer answer;
    bool isGivenUp = false; // by who takes the bytes

    bool isGood() const
    {
        long status = 0;
        curl_easy_getinfo(handle, CURLINFO_RESPONSE_CODE, &status);
        return status >= 200 && status < 300;
    }
};

size_t takeHeader(char* bytes, size_t, size_t count, void* exchange)
{
    const std::string line(bytes, count);
    const size_t colon = line.find(':');
    if (colon == std::string::npos)
        return count;
    const QByteArray name = QByteArray::fromStdString(line.substr(0, colon)).toLower();
    const QByteArray value = QByteArray::fromStdString(line.substr(colon + 1)).trimmed();
    static_cast<Exchange*>(exchange)->answer.headers[name.toStdString()] = value.toStdString();
    return count;
}

size_t takeBody(char* bytes, size_t, size_t count, void* context)
{
    Exchange& exchange = *static_cast<Exchange*>(context);
    if (exchange.request.take && exchange.isGood()) {
        exchange.isGivenUp = !exchange.request.take(bytes, count);
        return exchange.isGivenUp ? 0 : count;
    }
    std::string& body = exchange.answer.body;
    body.append(bytes, std::min(count, kLongestBody - body.size()));
    return count;
}

// Kept by each thread, with its connection.
CURL* threadsHandle()
{
    thread_local const std::unique_ptr<CURL, decltype(&curl_easy_cleanup)> handle(
        curl_easy_init(), curl_easy_cleanup);
    if (handle)
        curl_easy_reset(handle.get());
    return handle.get();
}

std::string payloadHash(const std::string& path)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    QFile file(QString::fromStdString(path));
    if (!path.empty() && file.open(QIODevice::ReadOnly))
        hash.addData(&file);
    return hash.result().toHex().toStdString();
}

Headers headersOf(const BucketRequest& request, const BucketPlace& place)
{
    std::vector<std::string> lines = request.headers;
    lines.push_back("x-amz-content-sha256: " + payloadHash(request.file));
    if (!place.sessionToken.empty())
        lines.push_back("x-amz-security-token: " + place.sessionToken);
    curl_slist* list = nullptr;
    for (const std::string& line : lines)
        list = curl_slist_append(list, line.c_str());
    return {list, curl_slist_free_all};
}

void setPlace(CURL* handle, const BucketPlace& place, const BucketRequest& request)
{
    const std::string url = place.endpoint + '/' + place.bucket +
                            (request.key.empty() ? "" : '/' + request.key) +
                            (request.query.empty() ? "" : '?' + request.query);
    curl_easy_setopt(handle, CURLOPT_URL, url.c_str());
    curl_easy_setopt(handle, CURLOPT_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(handle, CURLOPT_AWS_SIGV4, ("aws:amz:" + place.region + ":s3").c_str());
    curl_easy_setopt(handle, CURLOPT_USERNAME, place.accessKey.c_str());
    curl_easy_setopt(handle, CURLOPT_PASSWORD, place.secretKey.c_str());
    if (const char* authorities = std::getenv("SSL_CERT_FILE"))
        curl_easy_setopt(handle, CURLOPT_CAINFO, authorities);
}

void setPatience(CURL* handle)
{
    curl_easy_setopt(handle, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(handle, CURLOPT_CONNECTTIMEOUT, kConnectSeconds);
    curl_easy_setopt(handle, CURLOPT_LOW_SPEED_LIMIT, 1L);
    curl_easy_setopt(handle, CURLOPT_LOW_SPEED_TIME, kStallSeconds);
    curl_easy_setopt(handle, CURLOPT_TIMEOUT, kWholeSeconds);
}

// The file that a PUT sends, open as long as the request lasts; null when it cannot be read.
File setMethod(CURL* handle, const BucketRequest& request)
{
    const std::string method = request.method;
    const std::string path = request.file.empty() ? "/dev/null" : request.file;
    File file(std::fopen(path.c_str(), "rbe"), std::fclose);
    if (method == "HEAD")
        curl_easy_setopt(handle, CURLOPT_NOBODY, 1L);
    else if (method == "DELETE")
        curl_easy_setopt(handle, CURLOPT_CUSTOMREQUEST, request.method);
    else if (method == "PUT" && file) {
        const qint64 size = request.file.empty() ? 0 : QFile(QString::fromStdString(request.file)).size();
        curl_easy_setopt(handle, CURLOPT_UPLOAD, 1L);
        curl_easy_setopt(handle, CURLOPT_READDATA, file.get());
        curl_easy_setopt(handle, CURLOPT_INFILESIZE_LARGE, curl_off_t(size));
    }
    if (!request.range.empty())
        curl_easy_setopt(handle, CURLOPT_RANGE, request.range.c_str());
    return file;
}

// The word that the bucket gives its error; letters only, because it goes into the log.
std::string errorCode(const std::string& body)
{
    QXmlStreamReader reader(QByteArray::fromStdString(body));
    while (!reader.atEnd() &&
           !(reader.readNext() == QXmlStreamReader::StartElement && reader.name() == u"Code")) { }
    const std::string code = reader.atEnd() ? std::string() : reader.readElementText().toStdString();
    const bool isWord =
        std::all_of(code.begin(), code.end(), [](unsigned char c) { return c < 128 && std::isalpha(c); });
    return isWord && !code.empty() ? ' ' + code : std::string();
}

Fault faultOf(const Exchange& exchange, CURLcode code)
{
    if (exchange.isGivenUp)
        return {500, "the picture was not read to its end"};
    if (code != CURLE_OK)
        return {503, std::string("the bucket cannot be reached: ") + curl_easy_strerror(code)};
    long status = 0;
    curl_easy_getinfo(exchange.handle, CURLINFO_RESPONSE_CODE, &status);
    if (exchange.isGood())
        return {};
    const int told = status == 404 ? 404 : status >= 500 || status == 429 ? 503 : 502;
    return {told, std::string("the bucket answered ") + exchange.request.method + " with " +
                      std::to_string(status) + errorCode(exchange.answer.body)};
}

}

BucketClient::BucketClient(BucketPlace place)
    : m_place(std::move(place))
{
    curl_global_init(CURL_GLOBAL_DEFAULT);
}

BucketAnswer BucketClient::send(const BucketRequest& request) const
{
    CURL* handle = threadsHandle();
    if (!handle)
        return {{503, "there is no memory for a request to the bucket"}, {}, {}};
    setPlace(handle, m_place, request);
    setPatience(handle);
    const Headers headers = headersOf(request, m_place);
    curl_easy_setopt(handle, CURLOPT_HTTPHEADER, headers.get());
    const File file = setMethod(handle, request);
    if (!file)
        return {{500, "the picture cannot be read"}, {}, {}};
    Exchange exchange{handle, request, {}};
    curl_easy_setopt(handle, CURLOPT_HEADERFUNCTION, takeHeader);
    curl_easy_setopt(handle, CURLOPT_HEADERDATA, &exchange);
    curl_easy_setopt(handle, CURLOPT_WRITEFUNCTION, takeBody);
    curl_easy_setopt(handle, CURLOPT_WRITEDATA, &exchange);
    exchange.answer.fault = faultOf(exchange, curl_easy_perform(handle));
    return exchange.answer;
}
