#pragma once

#include <string>

namespace httplib {
struct Request;
}

// Who asks.
namespace ClientAddress {

// An address in its one spelling, an IPv4 one that is written as IPv6 as IPv4; empty for any other text.
std::string normalized(const std::string& text);
bool isLoopback(const std::string& address);
// The name under which an asker's requests are counted: the address, of IPv6 its network of 64 bits. A
// request that comes from `trustedProxy`, an address or empty, is counted for the last address that its
// X-Forwarded-For names.
std::string asker(const httplib::Request& request, const std::string& trustedProxy);
// Whether it comes from this machine and no proxy says that it passes it on.
bool isFromHere(const httplib::Request& request);

}
