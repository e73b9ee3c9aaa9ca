#include "tests/fakes/TestCertificate.h"

#include <openssl/pem.h>
#include <openssl/x509v3.h>

#include <cstdio>
#include <memory>

namespace {

using Key = std::unique_ptr<EVP_PKEY, decltype(&EVP_PKEY_free)>;
using Certificate = std::unique_ptr<X509, decltype(&X509_free)>;

constexpr long kHour = 3600; // seconds

void addExtension(X509* certificate, int id, const char* value)
{
    X509V3_CTX context;
    X509V3_set_ctx(&context, certificate, certificate, nullptr, nullptr, 0);
    X509_EXTENSION* extension = X509V3_EXT_conf_nid(nullptr, &context, id, value);
    X509_add_ext(certificate, extension, -1);
    X509_EXTENSION_free(extension);
}

Certificate selfSigned(EVP_PKEY* key)
{
    Certificate certificate(X509_new(), X509_free);
    X509_set_version(certificate.get(), X509_VERSION_3);
    ASN1_INTEGER_set(X509_get_serialNumber(certificate.get()), 1);
    X509_gmtime_adj(X509_getm_notBefore(certificate.get()), -kHour);
    X509_gmtime_adj(X509_getm_notAfter(certificate.get()), kHour);
    X509_set_pubkey(certificate.get(), key);
    X509_NAME* name = X509_get_subject_name(certificate.get());
    X509_NAME_add_entry_by_txt(
        name, "CN", MBSTRING_ASC, reinterpret_cast<const unsigned char*>("test"), -1, -1, 0);
    X509_set_issuer_name(certificate.get(), name);
    addExtension(certificate.get(), NID_subject_alt_name, "IP:127.0.0.1");
    addExtension(certificate.get(), NID_basic_constraints, "critical,CA:TRUE");
    X509_sign(certificate.get(), key, EVP_sha256());
    return certificate;
}

template <class Write>
bool writeFile(const QString& path, Write write)
{
    FILE* file = std::fopen(path.toLocal8Bit().constData(), "w");
    const bool isWritten = file && write(file) == 1;
    return file && std::fclose(file) == 0 && isWritten;
}

}

TestCertificate TestCertificate::madeIn(const QString& folder)
{
    const Key key(EVP_EC_gen("P-256"), EVP_PKEY_free);
    const Certificate certificate = selfSigned(key.get());
    const TestCertificate files{folder + QStringLiteral("/cert.pem"), folder + QStringLiteral("/key.pem")};
    const bool isMade = writeFile(files.certificate, [&](FILE* file) {
        return PEM_write_X509(file, certificate.get());
    }) && writeFile(files.key, [&](FILE* file) {
        return PEM_write_PrivateKey(file, key.get(), nullptr, nullptr, 0, nullptr, nullptr);
    });
    return isMade ? files : TestCertificate();
}
