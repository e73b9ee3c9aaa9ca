#include "service/PictureStorage.h"

#include "service/Secrets.h"

#include <charconv>

namespace {

constexpr size_t kDigits = 12;

}

std::string PictureStorage::markOf(const Expiring& expiring)
{
    std::string digits = std::to_string(expiring.when);
    digits.insert(0, kDigits - std::min(kDigits, digits.size()), '0');
    return digits + '.' + expiring.id;
}

std::optional<Expiring> PictureStorage::marked(const std::string& mark)
{
    Expiring expiring;
    const char* end = mark.data() + std::min(kDigits, mark.size());
    const auto [stop, error] = std::from_chars(mark.data(), end, expiring.when);
    if (error != std::errc() || stop != end || mark.size() <= kDigits || mark[kDigits] != '.')
        return {};
    expiring.id = mark.substr(kDigits + 1);
    return Secrets::isName(expiring.id) ? std::optional(expiring) : std::nullopt;
}
