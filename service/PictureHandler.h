#pragma once

#include "service/PasswordGuard.h"
#include "service/PictureInfo.h"

#include <optional>

class Metrics;
class PictureStorage;
struct ServiceOptions;
namespace httplib {
struct Request;
struct Response;
}

// Shows, guards and deletes the pictures. The routes' first match is a picture's name, the second one a token
// for deleting. What it is given outlives it. Any thread.
class PictureHandler {
public:
    using Request = httplib::Request;
    using Response = httplib::Response;

    PictureHandler(const ServiceOptions& options, PictureStorage& storage, Metrics& metrics);

    // What links begin with.
    void setBase(const std::string& base) { m_base = base; }
    void showPicture(const Request& request, Response& response);
    // `form` is a POST's body.
    void unlock(const Request& request, Response& response, const std::string& form);
    void sendPicture(const Request& request, Response& response);
    void askToDelete(const Request& request, Response& response);
    void deletePicture(const Request& request, Response& response, const std::string& form);

private:
    // The picture that a request names; empty, and answered, when there is none.
    std::optional<PictureInfo> named(const Request& request, Response& response);
    bool mayDelete(const Request& request, Response& response);
    bool isUnlocked(const Request& request, const PictureInfo& info) const;
    std::string unlockMark(const std::string& id, const PictureInfo& info) const;
    void rememberUnlocked(const std::string& id, const PictureInfo& info, Response& response) const;

    const ServiceOptions& m_options;
    PictureStorage& m_storage;
    Metrics& m_metrics;
    std::string m_base;
    const std::string m_secret; // of this run; signs what remembers a right password
    PasswordGuard m_guard;
};
