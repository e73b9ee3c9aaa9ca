#include "service/UploadHandler.h"

#include "service/Answers.h"
#include "service/ClientAddress.h"
#include "service/ExpirySweep.h"
#include "service/Log.h"
#include "service/Metrics.h"
#include "service/PictureStorage.h"
#include "service/Secrets.h"
#include "service/ServiceOptions.h"
#include "service/UploadReader.h"

#include <QJsonObject>
#include <QUrl>

#include <httplib.h>

#include <ctime>

namespace {

struct ShareTarget {
    const char* name;
    const char* link; // with the picture's link and its title, both percent-encoded
};

constexpr ShareTarget kShareTargets[] = {
    {"facebook", "https://www.facebook.com/sharer/sharer.php?u={link}"},
    {"google", "https://mail.google.com/mail/?view=cm&fs=1&su={title}&body={link}"},
    {"twitter", "https://twitter.com/intent/tweet?url={link}&text={title}"},
    {"pinterest",
        "https://www.pinterest.com/pin/create/button/?url={link}&media={link}%2Fraw&description={title}"},
};

QString percent(const std::string& text)
{
    return QString::fromLatin1(QUrl::toPercentEncoding(QString::fromStdString(text)));
}

QJsonObject shareLinks(const std::string& link, const std::string& title)
{
    QJsonObject links;
    for (const ShareTarget& target : kShareTargets) {
        QString address = QLatin1String(target.link);
        address.replace(QLatin1String("{link}"), percent(link));
        address.replace(QLatin1String("{title}"), percent(title));
        links[QLatin1String(target.name)] = address;
    }
    return links;
}

}

UploadHandler::UploadHandler(
    const ServiceOptions& options, PictureStorage& storage, ExpirySweep& sweep, Metrics& metrics)
    : m_options(options)
    , m_storage(storage)
    , m_sweep(sweep)
    , m_metrics(metrics)
    , m_check(options.maxPixels)
    , m_limiter(options.uploadsPerMinute)
{
}

std::string UploadHandler::open()
{
    return m_incoming.open(std::filesystem::path(m_options.dataFolder) / "incoming");
}

void UploadHandler::describe(httplib::Response& response) const
{
    QJsonObject object{{QStringLiteral("service"), QStringLiteral("Kestrel")},
        {QStringLiteral("maxBytes"), qint64(m_options.maxBytes)},
        {QStringLiteral("maxPixels"), qint64(m_options.maxPixels)}};
    if (m_options.expireDays > 0)
        object[QStringLiteral("expireDays")] = qint64(m_options.expireDays);
    Answers::json(response, 200, object);
}

void UploadHandler::upload(
    const httplib::Request& request, httplib::Response& response, const httplib::ContentReader& content)
{
    const std::string asker = ClientAddress::asker(request, m_options.trustedProxy);
    UploadReader reader(m_incoming, m_options);
    if (!m_limiter.take(asker, RateLimiter::Clock::now())) {
        m_metrics.add(Metrics::RateLimited);
        reader.refuse(429, "too many uploads from one address");
    }
    Fault fault = reader.read(request, content);
    UploadForm& form = reader.form();
    PictureInfo info;
    std::string deleteToken;
    if (!fault)
        fault = checked(form, info);
    if (!fault)
        fault = store(form, info, deleteToken);
    m_metrics.add(fault ? Metrics::UploadsRefused : Metrics::UploadsStored);
    if (fault)
        return Answers::refuseUpload(response, fault);
    m_metrics.add(Metrics::UploadBytes, std::uint64_t(form.bytes));
    logLine(
        "stored a picture of " + std::to_string(info.width) + "x" + std::to_string(info.height) + " pixels");
    answerStored(form.draft->id(), info, deleteToken, response);
}

Fault UploadHandler::checked(const UploadForm& form, PictureInfo& info)
{
    const PictureCheck::Result found = m_check.check(form.draft->path());
    if (found.verdict == PictureCheck::Verdict::NotAPicture)
        return {415, "the file is not a whole JPEG, PNG or GIF picture"};
    if (found.verdict == PictureCheck::Verdict::TooManyPixels)
        return {413, "the picture has too many pixels"};
    info.title = form.title;
    info.contentType = found.contentType;
    info.width = found.width;
    info.height = found.height;
    return {};
}

Fault UploadHandler::store(UploadForm& form, PictureInfo& info, std::string& deleteToken)
{
    deleteToken = Secrets::unguessableName();
    info.deleteTokenHash = Secrets::tokenHash(deleteToken);
    if (!form.password.empty())
        info.passwordHash = Secrets::passwordHash(form.password);
    if (info.passwordHash.empty() != form.password.empty())
        return {500, "there is no memory for the password"};
    info.uploaded = std::time(nullptr);
    info.expires = expiryOf(form, info.uploaded);
    const Fault fault = m_storage.store(*form.draft, info);
    if (!fault && info.expires > 0)
        m_sweep.expect(info.expires);
    return fault;
}

// The sooner one of what the service and the sender want; 0 when neither wants any.
std::int64_t UploadHandler::expiryOf(const UploadForm& form, std::int64_t now) const
{
    constexpr std::int64_t kDay = 24 * 60 * 60;
    const std::int64_t longest = m_options.expireDays * kDay;
    if (longest == 0 && form.expire == 0)
        return 0;
    return now + (longest == 0 ? form.expire : form.expire == 0 ? longest : std::min(longest, form.expire));
}

void UploadHandler::answerStored(const std::string& id, const PictureInfo& info,
    const std::string& deleteToken, httplib::Response& response) const
{
    const std::string link = m_base + "/p/" + id;
    QJsonObject object{{QStringLiteral("link"), QString::fromStdString(link)},
        {QStringLiteral("share"), shareLinks(link, info.title)},
        {QStringLiteral("delete"), QString::fromStdString(link + "/delete/" + deleteToken)}};
    if (info.expires > 0)
        object[QStringLiteral("expires")] = qint64(info.expires);
    Answers::json(response, 201, object);
}
