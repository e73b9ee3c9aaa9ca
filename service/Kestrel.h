#pragma once

#include "service/ExpirySweep.h"
#include "service/Metrics.h"
#include "service/PictureHandler.h"
#include "service/PictureStorage.h"
#include "service/RateLimiter.h"
#include "service/ServiceOptions.h"
#include "service/UploadHandler.h"

#include <memory>
#include <string>

namespace httplib {
class ContentReader;
class Server;
}

// The image service: what it keeps pictures in, the address it listens on, and who is let through to which
// handler. Requests come on the server's own threads. docs/service.md has the protocol.
class Kestrel {
public:
    // Nothing is opened.
    explicit Kestrel(ServiceOptions options);
    ~Kestrel();
    Kestrel(const Kestrel&) = delete;
    Kestrel& operator=(const Kestrel&) = delete;

    // Opens the storage and takes the address; empty, or the reason in words.
    std::string open();
    // Where uploads go, known once it is open.
    std::string uploadUrl() const { return m_base + m_options.uploadPath; }
    // Serves until another thread calls stop(), which does nothing before isRunning().
    void run();
    bool isRunning() const;
    void stop();

    // The two halves of open(): for whoever has a server of his own.
    std::string openStorage();
    void addRoutes(httplib::Server& server);

private:
    using Request = httplib::Request;
    using Response = httplib::Response;
    using Content = httplib::ContentReader;

    std::string openServer();
    void setLimits(httplib::Server& server);
    void addPictureRoutes(httplib::Server& server);
    // Whether it goes on to a handler; else it has been answered.
    bool isLetThrough(const Request& request, Response& response);
    bool isWithinRate(const Request& request, Response& response);
    void answerHealth(Response& response);
    void answerMetrics(const Request& request, Response& response);
    void count(const Response& response);

    const ServiceOptions m_options;
    std::string m_base; // links begin with it
    Metrics m_metrics;
    const std::unique_ptr<PictureStorage> m_storage;
    RateLimiter m_limiter;
    PictureHandler m_pictures;
    std::unique_ptr<ExpirySweep> m_sweep; // both once the storage is open
    std::unique_ptr<UploadHandler> m_uploads;
    std::unique_ptr<httplib::Server> m_server;
};
