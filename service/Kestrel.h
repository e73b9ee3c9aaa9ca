#pragma once

#include "service/PasswordGuard.h"
#include "service/PictureCheck.h"
#include "service/PictureStore.h"
#include "service/ServiceOptions.h"

#include <memory>
#include <string>

namespace httplib {
class ContentReader;
class Server;
struct Request;
struct Response;
}

// The image service: takes uploads, answers with their links, and shows, guards and deletes the pictures.
// Requests come on the server's own threads. docs/service.md has the protocol.
class Kestrel {
public:
    explicit Kestrel(ServiceOptions options);
    ~Kestrel();
    Kestrel(const Kestrel&) = delete;
    Kestrel& operator=(const Kestrel&) = delete;

    // Opens the store and takes the address; empty, or the reason in words.
    std::string open();
    // Where uploads go, known once it is open.
    std::string uploadUrl() const { return m_base + m_options.uploadPath; }
    // Serves until another thread calls stop(), which does nothing before isRunning().
    void run();
    bool isRunning() const;
    void stop();

private:
    using Request = httplib::Request;
    using Response = httplib::Response;

    std::string openServer();
    void addRoutes();
    void describe(Response& response) const;
    void upload(const Request& request, Response& response, const httplib::ContentReader& content);
    void store(PictureDraft& draft, PictureInfo info, const std::string& password, Response& response);
    void answerStored(const std::string& id, const std::string& title, const std::string& deleteToken,
        Response& response) const;
    void showPicture(const Request& request, Response& response);
    void unlock(const Request& request, Response& response);
    void sendPicture(const Request& request, Response& response);
    void askToDelete(const Request& request, Response& response) const;
    void deletePicture(const Request& request, Response& response) const;
    // The picture that a request names; empty, and answered, when there is none.
    std::optional<PictureInfo> named(const Request& request, Response& response) const;
    bool mayDelete(const Request& request, Response& response) const;
    bool isUnlocked(const Request& request, const PictureInfo& info) const;
    std::string unlockMark(const std::string& id, const PictureInfo& info) const;

    const ServiceOptions m_options;
    const std::string m_secret; // of this run; signs what remembers a right password
    std::string m_base;         // links begin with it
    PictureStore m_store;
    PictureCheck m_check;
    PasswordGuard m_guard;
    std::unique_ptr<httplib::Server> m_server;
};
