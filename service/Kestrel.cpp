#include "service/Kestrel.h"

#include "service/Pages.h"
#include "service/Secrets.h"
#include "service/UploadReader.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUrl>

#include <httplib.h>

#include <array>
#include <cstring>
#include <ctime>
#include <fstream>
#include <iostream>

namespace {

constexpr size_t kThreads = 16; // requests at once
constexpr const char* kHtml = "text/html; charset=utf-8";
constexpr const char* kJson = "application/json";
constexpr const char* kCookie = "kestrel";

const httplib::Headers kSafeHeaders{
    {"Content-Security-Policy", "default-src 'none'; img-src 'self'; style-src 'self'; form-action 'self'; "
                                "base-uri 'none'; frame-ancestors 'none'"},
    {"X-Content-Type-Options", "nosniff"},
    {"Referrer-Policy", "no-referrer"},
    {"X-Robots-Tag", "noindex"},
    {"Cache-Control", "no-store"},
};

// Names and titles of pictures stay out of the log: who has a link may see its picture.
void log(const std::string& line)
{
    std::cerr << line + '\n';
}

void answerPage(httplib::Response& response, int status, const std::string& page)
{
    response.status = status;
    response.set_content(page, kHtml);
}

void answerJson(httplib::Response& response, int status, const QJsonObject& object)
{
    response.status = status;
    response.set_content(QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString(), kJson);
}

void refuse(httplib::Response& response, const UploadFault& fault)
{
    log("an upload was refused with " + std::to_string(fault.status) + ": " + fault.reason);
    answerJson(response, fault.status, {{QStringLiteral("error"), QString::fromStdString(fault.reason)}});
}

void answerUnknown(httplib::Response& response)
{
    answerPage(
        response, 404, Pages::message("Nothing here", "The link is wrong, or the picture has been deleted."));
}

// What reaches nobody's handler, or was not understood.
void answerError(const httplib::Request&, httplib::Response& response)
{
    if (response.body.empty() && response.status == 404)
        answerUnknown(response);
    else if (response.body.empty())
        answerPage(response, response.status,
            Pages::message(
                "Not possible", "The service answers with " + std::to_string(response.status) + "."));
}

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

std::string pathOf(const std::string& id)
{
    return "/p/" + id;
}

// The values of our own cookie; a browser may send several.
std::vector<std::string> cookieValues(const httplib::Request& request)
{
    std::vector<std::string> values;
    for (const QString& pair :
        QString::fromStdString(request.get_header_value("Cookie")).split(QLatin1Char(';'))) {
        const QString trimmed = pair.trimmed();
        if (trimmed.startsWith(QLatin1String(kCookie) + QLatin1Char('=')))
            values.push_back(trimmed.mid(qsizetype(std::strlen(kCookie)) + 1).toStdString());
    }
    return values;
}

void sendFile(const std::string& path, const std::string& contentType, httplib::Response& response)
{
    auto file = std::make_shared<std::ifstream>(path, std::ios::binary | std::ios::ate);
    if (!*file)
        return answerUnknown(response);
    response.set_content_provider(
        size_t(file->tellg()), contentType, [file](size_t offset, size_t length, httplib::DataSink& sink) {
            std::array<char, 65536> bytes;
            file->seekg(std::streamoff(offset));
            file->read(bytes.data(), std::streamsize(std::min(length, bytes.size())));
            return file->gcount() > 0 && sink.write(bytes.data(), size_t(file->gcount()));
        });
}

}

Kestrel::Kestrel(ServiceOptions options)
    : m_options(std::move(options))
    , m_secret(Secrets::unguessableName())
    , m_check(m_options.maxPixels)
{
}

Kestrel::~Kestrel() = default;

std::string Kestrel::open()
{
    const std::string reason = m_store.open(m_options.dataFolder);
    return reason.empty() ? openServer() : reason;
}

std::string Kestrel::openServer()
{
    if (m_options.isTls())
        m_server = std::make_unique<httplib::SSLServer>(m_options.certificate.c_str(), m_options.key.c_str());
    else
        m_server = std::make_unique<httplib::Server>();
    if (!m_server->is_valid())
        return "the certificate or its key cannot be used";
    const int port = m_options.port == 0 ? m_server->bind_to_any_port(m_options.host)
                     : m_server->bind_to_port(m_options.host, m_options.port) ? m_options.port
                                                                              : -1;
    if (port < 0)
        return "the address " + m_options.host + ":" + std::to_string(m_options.port) + " cannot be had";
    const bool isIPv6 = m_options.host.find(':') != std::string::npos;
    const std::string host = isIPv6 ? "[" + m_options.host + "]" : m_options.host;
    m_base = !m_options.publicUrl.empty()
                 ? m_options.publicUrl
                 : (m_options.isTls() ? "https://" : "http://") + host + ":" + std::to_string(port);
    addRoutes();
    return {};
}

void Kestrel::addRoutes()
{
    // A connection carries one request: what is left of a refused one is never taken for the next.
    m_server->set_keep_alive_max_count(1);
    m_server->set_read_timeout(std::chrono::seconds(20));
    m_server->set_payload_max_length(size_t(m_options.maxBytes + UploadReader::kFormBytes));
    m_server->new_task_queue = [] { return new httplib::ThreadPool(kThreads); };
    m_server->set_default_headers(kSafeHeaders);
    m_server->set_error_handler(httplib::Server::Handler(answerError));
    m_server->Post(m_options.uploadPath,
        [this](const Request& request, Response& response, const httplib::ContentReader& content) {
            upload(request, response, content);
        });
    const auto get = [this](const char* path, auto handler) {
        m_server->Get(path, [this, handler](const Request& q, Response& a) { (this->*handler)(q, a); });
    };
    const auto post = [this](const char* path, auto handler) {
        m_server->Post(path, [this, handler](const Request& q, Response& a) { (this->*handler)(q, a); });
    };
    m_server->Get(m_options.uploadPath, [this](const Request&, Response& response) { describe(response); });
    m_server->Get("/kestrel.css", [](const Request&, Response& response) {
        response.set_content(Pages::styleSheet(), "text/css; charset=utf-8");
    });
    get("/p/([\\w-]{22})", &Kestrel::showPicture);
    post("/p/([\\w-]{22})", &Kestrel::unlock);
    get("/p/([\\w-]{22})/raw", &Kestrel::sendPicture);
    get("/p/([\\w-]{22})/delete/([\\w-]{22})", &Kestrel::askToDelete);
    post("/p/([\\w-]{22})/delete/([\\w-]{22})", &Kestrel::deletePicture);
}

void Kestrel::run()
{
    m_server->listen_after_bind();
}

bool Kestrel::isRunning() const
{
    return m_server->is_running();
}

void Kestrel::stop()
{
    m_server->stop();
}

void Kestrel::describe(Response& response) const
{
    answerJson(response, 200,
        {{QStringLiteral("service"), QStringLiteral("Kestrel")},
            {QStringLiteral("maxBytes"), qint64(m_options.maxBytes)},
            {QStringLiteral("maxPixels"), qint64(m_options.maxPixels)}});
}

void Kestrel::upload(const Request& request, Response& response, const httplib::ContentReader& content)
{
    UploadReader reader(m_store, m_options.maxBytes);
    if (const UploadFault fault = reader.read(request, content))
        return refuse(response, fault);
    const PictureCheck::Result found = m_check.check(reader.form().draft->path());
    if (found.verdict == PictureCheck::Verdict::NotAPicture)
        return refuse(response, {415, "the file is not a whole JPEG, PNG or GIF picture"});
    if (found.verdict == PictureCheck::Verdict::TooManyPixels)
        return refuse(response, {413, "the picture has too many pixels"});
    PictureInfo info;
    info.title = reader.form().title;
    info.contentType = found.contentType;
    info.width = found.width;
    info.height = found.height;
    info.uploaded = std::time(nullptr);
    store(*reader.form().draft, info, reader.form().password, response);
}

void Kestrel::store(PictureDraft& draft, PictureInfo info, const std::string& password, Response& response)
{
    const std::string deleteToken = Secrets::unguessableName();
    info.deleteTokenHash = Secrets::tokenHash(deleteToken);
    if (!password.empty()) {
        info.passwordHash = Secrets::passwordHash(password);
        if (info.passwordHash.empty())
            return refuse(response, {500, "there is no memory for the password"});
    }
    const std::string id = m_store.store(draft, info);
    if (id.empty())
        return refuse(response, {507, "there is no room for the picture"});
    log("stored a picture of " + std::to_string(info.width) + "x" + std::to_string(info.height) + " pixels");
    answerStored(id, info.title, deleteToken, response);
}

void Kestrel::answerStored(
    const std::string& id, const std::string& title, const std::string& deleteToken, Response& response) const
{
    const std::string link = m_base + pathOf(id);
    answerJson(response, 201,
        {{QStringLiteral("link"), QString::fromStdString(link)},
            {QStringLiteral("share"), shareLinks(link, title)},
            {QStringLiteral("delete"), QString::fromStdString(link + "/delete/" + deleteToken)}});
}

void Kestrel::showPicture(const Request& request, Response& response)
{
    const auto info = named(request, response);
    if (!info)
        return;
    const std::string path = pathOf(request.matches[1]);
    if (isUnlocked(request, *info))
        answerPage(response, 200, Pages::picture(*info, m_base, path));
    else
        answerPage(response, 200, Pages::passwordForm(path, {}));
}

void Kestrel::unlock(const Request& request, Response& response)
{
    const auto info = named(request, response);
    if (!info)
        return;
    const std::string id = request.matches[1];
    const auto now = PasswordGuard::Clock::now();
    if (!m_guard.mayTry(id, now))
        return answerPage(response, 429,
            Pages::passwordForm(pathOf(id), "Too many wrong passwords. Please try again in a minute."));
    if (!Secrets::isPassword(request.get_param_value("password"), info->passwordHash)) {
        m_guard.noteWrong(id, now);
        return answerPage(response, 403, Pages::passwordForm(pathOf(id), "This is not the password."));
    }
    response.set_header("Set-Cookie", std::string(kCookie) + "=" + unlockMark(id, *info) +
                                          "; Path=" + pathOf(id) + "; HttpOnly; SameSite=Lax" +
                                          (m_base.starts_with("https://") ? "; Secure" : ""));
    response.set_redirect(pathOf(id), 303);
}

void Kestrel::sendPicture(const Request& request, Response& response)
{
    const auto info = named(request, response);
    if (!info)
        return;
    if (!isUnlocked(request, *info))
        return answerPage(response, 403,
            Pages::message("Private picture", "Open the picture's page first and enter its password."));
    response.status = 200;
    sendFile(m_store.pictureOf(request.matches[1]), info->contentType, response);
}

void Kestrel::askToDelete(const Request& request, Response& response) const
{
    if (mayDelete(request, response))
        answerPage(response, 200, Pages::deleteForm(request.path));
}

void Kestrel::deletePicture(const Request& request, Response& response) const
{
    if (!mayDelete(request, response))
        return;
    if (m_store.remove(request.matches[1]))
        answerPage(
            response, 200, Pages::message("Deleted", "The picture is gone and its link no longer works."));
    else
        answerPage(response, 500, Pages::message("Not deleted", "The picture could not be removed."));
}

std::optional<PictureInfo> Kestrel::named(const Request& request, Response& response) const
{
    auto info = m_store.find(request.matches[1]);
    if (!info)
        answerUnknown(response);
    return info;
}

bool Kestrel::mayDelete(const Request& request, Response& response) const
{
    const auto info = named(request, response);
    if (!info)
        return false;
    const bool isSender =
        Secrets::isEqual(Secrets::tokenHash(request.matches[2].str()), info->deleteTokenHash);
    if (!isSender)
        answerUnknown(response);
    return isSender;
}

bool Kestrel::isUnlocked(const Request& request, const PictureInfo& info) const
{
    if (info.passwordHash.empty())
        return true;
    const std::string mark = unlockMark(request.matches[1], info);
    const auto values = cookieValues(request);
    return std::any_of(values.begin(), values.end(),
        [&mark](const std::string& value) { return Secrets::isEqual(value, mark); });
}

std::string Kestrel::unlockMark(const std::string& id, const PictureInfo& info) const
{
    return Secrets::signature(m_secret, id + info.passwordHash);
}
