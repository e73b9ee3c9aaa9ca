#pragma once

#include <string>
#include <string_view>

// Random names, and what is kept of passwords and tokens in their place. Any thread.
namespace Secrets {

// 128 random bits as 22 letters, digits, '-' and '_'.
std::string unguessableName();
// Whether a text has the form of such a name.
bool isName(std::string_view text);

// A salted, deliberately slow hash, "salt:hash" in hexadecimal digits; empty when memory is short.
std::string passwordHash(std::string_view password);
bool isPassword(std::string_view password, std::string_view hash);

// A fast hash, for tokens that nobody can guess, and a keyed one, which only the key's owner can make.
std::string tokenHash(std::string_view token);
std::string signature(std::string_view key, std::string_view text);

// In a time that does not tell where the texts differ.
bool isEqual(std::string_view a, std::string_view b);

}
