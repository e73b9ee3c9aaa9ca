#include "service/Kestrel.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <httplib.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <iostream>

namespace fs = std::filesystem;

namespace {

// One connection, whose other side sends these bytes and goes.
class Connection : public httplib::Stream {
public:
    explicit Connection(std::string_view bytes)
        : m_bytes(bytes)
    {
    }
    const std::string& answer() const { return m_answer; }

    bool is_readable() const override { return true; }
    bool is_writable() const override { return true; }
    ssize_t read(char* bytes, size_t count) override
    {
        const size_t taken = m_bytes.copy(bytes, count);
        m_bytes.remove_prefix(taken);
        return ssize_t(taken);
    }
    ssize_t write(const char* bytes, size_t count) override
    {
        m_answer.append(bytes, count);
        return ssize_t(count);
    }
    void get_remote_ip_and_port(std::string& ip, int& port) const override
    {
        ip = "192.0.2.1";
        port = 1;
    }
    void get_local_ip_and_port(std::string&, int&) const override { }
    int socket() const override { return -1; }

private:
    std::string_view m_bytes;
    std::string m_answer;
};

class Server : public httplib::Server {
public:
    std::string answer(std::string_view bytes)
    {
        Connection connection(bytes);
        bool isClosed = false;
        process_request(connection, true, isClosed, nullptr);
        return connection.answer();
    }
};

// A service whose files lie in memory where there is such a folder.
class Service {
public:
    Service()
    {
        std::cerr.setstate(std::ios::failbit); // a line for each refused request
        if (!m_kestrel.openStorage().empty())
            std::abort();
        m_kestrel.addRoutes(m_server);
        for (int i = 0; i < 2; ++i)
            m_names.push_back(stored(i == 0 ? "" : "sesame"));
    }

    // "NAME0" and "NAME1" stand for the pictures that are there, one for all and one with a password.
    void ask(std::string request)
    {
        for (size_t i = 0; i < m_names.size(); ++i) {
            const std::string mark = "NAME" + std::to_string(i);
            for (size_t at = request.find(mark); at != std::string::npos; at = request.find(mark, at + 1))
                request.replace(at, mark.size(), m_names[i]);
        }
        check(m_server.answer(request));
        sweep();
    }

private:
    static std::string folder()
    {
        return (fs::is_directory("/dev/shm") ? "/dev/shm" : fs::temp_directory_path().string()) +
               "/kestrel-XXXXXX";
    }
    ServiceOptions options() const
    {
        ServiceOptions options;
        options.dataFolder = m_folder.path().toStdString();
        options.maxBytes = 20000;
        options.maxPixels = 10000;
        options.requestsPerMinute = options.uploadsPerMinute = 0;
        options.passwordTries = 3;
        return options;
    }
    std::string stored(const std::string& password)
    {
        const std::string gif(
            "GIF89a\1\0\1\0\200\0\0\377\0\0\0\0\0!\371\4\0\0\0\0\0,\0\0\0\0\1\0\1\0\0\2\2D\1\0;", 43);
        const std::string body =
            "--b\r\nContent-Disposition: form-data; name=\"password\"\r\n\r\n" + password +
            "\r\n--b\r\nContent-Disposition: form-data; name=\"file\"; filename=\"a\"\r\n\r\n" + gif +
            "\r\n--b--\r\n";
        const std::string answer = m_server.answer("POST /upload HTTP/1.1\r\nHost: x\r\nContent-Type: "
                                                   "multipart/form-data; boundary=b\r\nContent-Length: " +
                                                   std::to_string(body.size()) + "\r\n\r\n" + body);
        const size_t link = answer.find("/p/");
        if (link == std::string::npos)
            std::abort();
        return answer.substr(link + 3, 22);
    }
    // Every answer is one that is documented, and none shows what is behind a password.
    static void check(const std::string& answer)
    {
        constexpr const char* kKnown[] = {"", "HTTP/1.1 200 ", "HTTP/1.1 201 ", "HTTP/1.1 206 ",
            "HTTP/1.1 303 ", "HTTP/1.1 400 ", "HTTP/1.1 403 ", "HTTP/1.1 404 ", "HTTP/1.1 405 ",
            "HTTP/1.1 413 ", "HTTP/1.1 414 ", "HTTP/1.1 415 ", "HTTP/1.1 416 ", "HTTP/1.1 429 ",
            "HTTP/1.1 100 ", "HTTP/1.1 417 "};
        for (const char* known : kKnown) {
            if (answer.empty() || (*known && answer.starts_with(known)))
                return;
        }
        std::cerr.clear();
        std::cerr << answer.substr(0, 200) << '\n';
        std::abort();
    }
    // Nothing is left behind of what came in, and what was stored makes room.
    void sweep() const
    {
        const fs::path data = m_folder.path().toStdString();
        if (!fs::is_empty(data / "incoming"))
            std::abort();
        for (const auto& picture : fs::directory_iterator(data / "pictures")) {
            if (!fs::exists(picture.path() / "info.json"))
                std::abort();
            if (picture.path().filename() != m_names[0] && picture.path().filename() != m_names[1])
                fs::remove_all(picture.path());
        }
    }

    QTemporaryDir m_folder{QString::fromStdString(folder())};
    Kestrel m_kestrel{options()};
    Server m_server;
    std::vector<std::string> m_names;
};

}

// Any bytes come to the service as a request.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static int argc = 1;
    static char name[] = "fuzz_service";
    static char* argv[] = {name, nullptr};
    static const QCoreApplication application(argc, argv); // finds the readers of pictures
    static Service service;
    service.ask(std::string(reinterpret_cast<const char*>(data), size));
    return 0;
}
