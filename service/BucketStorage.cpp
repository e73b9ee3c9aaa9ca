#include "service/BucketStorage.h"

#include "service/PictureDraft.h"
#include "service/Secrets.h"

#include <QByteArray>
#include <QXmlStreamReader>

#include <algorithm>

namespace {

constexpr const char* kInfoHeader = "x-amz-meta-kestrel"; // JSON in base64; buckets allow two thousand bytes
const std::string kMarks = "expiry/";

std::string keyOf(const std::string& id)
{
    return "pictures/" + id;
}

Fault unknown()
{
    return {404, "there is no such picture"};
}

// What 404 means where no object is asked for.
Fault withoutBucket(const Fault& fault)
{
    return fault.status == 404 ? Fault{502, "there is no such bucket"} : fault;
}

}

BucketStorage::BucketStorage(BucketPlace place)
    : m_client(std::move(place))
{
}

Fault BucketStorage::check() const
{
    return withoutBucket(m_client.send({.method = "HEAD"}).fault);
}

Fault BucketStorage::store(PictureDraft& draft, const PictureInfo& info)
{
    if (!draft.close())
        return {507, "there is no room for the picture"};
    Fault fault;
    if (info.expires > 0)
        fault = m_client.send({.method = "PUT", .key = kMarks + markOf({info.expires, draft.id()})}).fault;
    if (fault)
        return withoutBucket(fault);
    const std::string json = written(info).toBase64().toStdString();
    fault = m_client
                .send({.method = "PUT",
                    .key = keyOf(draft.id()),
                    .headers = {"Content-Type: " + info.contentType, kInfoHeader + (": " + json)},
                    .file = draft.path()})
                .fault;
    if (fault.status == 503)
        remove(draft.id()); // nobody will know of one whose answer alone was lost
    return withoutBucket(fault);
}

Fault BucketStorage::find(const std::string& id, PictureInfo& info) const
{
    if (!Secrets::isName(id))
        return unknown();
    BucketAnswer answer = m_client.send({.method = "HEAD", .key = keyOf(id)});
    if (answer.fault)
        return answer.fault;
    const auto found =
        readInfo(QByteArray::fromBase64(QByteArray::fromStdString(answer.headers[kInfoHeader])));
    if (!found)
        return unknown();
    info = *found;
    info.bytes = QByteArray::fromStdString(answer.headers["content-length"]).toLongLong();
    return {};
}

Fault BucketStorage::read(
    const std::string& id, std::int64_t offset, std::int64_t length, const Take& take) const
{
    if (!Secrets::isName(id))
        return unknown();
    if (length <= 0)
        return {};
    const std::string range = std::to_string(offset) + '-' + std::to_string(offset + length - 1);
    return m_client.send({.key = keyOf(id), .range = range, .take = take}).fault;
}

Fault BucketStorage::remove(const std::string& id)
{
    if (!Secrets::isName(id))
        return unknown();
    return m_client.send({.method = "DELETE", .key = keyOf(id)}).fault;
}

Fault BucketStorage::soonest(std::vector<Expiring>& expiring) const
{
    expiring.clear();
    const BucketAnswer answer =
        m_client.send({.query = "list-type=2&max-keys=" + std::to_string(kSoonest) + "&prefix=expiry%2F"});
    QXmlStreamReader reader(QByteArray::fromStdString(answer.body));
    while (!answer.fault && !reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement || reader.name() != u"Key")
            continue;
        const std::string key = reader.readElementText().toStdString();
        if (const auto found = marked(key.substr(std::min(key.size(), kMarks.size()))))
            expiring.push_back(*found);
    }
    const bool isBroken = !answer.fault && reader.hasError();
    return isBroken ? Fault{502, "the bucket's list cannot be read"} : answer.fault;
}

Fault BucketStorage::forget(const Expiring& expiring)
{
    return m_client.send({.method = "DELETE", .key = kMarks + markOf(expiring)}).fault;
}
