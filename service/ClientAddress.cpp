#include "service/ClientAddress.h"

#include <httplib.h>

#include <arpa/inet.h>

#include <cstring>

namespace {

std::string written(int family, const void* address)
{
    char text[INET6_ADDRSTRLEN] = "";
    inet_ntop(family, address, text, sizeof text);
    return text;
}

std::string lastForwarded(const httplib::Request& request)
{
    const size_t count = request.get_header_value_count("X-Forwarded-For");
    const std::string list = count ? request.get_header_value("X-Forwarded-For", count - 1) : std::string();
    const size_t begin = list.find_first_not_of(" \t", list.rfind(',') + 1);
    return begin == std::string::npos ? std::string()
                                      : list.substr(begin, list.find_last_not_of(" \t") + 1 - begin);
}

// An IPv6 address without the half that its owner chooses at will.
std::string network(const std::string& address)
{
    in6_addr parts{};
    if (inet_pton(AF_INET6, address.c_str(), &parts) != 1)
        return address;
    std::memset(parts.s6_addr + 8, 0, 8);
    return written(AF_INET6, &parts) + "/64";
}

}

std::string ClientAddress::normalized(const std::string& text)
{
    in_addr four{};
    in6_addr six{};
    if (inet_pton(AF_INET, text.c_str(), &four) == 1)
        return written(AF_INET, &four);
    if (inet_pton(AF_INET6, text.c_str(), &six) != 1)
        return {};
    return IN6_IS_ADDR_V4MAPPED(&six) ? written(AF_INET, six.s6_addr + 12) : written(AF_INET6, &six);
}

bool ClientAddress::isLoopback(const std::string& address)
{
    const std::string plain = normalized(address);
    return plain == "::1" || plain.starts_with("127.");
}

std::string ClientAddress::asker(const httplib::Request& request, const std::string& trustedProxy)
{
    const std::string peer = normalized(request.remote_addr);
    const std::string forwarded = peer == trustedProxy ? normalized(lastForwarded(request)) : std::string();
    return network(forwarded.empty() ? peer : forwarded);
}

bool ClientAddress::isFromHere(const httplib::Request& request)
{
    return isLoopback(request.remote_addr) && !request.has_header("X-Forwarded-For") &&
           !request.has_header("Forwarded");
}
