#include "zentrel/remote/Certificates.h"

#include "zentrel/remote/OpenSsl.h"

#include <array>
#include <ctime>

#include <arpa/inet.h>

namespace zentrel {

namespace {

using namespace openssl;

tl::unexpected<SystemError> Refused(const char* why)
{
    return Fail(Code::InvalidData, kSource, why);
}

std::string_view BytesOf(const ASN1_STRING* text)
{
    return {reinterpret_cast<const char*>(ASN1_STRING_get0_data(text)),
            static_cast<std::size_t>(ASN1_STRING_length(text))};
}

// The common name in UTF-8; nothing when there is none, several, or its bytes have no meaning.
std::optional<std::string> CommonName(const X509_NAME* name)
{
    const int at = X509_NAME_get_index_by_NID(name, NID_commonName, -1);
    if (at < 0 || X509_NAME_get_index_by_NID(name, NID_commonName, at) >= 0) return {};
    unsigned char* text = nullptr;
    const int size = ASN1_STRING_to_UTF8(&text, X509_NAME_ENTRY_get_data(X509_NAME_get_entry(name, at)));
    if (size < 0) return {};
    std::string result(reinterpret_cast<const char*>(text), static_cast<std::size_t>(size));
    OPENSSL_free(text);
    return result;
}

// The alternative names; none when the certificate has no such field.
Result<Names> AlternativeNames(const X509* x509)
{
    int found = 0;
    Names names(static_cast<GENERAL_NAMES*>(X509_get_ext_d2i(x509, NID_subject_alt_name, &found, nullptr)));
    if (!names && found != -1) return Refused("The alternative names of the certificate cannot be read.");
    return names;
}

std::string AddressText(std::string_view bytes)
{
    std::array<char, INET6_ADDRSTRLEN> text{};
    const int family = bytes.size() == 4 ? AF_INET : AF_INET6;
    if (bytes.size() != 4 && bytes.size() != 16) return "?";
    return inet_ntop(family, bytes.data(), text.data(), text.size()) == nullptr ? "?" : text.data();
}

// Mail addresses and other kinds, which the administration does not use, are empty.
std::string NameText(const GENERAL_NAME* name)
{
    int type = 0;
    const void* const value = GENERAL_NAME_get0_value(name, &type);
    if (type == GEN_URI || type == GEN_DNS)
        return std::string(BytesOf(static_cast<const ASN1_STRING*>(value)));
    return type == GEN_IPADD ? AddressText(BytesOf(static_cast<const ASN1_STRING*>(value))) : std::string{};
}

std::vector<std::string> NameTexts(const Names& names)
{
    std::vector<std::string> texts;
    for (int i = 0; names && i < sk_GENERAL_NAME_num(names.get()); ++i)
        if (auto text = NameText(sk_GENERAL_NAME_value(names.get(), i)); !text.empty())
            texts.push_back(std::move(text));
    return texts;
}

Result<Role> RoleOf(const Names& names)
{
    std::optional<Role> role;
    for (const auto& text : NameTexts(names)) {
        if (!text.starts_with(kRoleUri)) continue;
        if (role) return Refused("The certificate names more than one role.");
        role = RoleFrom(std::string_view(text).substr(std::string_view(kRoleUri).size()));
        if (!role) return Refused("The certificate names a role that does not exist.");
    }
    return role.value_or(Role::Viewer);
}

CertificateInfo::Kind KindOf(X509* x509)
{
    if (X509_check_ca(x509) != 0) return CertificateInfo::Kind::Authority;
    if ((X509_get_extension_flags(x509) & EXFLAG_XKUSAGE) == 0) return CertificateInfo::Kind::Other;
    if (X509_check_purpose(x509, X509_PURPOSE_SSL_CLIENT, 0) == 1) return CertificateInfo::Kind::Client;
    if (X509_check_purpose(x509, X509_PURPOSE_SSL_SERVER, 0) == 1) return CertificateInfo::Kind::Server;
    return CertificateInfo::Kind::Other;
}

std::string TimeText(const ASN1_TIME* time)
{
    std::tm fields{};
    if (ASN1_TIME_to_tm(time, &fields) != 1) return "?";
    std::array<char, 32> text{};
    return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%SZ", &fields)};
}

std::string Fingerprint(const X509* x509)
{
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
    unsigned size = 0;
    if (X509_digest(x509, EVP_sha256(), digest.data(), &size) != 1) return {};
    std::string text;
    for (unsigned i = 0; i < size; ++i) {
        text += kDigits[digest.at(i) >> 4U];
        text += kDigits[digest.at(i) & 0xFU];
    }
    return text;
}

}  // namespace

Result<ClientIdentity> ReadClient(std::string_view pem)
{
    const QuietErrors quiet;
    const auto x509 = ParseCertificate(pem);
    if (!x509) return Fail(x509.error());
    if (X509_check_purpose(x509->get(), X509_PURPOSE_SSL_CLIENT, 0) != 1)
        return Refused("The certificate is not for clients.");
    auto who = CommonName(X509_get_subject_name(x509->get()));
    if (!who || !CheckPersonName(*who)) return Refused("The certificate does not tell whose it is.");
    const auto names = AlternativeNames(x509->get());
    if (!names) return Fail(names.error());
    const auto role = RoleOf(*names);
    if (!role) return Fail(role.error());
    return ClientIdentity{std::move(*who), *role};
}

Result<CertificateInfo> ReadCertificate(std::string_view pem)
{
    const QuietErrors quiet;
    const auto parsed = ParseCertificate(pem);
    if (!parsed) return Fail(parsed.error());
    X509* const x509 = parsed->get();
    const auto names = AlternativeNames(x509);
    if (!names) return Fail(names.error());
    const ASN1_TIME* const begins = X509_get0_notBefore(x509);
    const ASN1_TIME* const ends = X509_get0_notAfter(x509);
    return CertificateInfo{KindOf(x509),
                           CommonName(X509_get_subject_name(x509)).value_or(""),
                           CommonName(X509_get_issuer_name(x509)).value_or(""),
                           NameTexts(*names),
                           TimeText(begins),
                           TimeText(ends),
                           Fingerprint(x509),
                           X509_cmp_current_time(begins) < 0 && X509_cmp_current_time(ends) > 0};
}

}  // namespace zentrel
