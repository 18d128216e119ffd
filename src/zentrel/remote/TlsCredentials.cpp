#include "zentrel/remote/TlsCredentials.h"

#include "zentrel/remote/OpenSsl.h"

#include <grpc/grpc_security.h>
#include <openssl/conf.h>
#include <openssl/ssl.h>

namespace zentrel {

namespace {

constexpr std::string_view kSource = "Tls";

using Config = openssl::Owned<CONF, NCONF_free>;
using Context = openssl::Owned<SSL_CTX, SSL_CTX_free>;

bool SpeaksOnlyTls13()
{
    const Context context(SSL_CTX_new(TLS_method()));
    constexpr auto kOlder = SSL_OP_NO_TLSv1 | SSL_OP_NO_TLSv1_1 | SSL_OP_NO_TLSv1_2;
    return context != nullptr && (SSL_CTX_get_options(context.get()) & kOlder) == kOlder;
}

grpc_ssl_certificate_config_reload_status TakeConfig(void* material,
                                                     grpc_ssl_server_certificate_config** config)
{
    const auto tls = static_cast<TlsMaterial*>(material)->TakeNews();
    if (!tls) return GRPC_SSL_CERTIFICATE_CONFIG_RELOAD_UNCHANGED;
    const grpc_ssl_pem_key_cert_pair pair{tls->key.c_str(), tls->certificate.c_str()};
    *config = grpc_ssl_server_certificate_config_create(tls->clientAuthority.c_str(), &pair, 1);
    return *config == nullptr ? GRPC_SSL_CERTIFICATE_CONFIG_RELOAD_FAIL
                              : GRPC_SSL_CERTIFICATE_CONFIG_RELOAD_NEW;
}

// gRPC's own credentials for servers cannot have their certificates replaced, those of its core can.
class TlsCredentials : public grpc::ServerCredentials {
public:
    explicit TlsCredentials(std::shared_ptr<TlsMaterial> material) : m_material(std::move(material))
    {
        m_credentials = grpc_ssl_server_credentials_create_with_options(
            grpc_ssl_server_credentials_create_options_using_config_fetcher(
                GRPC_SSL_REQUEST_AND_REQUIRE_CLIENT_CERTIFICATE_AND_VERIFY, TakeConfig, m_material.get()));
    }
    ~TlsCredentials() override { grpc_server_credentials_release(m_credentials); }

    void SetAuthMetadataProcessor(const std::shared_ptr<grpc::AuthMetadataProcessor>&) override {}

private:
    int AddPortToServer(const std::string& address, grpc_server* server) override
    {
        return grpc_server_add_http2_port(server, address.c_str(), m_credentials);
    }

    std::shared_ptr<TlsMaterial> m_material;  // outlives the credentials
    grpc_server_credentials* m_credentials = nullptr;
};

}  // namespace

Done CheckTls(const AdminTls& tls, TlsSide side)
{
    const openssl::QuietErrors quiet;
    const auto certificate = openssl::ParseCertificate(tls.certificate);
    if (!certificate) return Fail(Code::InvalidData, kSource, "The file of the certificate holds none.");
    const bool isServer = side == TlsSide::Server;
    const int purpose = isServer ? X509_PURPOSE_SSL_SERVER : X509_PURPOSE_SSL_CLIENT;
    if (X509_check_purpose(certificate->get(), purpose, 0) != 1)
        return Fail(Code::InvalidData, kSource,
                    isServer ? "The certificate is not for servers." : "The certificate is not for clients.");
    const auto key = openssl::ParseKey(tls.key);
    if (!key)
        return Fail(Code::InvalidData, kSource, "The file of the key holds none, or one with a password.");
    if (X509_check_private_key(certificate->get(), key->get()) != 1)
        return Fail(Code::InvalidData, kSource, "The key is not the certificate's.");
    if (!openssl::ParseCertificate(tls.clientAuthority))
        return Fail(Code::InvalidData, kSource, "The file of the authority holds no certificate.");
    return {};
}

Done AllowOnlyTls13()
{
    constexpr std::string_view kPolicy = "zentrel = policy\n"
                                         "[policy]\nssl_conf = programs\n"
                                         "[programs]\nsystem_default = rules\n"
                                         "[rules]\nProtocol = -ALL, TLSv1.3\n";
    OPENSSL_init_ssl(OPENSSL_INIT_LOAD_CONFIG, nullptr);  // the machine's own comes first
    if (SpeaksOnlyTls13()) return {};
    const openssl::Bio text(BIO_new_mem_buf(kPolicy.data(), static_cast<int>(kPolicy.size())));
    const Config config(NCONF_new(nullptr));
    long badLine = 0;
    if (text == nullptr || config == nullptr || NCONF_load_bio(config.get(), text.get(), &badLine) <= 0 ||
        CONF_modules_load(config.get(), "zentrel", 0) <= 0 || !SpeaksOnlyTls13())
        return openssl::FailOpenSsl(Code::NotSupported, "Cannot restrict TLS to version 1.3");
    return {};
}

void TlsMaterial::Replace(AdminTls tls)
{
    const std::lock_guard guard(m_mutex);
    m_tls = std::move(tls);
    m_isNew = true;
}

std::optional<AdminTls> TlsMaterial::TakeNews()
{
    const std::lock_guard guard(m_mutex);
    if (!std::exchange(m_isNew, false)) return std::nullopt;
    return m_tls;
}

std::shared_ptr<grpc::ServerCredentials> MakeTlsCredentials(std::shared_ptr<TlsMaterial> material)
{
    return std::make_shared<TlsCredentials>(std::move(material));
}

}  // namespace zentrel
