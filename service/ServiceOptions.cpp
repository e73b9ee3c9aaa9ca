#include "service/ServiceOptions.h"

#include <algorithm>
#include <charconv>
#include <functional>

#include <arpa/inet.h>

namespace {

// False when the text is not a whole number from 1 (or `least`) to `most`.
bool readNumber(const std::string& text, std::int64_t least, std::int64_t most, std::int64_t& number)
{
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || value < least || value > most)
        return false;
    number = value;
    return true;
}

bool readAddress(const std::string& text, ServiceOptions& options)
{
    const size_t colon = text.rfind(':');
    std::int64_t port = 0;
    if (colon == 0 || colon == std::string::npos || !readNumber(text.substr(colon + 1), 0, 65535, port))
        return false;
    options.host = text.substr(0, colon);
    if (options.host.front() == '[' && options.host.back() == ']')
        options.host = options.host.substr(1, options.host.size() - 2);
    options.port = int(port);
    return !options.host.empty();
}

bool readUrl(const std::string& text, ServiceOptions& options)
{
    options.publicUrl = text.ends_with('/') ? text.substr(0, text.size() - 1) : text;
    return text.starts_with("https://") || text.starts_with("http://");
}

// Letters, digits, '-' and '_' between slashes, and not where pictures are.
bool readPath(const std::string& text, ServiceOptions& options)
{
    options.uploadPath = text;
    const bool isPlain = text.find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                                "0123456789-_/") == std::string::npos;
    return isPlain && text.size() > 1 && text.starts_with('/') && !text.starts_with("/p/");
}

struct Option {
    const char* name;
    const char* value; // as the usage has it
    const char* meaning;
    std::function<bool(const std::string& value, ServiceOptions& options)> read;
};

auto textInto(std::string ServiceOptions::*member)
{
    return [member](const std::string& value, ServiceOptions& options) {
        options.*member = value;
        return !value.empty();
    };
}

auto numberInto(std::int64_t ServiceOptions::*member, std::int64_t most)
{
    return [member, most](const std::string& value, ServiceOptions& options) {
        return readNumber(value, 1, most, options.*member);
    };
}

const std::vector<Option>& allOptions()
{
    constexpr std::int64_t kMostBytes = std::int64_t(1) << 40, kMostPixels = std::int64_t(1) << 30;
    static const std::vector<Option> options{
        {"--listen", "HOST:PORT", "where to listen; 127.0.0.1:8437", readAddress},
        {"--data", "FOLDER", "where the pictures are; kestrel-data", textInto(&ServiceOptions::dataFolder)},
        {"--certificate", "FILE", "PEM certificate with its chain, for TLS",
            textInto(&ServiceOptions::certificate)},
        {"--key", "FILE", "PEM key of the certificate", textInto(&ServiceOptions::key)},
        {"--public-url", "URL", "what links begin with; the address listened on", readUrl},
        {"--upload-path", "PATH", "where uploads go; /upload", readPath},
        {"--max-bytes", "N", "largest file; 67108864", numberInto(&ServiceOptions::maxBytes, kMostBytes)},
        {"--max-pixels", "N", "largest picture; 100000000",
            numberInto(&ServiceOptions::maxPixels, kMostPixels)},
    };
    return options;
}

const Option* optionNamed(const std::string& name)
{
    for (const Option& option : allOptions()) {
        if (name == option.name)
            return &option;
    }
    return nullptr;
}

std::string contradiction(const ServiceOptions& options)
{
    if (options.certificate.empty() != options.key.empty())
        return "--certificate and --key belong together";
    if (!options.isTls() && !options.isLoopback())
        return "plain HTTP is for loopback only: give --certificate and --key";
    return {};
}

}

bool ServiceOptions::isLoopback() const
{
    in_addr address{};
    const bool isIPv4 = inet_pton(AF_INET, host.c_str(), &address) == 1;
    return host == "localhost" || host == "::1" || (isIPv4 && ntohl(address.s_addr) >> 24 == 127);
}

ParsedOptions parsedOptions(const std::vector<std::string>& arguments)
{
    ParsedOptions parsed;
    for (size_t i = 0; i < arguments.size(); i += 2) {
        if (arguments[i] == "--help") {
            parsed.isHelp = true;
            return parsed;
        }
        const Option* option = optionNamed(arguments[i]);
        if (!option)
            parsed.reason = "unknown option " + arguments[i];
        else if (i + 1 == arguments.size())
            parsed.reason = arguments[i] + " needs a value";
        else if (!option->read(arguments[i + 1], parsed.options))
            parsed.reason = arguments[i] + " cannot be " + arguments[i + 1];
        if (!parsed.reason.empty())
            return parsed;
    }
    parsed.reason = contradiction(parsed.options);
    return parsed;
}

std::string optionsUsage()
{
    constexpr size_t kMeaningColumn = 28;
    std::string usage = "usage: kestrel [options]\n";
    for (const Option& option : allOptions()) {
        std::string line = std::string("  ") + option.name + ' ' + option.value;
        line.resize(std::max(line.size() + 1, kMeaningColumn), ' ');
        usage += line + option.meaning + '\n';
    }
    return usage;
}
