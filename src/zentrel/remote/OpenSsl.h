#pragma once

#include "base/Result.h"

#include <openssl/bio.h>
#include <openssl/bn.h>
#include <openssl/err.h>
#include <openssl/evp.h>
#include <openssl/x509.h>
#include <openssl/x509v3.h>

#include <memory>
#include <string>
#include <string_view>

// What the files about certificates share; only they include OpenSSL.
namespace zentrel::openssl {

template <auto Release>
struct Releaser {
    template <class T>
    void operator()(T* object) const
    {
        Release(object);
    }
};

template <class T, auto Release>
using Owned = std::unique_ptr<T, Releaser<Release>>;

using Bio = Owned<BIO, BIO_free_all>;
using Certificate = Owned<X509, X509_free>;
using Key = Owned<EVP_PKEY, EVP_PKEY_free>;
using Number = Owned<BIGNUM, BN_free>;
using Names = Owned<GENERAL_NAMES, GENERAL_NAMES_free>;

// What goes wrong on the way stays out of the thread's list of errors, in which a TLS connection of the same
// thread would take it for its own.
class QuietErrors {
public:
    QuietErrors() { ERR_set_mark(); }
    ~QuietErrors() { ERR_pop_to_mark(); }
    QuietErrors(const QuietErrors&) = delete;
    QuietErrors& operator=(const QuietErrors&) = delete;
};

inline constexpr std::string_view kSource = "Certificates";

// Fails with the library's own reason for what went wrong last.
tl::unexpected<SystemError> FailOpenSsl(std::uint32_t code, std::string_view what);

// The first certificate of a text of at most 64 KiB. InvalidData when there is none.
Result<Certificate> ParseCertificate(std::string_view pem);
// The private key of such a text; a protected one is refused without a question.
Result<Key> ParseKey(std::string_view pem);

// The bytes of an IP address in the order of the net; none when the text is no address.
std::string AddressBytes(const std::string& text);

}  // namespace zentrel::openssl
