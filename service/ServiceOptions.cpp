#include "service/ServiceOptions.h"

#include "service/ClientAddress.h"

#include <QUrl>

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <functional>

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

bool isHere(const std::string& host)
{
    return host == "localhost" || ClientAddress::isLoopback(host);
}

// Plain HTTP is for a bucket on this machine.
bool readEndpoint(const std::string& text, ServiceOptions& options)
{
    const QUrl url(QString::fromStdString(text), QUrl::StrictMode);
    const QString rest = url.adjusted(QUrl::RemovePath).toString(QUrl::RemoveScheme | QUrl::RemoveAuthority);
    const bool isPlain = url.isValid() && !url.host().isEmpty() && url.userInfo().isEmpty() &&
                         rest.isEmpty() && (url.path().isEmpty() || url.path() == u"/");
    options.bucket.endpoint = text.ends_with('/') ? text.substr(0, text.size() - 1) : text;
    return isPlain &&
           (url.scheme() == u"https" || (url.scheme() == u"http" && isHere(url.host().toStdString())));
}

auto nameInto(std::string BucketPlace::*member)
{
    return [member](const std::string& value, ServiceOptions& options) {
        options.bucket.*member = value;
        return !value.empty() && value.front() != '.' &&
               value.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789.-") == std::string::npos;
    };
}

bool readProxy(const std::string& text, ServiceOptions& options)
{
    options.trustedProxy = ClientAddress::normalized(text);
    return !options.trustedProxy.empty();
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

auto numberInto(std::int64_t ServiceOptions::*member, std::int64_t least, std::int64_t most)
{
    return [member, least, most](const std::string& value, ServiceOptions& options) {
        return readNumber(value, least, most, options.*member);
    };
}

const std::vector<Option>& allOptions()
{
    constexpr std::int64_t kMostBytes = std::int64_t(1) << 40, kMostPixels = std::int64_t(1) << 30;
    constexpr std::int64_t kMostSeconds = 86400, kMostRequests = 1000000;
    static const std::vector<Option> options{
        {"--listen", "HOST:PORT", "where to listen; 127.0.0.1:8437", readAddress},
        {"--data", "FOLDER", "where the pictures are; kestrel-data", textInto(&ServiceOptions::dataFolder)},
        {"--certificate", "FILE", "PEM certificate with its chain, for TLS",
            textInto(&ServiceOptions::certificate)},
        {"--key", "FILE", "PEM key of the certificate", textInto(&ServiceOptions::key)},
        {"--public-url", "URL", "what links begin with; the address listened on", readUrl},
        {"--upload-path", "PATH", "where uploads go; /upload", readPath},
        {"--max-bytes", "N", "largest file; 67108864", numberInto(&ServiceOptions::maxBytes, 1, kMostBytes)},
        {"--max-pixels", "N", "largest picture; 100000000",
            numberInto(&ServiceOptions::maxPixels, 1, kMostPixels)},
        {"--expire", "DAYS", "how long pictures stay; for ever",
            numberInto(&ServiceOptions::expireDays, 1, 36500)},
        {"--upload-seconds", "N", "longest upload; 600",
            numberInto(&ServiceOptions::uploadSeconds, 1, kMostSeconds)},
        {"--stall-seconds", "N", "longest wait for the next byte; 20",
            numberInto(&ServiceOptions::stallSeconds, 1, kMostSeconds)},
        {"--threads", "N", "requests at once; 32", numberInto(&ServiceOptions::threads, 1, 1024)},
        {"--requests-per-minute", "N", "of one address, 0 for no limit; 1200",
            numberInto(&ServiceOptions::requestsPerMinute, 0, kMostRequests)},
        {"--uploads-per-minute", "N", "of one address, 0 for no limit; 240",
            numberInto(&ServiceOptions::uploadsPerMinute, 0, kMostRequests)},
        {"--password-tries", "N", "wrong ones a minute, of a picture and an address; 10",
            numberInto(&ServiceOptions::passwordTries, 1, kMostRequests)},
        {"--trusted-proxy", "ADDRESS", "whose X-Forwarded-For is believed; nobody's", readProxy},
        {"--s3-endpoint", "URL", "keeps the pictures in a bucket of this service", readEndpoint},
        {"--s3-bucket", "NAME", "the bucket", nameInto(&BucketPlace::bucket)},
        {"--s3-region", "NAME", "its region; us-east-1", nameInto(&BucketPlace::region)},
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
    if (options.bucket.endpoint.empty() != options.bucket.bucket.empty())
        return "--s3-endpoint and --s3-bucket belong together";
    if (options.isInBucket() && (options.bucket.accessKey.empty() || options.bucket.secretKey.empty()))
        return "a bucket needs AWS_ACCESS_KEY_ID and AWS_SECRET_ACCESS_KEY in the environment";
    return {};
}

std::string fromEnvironment(const char* name)
{
    const char* value = std::getenv(name);
    return value ? value : "";
}

void readEnvironment(ServiceOptions& options)
{
    options.bucket.accessKey = fromEnvironment("AWS_ACCESS_KEY_ID");
    options.bucket.secretKey = fromEnvironment("AWS_SECRET_ACCESS_KEY");
    options.bucket.sessionToken = fromEnvironment("AWS_SESSION_TOKEN");
    options.metricsToken = fromEnvironment("KESTREL_METRICS_TOKEN");
}

}

bool ServiceOptions::isLoopback() const
{
    return isHere(host);
}

ParsedOptions parsedOptions(const std::vector<std::string>& arguments)
{
    ParsedOptions parsed;
    readEnvironment(parsed.options);
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
    constexpr size_t kMeaningColumn = 32;
    std::string usage = "usage: kestrel [options]\n";
    for (const Option& option : allOptions()) {
        std::string line = std::string("  ") + option.name + ' ' + option.value;
        line.resize(std::max(line.size() + 1, kMeaningColumn), ' ');
        usage += line + option.meaning + '\n';
    }
    return usage;
}
