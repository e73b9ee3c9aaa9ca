#include "service/Kestrel.h"

#include "service/Answers.h"
#include "service/BucketStorage.h"
#include "service/ClientAddress.h"
#include "service/FolderStorage.h"
#include "service/Log.h"
#include "service/Pages.h"
#include "service/Secrets.h"
#include "service/UploadReader.h"

#include <QJsonObject>

#include <httplib.h>

#include <algorithm>

#include <sys/socket.h>

namespace {

const httplib::Headers kSafeHeaders{
    {"Content-Security-Policy", "default-src 'none'; img-src 'self'; style-src 'self'; form-action 'self'; "
                                "base-uri 'none'; frame-ancestors 'none'"},
    {"X-Content-Type-Options", "nosniff"},
    {"Referrer-Policy", "no-referrer"},
    {"X-Robots-Tag", "noindex"},
    {"Cache-Control", "no-store"},
};

std::unique_ptr<PictureStorage> storageOf(const ServiceOptions& options)
{
    if (options.isInBucket())
        return std::make_unique<BucketStorage>(options.bucket);
    return std::make_unique<FolderStorage>(options.dataFolder);
}

// What reaches nobody's handler, or was not understood.
void answerError(const httplib::Request&, httplib::Response& response)
{
    if (response.body.empty())
        Answers::plain(response, response.status);
}

std::string addressOf(const ServiceOptions& options, int port)
{
    const bool isIPv6 = options.host.find(':') != std::string::npos;
    const std::string host = isIPv6 ? "[" + options.host + "]" : options.host;
    return (options.isTls() ? "https://" : "http://") + host + ":" + std::to_string(port);
}

// The port that is listened on from now on; -1 when the address cannot be had, or is another's.
int boundPort(httplib::Server& server, const ServiceOptions& options)
{
    int listening = -1;
    server.set_socket_options([&listening](int socket) {
        const int isOn = 1;
        ::setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &isOn, sizeof isOn);
        listening = socket;
    });
    const int port = options.port == 0                                 ? server.bind_to_any_port(options.host)
                     : server.bind_to_port(options.host, options.port) ? options.port
                                                                       : -1;
    if (port >= 0)
        ::listen(listening, SOMAXCONN); // the library lets five wait, and loses the sixth
    server.set_socket_options(httplib::default_socket_options);
    return port;
}

// The body of a small form; empty when it is of another kind, too long or cut short. All of it is read, for
// whoever still writes would not see the answer, and no more is kept than a form may hold.
std::string formOf(
    const httplib::Request& request, const httplib::ContentReader& content, std::chrono::seconds longest)
{
    constexpr size_t kFormBytes = 8192;
    const auto end = std::chrono::steady_clock::now() + longest;
    std::string body;
    const auto take = [&](const char* bytes, size_t count) {
        body.append(bytes, std::min(count, kFormBytes - body.size()));
        return std::chrono::steady_clock::now() < end;
    };
    const bool isForm = !request.is_multipart_form_data();
    const bool isComplete =
        isForm ? content(take) : content([](const httplib::MultipartFormData&) { return true; }, take);
    return isForm && isComplete && body.size() < kFormBytes ? body : std::string();
}

}

Kestrel::Kestrel(ServiceOptions options)
    : m_options(std::move(options))
    , m_storage(storageOf(m_options))
    , m_limiter(m_options.requestsPerMinute)
    , m_pictures(m_options, *m_storage, m_metrics)
{
}

Kestrel::~Kestrel() = default;

std::string Kestrel::open()
{
    const std::string reason = openStorage();
    return reason.empty() ? openServer() : reason;
}

std::string Kestrel::openStorage()
{
    if (const Fault fault = m_storage->open())
        return fault.reason;
    m_sweep = std::make_unique<ExpirySweep>(*m_storage, m_metrics);
    m_uploads = std::make_unique<UploadHandler>(m_options, *m_storage, *m_sweep, m_metrics);
    return m_uploads->open();
}

std::string Kestrel::openServer()
{
    if (m_options.isTls())
        m_server = std::make_unique<httplib::SSLServer>(m_options.certificate.c_str(), m_options.key.c_str());
    else
        m_server = std::make_unique<httplib::Server>();
    if (!m_server->is_valid())
        return "the certificate or its key cannot be used";
    const int port = boundPort(*m_server, m_options);
    if (port < 0)
        return "the address " + m_options.host + ":" + std::to_string(m_options.port) + " cannot be had";
    m_base = !m_options.publicUrl.empty() ? m_options.publicUrl : addressOf(m_options, port);
    m_uploads->setBase(m_base);
    m_pictures.setBase(m_base);
    addRoutes(*m_server);
    return {};
}

void Kestrel::setLimits(httplib::Server& server)
{
    // A connection carries one request: what is left of a refused one is never taken for the next.
    server.set_keep_alive_max_count(1);
    server.set_read_timeout(std::chrono::seconds(m_options.stallSeconds));
    server.set_payload_max_length(size_t(m_options.maxBytes + UploadReader::kFormBytes));
    server.new_task_queue = [threads = size_t(m_options.threads)] {
        return new httplib::ThreadPool(threads);
    };
    server.set_default_headers(kSafeHeaders);
    server.set_error_handler(httplib::Server::Handler(answerError));
    server.set_logger([this](const Request&, const Response& response) { count(response); });
    server.set_pre_routing_handler([this](const Request& request, Response& response) {
        return isLetThrough(request, response) ? httplib::Server::HandlerResponse::Unhandled
                                               : httplib::Server::HandlerResponse::Handled;
    });
}

void Kestrel::addRoutes(httplib::Server& server)
{
    setLimits(server);
    server.Get(
        m_options.uploadPath, [this](const Request&, Response& response) { m_uploads->describe(response); });
    server.Post(
        m_options.uploadPath, [this](const Request& request, Response& response, const Content& content) {
            m_uploads->upload(request, response, content);
        });
    server.Get("/health", [this](const Request&, Response& response) { answerHealth(response); });
    server.Get(
        "/metrics", [this](const Request& request, Response& response) { answerMetrics(request, response); });
    server.Get("/kestrel.css", [](const Request&, Response& response) {
        response.set_content(Pages::styleSheet(), "text/css; charset=utf-8");
    });
    addPictureRoutes(server);
    server.Post(".*", [this](const Request& request, Response& response, const Content& content) {
        formOf(request, content, std::chrono::seconds(m_options.uploadSeconds));
        Answers::plain(response, 404);
    });
}

void Kestrel::addPictureRoutes(httplib::Server& server)
{
    const auto get = [&](const char* path, auto handler) {
        server.Get(path, [this, handler](const Request& q, Response& a) { (m_pictures.*handler)(q, a); });
    };
    const auto post = [&](const char* path, auto handler) {
        server.Post(path, [this, handler](const Request& q, Response& a, const Content& content) {
            const std::string form = formOf(q, content, std::chrono::seconds(m_options.uploadSeconds));
            if (isWithinRate(q, a))
                (m_pictures.*handler)(q, a, form);
        });
    };
    get("/p/([\\w-]{22})", &PictureHandler::showPicture);
    post("/p/([\\w-]{22})", &PictureHandler::unlock);
    get("/p/([\\w-]{22})/raw", &PictureHandler::sendPicture);
    get("/p/([\\w-]{22})/delete/([\\w-]{22})", &PictureHandler::askToDelete);
    post("/p/([\\w-]{22})/delete/([\\w-]{22})", &PictureHandler::deletePicture);
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

bool Kestrel::isLetThrough(const Request& request, Response& response)
{
    if (request.method == "GET" || request.method == "HEAD")
        return isWithinRate(request, response);
    if (request.method == "POST")
        return true; // counted once its form is read
    Answers::plain(response, 405);
    return false;
}

bool Kestrel::isWithinRate(const Request& request, Response& response)
{
    if (m_limiter.take(ClientAddress::asker(request, m_options.trustedProxy), RateLimiter::Clock::now()))
        return true;
    m_metrics.add(Metrics::RateLimited);
    Answers::plain(response, 429);
    return false;
}

void Kestrel::answerHealth(Response& response)
{
    const Fault fault = m_storage->check();
    if (fault)
        logLine("not healthy: " + fault.reason);
    const QString status = fault ? QString::fromStdString(fault.reason) : QStringLiteral("ok");
    Answers::json(response, fault ? 503 : 200, {{QStringLiteral("status"), status}});
}

void Kestrel::answerMetrics(const Request& request, Response& response)
{
    const bool hasToken =
        !m_options.metricsToken.empty() &&
        Secrets::isEqual(request.get_header_value("Authorization"), "Bearer " + m_options.metricsToken);
    if (!hasToken && !ClientAddress::isFromHere(request))
        return Answers::plain(response, 403);
    response.set_content(m_metrics.text(), "text/plain; version=0.0.4; charset=utf-8");
}

void Kestrel::count(const Response& response)
{
    m_metrics.add(Metrics::Count(Metrics::Answered2xx + std::clamp(response.status / 100 - 2, 0, 3)));
    if (response.status == 502 || response.status == 503 || response.status == 507)
        m_metrics.add(Metrics::StorageFaults);
}
