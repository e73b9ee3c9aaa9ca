#pragma once

#include "service/BucketPlace.h"

#include <atomic>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

namespace httplib {
class Server;
struct Request;
struct Response;
}

// A bucket on this machine that checks each request's signature for itself and can be told to fail.
class FakeBucket {
public:
    FakeBucket();
    ~FakeBucket();

    // How to reach it, with the right keys.
    BucketPlace place() const { return m_place; }
    // Every later request is answered so; 0 for as it should be.
    void failWith(int status) { m_status = status; }
    void stop();
    // How many objects have a key that begins so.
    size_t count(const std::string& prefix = {}) const;

private:
    struct Object {
        std::string type;
        std::string meta;
        std::string bytes;
    };
    bool isSigned(const httplib::Request& request) const;
    bool isRefused(const httplib::Request& request, httplib::Response& response) const;
    void list(const httplib::Request& request, httplib::Response& response) const;
    void get(const httplib::Request& request, httplib::Response& response) const;
    void put(const httplib::Request& request, httplib::Response& response);
    void remove(const httplib::Request& request, httplib::Response& response);

    BucketPlace m_place;
    std::atomic<int> m_status = 0;
    mutable std::mutex m_mutex;
    std::map<std::string, Object> m_objects; // by key, guarded
    std::unique_ptr<httplib::Server> m_server;
    std::thread m_thread;
};
