#include "service/Secrets.h"

#include <QByteArray>
#include <QCryptographicHash>
#include <QList>
#include <QMessageAuthenticationCode>
#include <QRandomGenerator>

#include <openssl/crypto.h>
#include <openssl/evp.h>

#include <algorithm>
#include <array>
#include <mutex>

namespace {

constexpr int kSaltLength = 16; // bytes
constexpr int kHashLength = 32;
constexpr qsizetype kNameLength = 22;

QByteArray randomBytes(int count)
{
    QByteArray bytes(count, '\0');
    for (char& byte : bytes)
        byte = char(QRandomGenerator::system()->bounded(256));
    return bytes;
}

QByteArray view(std::string_view text)
{
    return QByteArray::fromRawData(text.data(), qsizetype(text.size()));
}

// scrypt with 16 MiB, some 50 ms on the machines of its day; one at a time, so that many at once need no more
// memory.
QByteArray slowHash(std::string_view password, const QByteArray& salt)
{
    static std::mutex oneAtATime;
    const std::lock_guard lock(oneAtATime);
    constexpr std::uint64_t kRounds = 1 << 14, kBlockSize = 8, kLanes = 1, kMemory = 32 << 20;
    QByteArray hash(kHashLength, '\0');
    const int done = EVP_PBE_scrypt(password.data(), password.size(),
        reinterpret_cast<const unsigned char*>(salt.constData()), size_t(salt.size()), kRounds, kBlockSize,
        kLanes, kMemory, reinterpret_cast<unsigned char*>(hash.data()), kHashLength);
    return done == 1 ? hash : QByteArray();
}

}

std::string Secrets::unguessableName()
{
    return randomBytes(16)
        .toBase64(QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals)
        .toStdString();
}

bool Secrets::isName(std::string_view text)
{
    const auto isLetter = [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '-' ||
               c == '_';
    };
    return qsizetype(text.size()) == kNameLength && std::all_of(text.begin(), text.end(), isLetter);
}

std::string Secrets::passwordHash(std::string_view password)
{
    const QByteArray salt = randomBytes(kSaltLength);
    const QByteArray hash = slowHash(password, salt);
    return hash.isEmpty() ? std::string() : (salt.toHex() + ':' + hash.toHex()).toStdString();
}

bool Secrets::isPassword(std::string_view password, std::string_view hash)
{
    const QList<QByteArray> parts = view(hash).split(':');
    if (parts.size() != 2)
        return false;
    const QByteArray expected = QByteArray::fromHex(parts[1]);
    const QByteArray found = slowHash(password, QByteArray::fromHex(parts[0]));
    return !found.isEmpty() && isEqual({found.constData(), size_t(found.size())},
                                   {expected.constData(), size_t(expected.size())});
}

std::string Secrets::tokenHash(std::string_view token)
{
    return QCryptographicHash::hash(view(token), QCryptographicHash::Sha256).toHex().toStdString();
}

std::string Secrets::signature(std::string_view key, std::string_view text)
{
    return QMessageAuthenticationCode::hash(view(text), view(key), QCryptographicHash::Sha256)
        .toHex()
        .toStdString();
}

bool Secrets::isEqual(std::string_view a, std::string_view b)
{
    return a.size() == b.size() && CRYPTO_memcmp(a.data(), b.data(), a.size()) == 0;
}
