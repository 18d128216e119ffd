#include "zentrel/remote/Certificates.h"

#include "zentrel/remote/OpenSsl.h"

#include <openssl/pem.h>

namespace zentrel {

namespace {

using namespace openssl;

constexpr long kSecondsEarlier = 3600;  // so that a clock that lags behind does not refuse a new certificate
constexpr int kSerialBits = 159;        // as many as fit into the 20 bytes that a serial number may have

tl::unexpected<SystemError> FailParameter(std::string description)
{
    return Fail(Code::InvalidParameter, kSource, std::move(description));
}

tl::unexpected<SystemError> FailMaking()
{
    return FailOpenSsl(Code::OutOfMemory, "Cannot make a certificate");
}

struct Issuer {
    Certificate certificate;
    Key key;
};

Result<Issuer> LoadAuthority(const KeyPair& authority)
{
    auto certificate = ParseCertificate(authority.certificate);
    if (!certificate) return Fail(certificate.error());
    auto key = ParseKey(authority.key);
    if (!key) return Fail(key.error());
    const auto refused = [](const char* why) { return Fail(Code::InvalidData, kSource, why); };
    X509* const x509 = certificate->get();
    if (X509_check_ca(x509) != 1) return refused("The certificate is not that of an authority.");
    if (X509_check_private_key(x509, key->get()) != 1)
        return refused("The authority's certificate and its key do not belong together.");
    if (X509_cmp_current_time(X509_get0_notAfter(x509)) <= 0) return refused("The authority has expired.");
    return Issuer{std::move(*certificate), std::move(*key)};
}

struct Extension {
    int nid;
    const char* value;
};

// What goes into one certificate.
struct Plan {
    std::string_view commonName;
    int days = 0;
    std::vector<Extension> extensions;
    GENERAL_NAMES* names = nullptr;  // none: no alternative names
    const Issuer* issuer = nullptr;  // none: it signs itself
};

bool SetSerial(X509* x509)
{
    const Number serial(BN_new());
    return serial && BN_rand(serial.get(), kSerialBits, BN_RAND_TOP_ANY, BN_RAND_BOTTOM_ANY) == 1 &&
           BN_to_ASN1_INTEGER(serial.get(), X509_get_serialNumber(x509)) != nullptr;
}

bool SetTimes(X509* x509, const Plan& plan)
{
    if (X509_gmtime_adj(X509_getm_notBefore(x509), -kSecondsEarlier) == nullptr) return false;
    if (X509_time_adj_ex(X509_getm_notAfter(x509), plan.days, 0, nullptr) == nullptr) return false;
    if (plan.issuer == nullptr) return true;
    const ASN1_TIME* const end = X509_get0_notAfter(plan.issuer->certificate.get());
    return ASN1_TIME_compare(X509_get0_notAfter(x509), end) <= 0 || X509_set1_notAfter(x509, end) == 1;
}

bool SetSubject(X509* x509, std::string_view commonName)
{
    const auto* const text = reinterpret_cast<const unsigned char*>(commonName.data());
    return X509_NAME_add_entry_by_NID(X509_get_subject_name(x509), NID_commonName, MBSTRING_UTF8, text,
                                      static_cast<int>(commonName.size()), -1, 0) == 1;
}

bool AddExtensions(X509* x509, const Plan& plan)
{
    X509V3_CTX context;
    X509V3_set_ctx_nodb(&context);
    X509* const issuer = plan.issuer == nullptr ? x509 : plan.issuer->certificate.get();
    X509V3_set_ctx(&context, issuer, x509, nullptr, nullptr, 0);
    for (const auto& [nid, value] : plan.extensions) {
        const Owned<X509_EXTENSION, X509_EXTENSION_free> made(
            X509V3_EXT_conf_nid(nullptr, &context, nid, value));
        if (!made || X509_add_ext(x509, made.get(), -1) != 1) return false;
    }
    return plan.names == nullptr ||
           X509_add1_ext_i2d(x509, NID_subject_alt_name, plan.names, 0, X509V3_ADD_DEFAULT) == 1;
}

std::string Contents(BIO* bio)
{
    char* data = nullptr;
    const auto size = BIO_get_mem_data(bio, &data);
    return {data, static_cast<std::size_t>(size)};
}

Result<KeyPair> ToPem(X509* x509, EVP_PKEY* key)
{
    const Bio certificate(BIO_new(BIO_s_mem()));
    const Bio secret(BIO_new(BIO_s_mem()));
    if (!certificate || !secret || PEM_write_bio_X509(certificate.get(), x509) != 1 ||
        PEM_write_bio_PrivateKey(secret.get(), key, nullptr, nullptr, 0, nullptr, nullptr) != 1)
        return FailMaking();
    return KeyPair{Contents(certificate.get()), Contents(secret.get())};
}

Result<KeyPair> Make(const Plan& plan)
{
    const Key key(EVP_EC_gen("P-256"));
    const Certificate x509(X509_new());
    if (!key || !x509) return FailMaking();
    const X509* const issuer = plan.issuer == nullptr ? x509.get() : plan.issuer->certificate.get();
    EVP_PKEY* const signer = plan.issuer == nullptr ? key.get() : plan.issuer->key.get();
    const bool isMade = X509_set_version(x509.get(), X509_VERSION_3) == 1 && SetSerial(x509.get()) &&
                        SetTimes(x509.get(), plan) && SetSubject(x509.get(), plan.commonName) &&
                        X509_set_issuer_name(x509.get(), X509_get_subject_name(issuer)) == 1 &&
                        X509_set_pubkey(x509.get(), key.get()) == 1 && AddExtensions(x509.get(), plan) &&
                        X509_sign(x509.get(), signer, EVP_sha256()) > 0;
    if (!isMade) return FailMaking();
    return ToPem(x509.get(), key.get());
}

Done CheckDays(int days)
{
    if (days >= 1 && days <= kMostCertificateDays) return {};
    return FailParameter("A certificate is valid for 1 to " + std::to_string(kMostCertificateDays) +
                         " days.");
}

bool AddName(GENERAL_NAMES* names, int type, std::string_view value)
{
    Owned<GENERAL_NAME, GENERAL_NAME_free> name(GENERAL_NAME_new());
    Owned<ASN1_STRING, ASN1_STRING_free> text(
        ASN1_STRING_type_new(type == GEN_IPADD ? V_ASN1_OCTET_STRING : V_ASN1_IA5STRING));
    if (!name || !text || ASN1_STRING_set(text.get(), value.data(), static_cast<int>(value.size())) != 1)
        return false;
    GENERAL_NAME_set0_value(name.get(), type, text.release());
    if (sk_GENERAL_NAME_push(names, name.get()) == 0) return false;
    static_cast<void>(name.release());  // the list's now
    return true;
}

bool AddServerName(GENERAL_NAMES* names, const std::string& name)
{
    const auto address = AddressBytes(name);
    return address.empty() ? AddName(names, GEN_DNS, name) : AddName(names, GEN_IPADD, address);
}

Result<KeyPair> MakeLeaf(const KeyPair& authority, std::string_view commonName, const char* use,
                         GENERAL_NAMES* names, int days)
{
    const auto issuer = LoadAuthority(authority);
    if (!issuer) return Fail(issuer.error());
    return Make({commonName,
                 days,
                 {{NID_basic_constraints, "critical,CA:FALSE"},
                  {NID_key_usage, "critical,digitalSignature"},
                  {NID_ext_key_usage, use},
                  {NID_subject_key_identifier, "hash"},
                  {NID_authority_key_identifier, "keyid"}},
                 names,
                 &*issuer});
}

}  // namespace

Result<KeyPair> MakeAuthority(std::string_view name, int days)
{
    const QuietErrors quiet;
    if (auto checked = CheckPersonName(name); !checked) return Fail(checked.error());
    if (auto checked = CheckDays(days); !checked) return Fail(checked.error());
    return Make({name,
                 days,
                 {{NID_basic_constraints, "critical,CA:TRUE,pathlen:0"},
                  {NID_key_usage, "critical,keyCertSign,cRLSign"},
                  {NID_subject_key_identifier, "hash"}}});
}

Result<KeyPair> MakeServerCertificate(const KeyPair& authority, const std::vector<std::string>& names,
                                      int days)
{
    const QuietErrors quiet;
    if (auto checked = CheckDays(days); !checked) return Fail(checked.error());
    if (names.empty()) return FailParameter("A server needs at least one name.");
    const Names alternatives(GENERAL_NAMES_new());
    if (!alternatives) return FailMaking();
    for (const auto& name : names) {
        if (auto checked = CheckServerName(name); !checked) return Fail(checked.error());
        if (!AddServerName(alternatives.get(), name)) return FailMaking();
    }
    // Clients compare the alternative names only; the common name is for people, and shorter.
    return MakeLeaf(authority, std::string_view(names.front()).substr(0, 64), "serverAuth",
                    alternatives.get(), days);
}

Result<KeyPair> MakeClientCertificate(const KeyPair& authority, std::string_view who, Role role, int days)
{
    const QuietErrors quiet;
    if (auto checked = CheckPersonName(who); !checked) return Fail(checked.error());
    if (auto checked = CheckDays(days); !checked) return Fail(checked.error());
    const Names alternatives(GENERAL_NAMES_new());
    const auto uri = std::string(kRoleUri).append(RoleName(role));
    if (!alternatives || !AddName(alternatives.get(), GEN_URI, uri)) return FailMaking();
    return MakeLeaf(authority, who, "clientAuth", alternatives.get(), days);
}

}  // namespace zentrel
