#include "zentrel/remote/OpenSsl.h"

#include <openssl/pem.h>

namespace zentrel::openssl {

namespace {

constexpr std::size_t kMostPemBytes = 1U << 16U;

// The library's own one asks on the terminal.
int RefusePassphrase(char*, int, int, void*)
{
    return -1;
}

Bio Reader(std::string_view text)
{
    return Bio(BIO_new_mem_buf(text.data(), static_cast<int>(text.size())));
}

}  // namespace

tl::unexpected<SystemError> FailOpenSsl(std::uint32_t code, std::string_view what)
{
    const char* const reason = ERR_reason_error_string(ERR_peek_last_error());
    return Fail(code, kSource,
                std::string(what) + (reason == nullptr ? "." : std::string(": ") + reason + "."));
}

Result<Certificate> ParseCertificate(std::string_view pem)
{
    if (pem.size() > kMostPemBytes) return Fail(Code::InvalidData, kSource, "A certificate is too long.");
    const auto bio = Reader(pem);
    Certificate certificate(bio ? PEM_read_bio_X509(bio.get(), nullptr, RefusePassphrase, nullptr) : nullptr);
    if (!certificate) return FailOpenSsl(Code::InvalidData, "It is no certificate");
    return certificate;
}

Result<Key> ParseKey(std::string_view pem)
{
    if (pem.size() > kMostPemBytes) return Fail(Code::InvalidData, kSource, "A private key is too long.");
    const auto bio = Reader(pem);
    Key key(bio ? PEM_read_bio_PrivateKey(bio.get(), nullptr, RefusePassphrase, nullptr) : nullptr);
    if (!key) return FailOpenSsl(Code::InvalidData, "It is no private key without a passphrase");
    return key;
}

}  // namespace zentrel::openssl
