#include "zentrel/remote/Certificates.h"

#include "zentrel/remote/OpenSsl.h"

#include <gtest/gtest.h>
#include <openssl/pem.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

using zentrel::KeyPair;
using zentrel::Role;
namespace openssl = zentrel::openssl;

KeyPair Value(const Result<KeyPair>& made)
{
    EXPECT_TRUE(made) << made.error().description;
    return made.value_or(KeyPair{});
}

// Whether the library, left to itself, takes the certificate for the purpose: 0, or its reason.
int Verify(const KeyPair& authority, const KeyPair& leaf, int purpose)
{
    const auto root = openssl::ParseCertificate(authority.certificate);
    const auto x509 = openssl::ParseCertificate(leaf.certificate);
    const openssl::Owned<X509_STORE, X509_STORE_free> store(X509_STORE_new());
    const openssl::Owned<X509_STORE_CTX, X509_STORE_CTX_free> context(X509_STORE_CTX_new());
    X509_STORE_add_cert(store.get(), root->get());
    X509_STORE_CTX_init(context.get(), store.get(), x509->get(), nullptr);
    X509_STORE_CTX_set_purpose(context.get(), purpose);
    X509_VERIFY_PARAM_set_flags(X509_STORE_CTX_get0_param(context.get()), X509_V_FLAG_X509_STRICT);
    return X509_verify_cert(context.get()) == 1 ? X509_V_OK : X509_STORE_CTX_get_error(context.get());
}

std::string Written(const openssl::Bio& bio)
{
    char* text = nullptr;
    const auto size = BIO_get_mem_data(bio.get(), &text);
    return {text, static_cast<std::size_t>(size)};
}

std::string Seed(const std::string& name)
{
    std::ifstream stream(std::filesystem::path(FUZZ_CORPUS) / "client_certificate" / name, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
    EXPECT_FALSE(bytes.empty()) << name;
    const openssl::Bio bio(BIO_new(BIO_s_mem()));
    PEM_write_bio(bio.get(), "CERTIFICATE", "", reinterpret_cast<const unsigned char*>(bytes.data()),
                  static_cast<long>(bytes.size()));
    return Written(bio);
}

}  // namespace

TEST(Certificates, EachServesItsPurposeAndNoOther)
{
    const auto authority = Value(zentrel::MakeAuthority("Our authority", 30));
    const auto server = Value(
        zentrel::MakeServerCertificate(authority, {"web01", "web01.example.com", "10.0.0.5", "::1"}, 30));
    const auto client = Value(zentrel::MakeClientCertificate(authority, "\xC3\x84nne", Role::Operator, 30));
    EXPECT_EQ(Verify(authority, server, X509_PURPOSE_SSL_SERVER), X509_V_OK);
    EXPECT_EQ(Verify(authority, client, X509_PURPOSE_SSL_CLIENT), X509_V_OK);
    EXPECT_EQ(Verify(authority, server, X509_PURPOSE_SSL_CLIENT), X509_V_ERR_INVALID_PURPOSE);
    EXPECT_EQ(Verify(authority, client, X509_PURPOSE_SSL_SERVER), X509_V_ERR_INVALID_PURPOSE);
    const auto other = Value(zentrel::MakeAuthority("Our authority", 30));
    EXPECT_NE(Verify(other, client, X509_PURPOSE_SSL_CLIENT), X509_V_OK);

    const auto x509 = openssl::ParseCertificate(server.certificate);
    for (const char* const host : {"web01", "WEB01.example.com"})
        EXPECT_EQ(X509_check_host(x509->get(), host, 0, 0, nullptr), 1) << host;
    for (const char* const address : {"10.0.0.5", "::1"})
        EXPECT_EQ(X509_check_ip_asc(x509->get(), address, 0), 1) << address;
    EXPECT_EQ(X509_check_host(x509->get(), "web02", 0, 0, nullptr), 0);
    EXPECT_NE(server.certificate,
              Value(zentrel::MakeServerCertificate(authority, {"web01"}, 30)).certificate);
}

TEST(Certificates, TheirDescriptionIsForPeople)
{
    using Kind = zentrel::CertificateInfo::Kind;
    const auto authority = Value(zentrel::MakeAuthority("Our authority", 10));
    const auto ca = zentrel::ReadCertificate(authority.certificate);
    const auto server = zentrel::ReadCertificate(
        Value(zentrel::MakeServerCertificate(authority, {"web01", "10.0.0.5", "::1"}, 30)).certificate);
    ASSERT_TRUE(ca && server);
    EXPECT_EQ(ca->kind, Kind::Authority);
    EXPECT_EQ(server->kind, Kind::Server);
    EXPECT_EQ(server->subject, "web01");
    EXPECT_EQ(server->issuer, "Our authority");
    EXPECT_EQ(server->names, (std::vector<std::string>{"web01", "10.0.0.5", "::1"}));
    EXPECT_EQ(server->ends, ca->ends) << "nothing outlives its authority";
    EXPECT_LT(server->begins, server->ends);
    EXPECT_TRUE(server->isValidNow);
    EXPECT_EQ(server->fingerprint.size(), 64U);
    const auto bare = zentrel::ReadCertificate(Seed("bare"));
    ASSERT_TRUE(bare) << bare.error().description;
    EXPECT_EQ(bare->kind, Kind::Client);
    EXPECT_EQ(bare->begins, "2020-01-01T00:00:00Z");
    EXPECT_EQ(bare->ends, "2120-01-01T00:00:00Z");
}

TEST(Certificates, WhatCannotBeMadeIsRefusedWithAReason)
{
    const auto authority = Value(zentrel::MakeAuthority("A", 30));
    const auto leaf = Value(zentrel::MakeClientCertificate(authority, "a", Role::Admin, 30));
    const std::string wide(65, 'x');
    for (const auto& name : std::vector<std::string>{"", wide, "a\nb", " a", "a ", "\xFF", "\xE2\x80\xAE"}) {
        const auto made = zentrel::MakeClientCertificate(authority, name, Role::Viewer, 30);
        ASSERT_FALSE(made) << name;
        EXPECT_EQ(made.error().code, Code::InvalidParameter);
        EXPECT_FALSE(zentrel::MakeAuthority(name, 30)) << name;
    }
    for (const auto& name : std::vector<std::string>{
             "", "a b", "-a", "a..b", "a.", "*", "10.0.0", "[::1]", "a/b", std::string("a\0b", 3),
             std::string("1.2.3.4\0b", 9), wide, "\xC3\xA4", "10.0.0.5:80"})
        EXPECT_FALSE(zentrel::MakeServerCertificate(authority, {"good", name}, 30)) << name;
    for (const int days : {-1, 0, 36501}) EXPECT_FALSE(zentrel::MakeAuthority("A", days)) << days;
    EXPECT_TRUE(zentrel::MakeAuthority("A", 36500));
    EXPECT_FALSE(zentrel::MakeServerCertificate(authority, {}, 30));
    for (const auto& bad : {KeyPair{}, leaf, KeyPair{authority.certificate, leaf.key}}) {
        const auto made = zentrel::MakeServerCertificate(bad, {"a"}, 30);
        ASSERT_FALSE(made);
        EXPECT_EQ(made.error().code, Code::InvalidData) << made.error().description;
    }
}

TEST(Certificates, AHostileCertificateNamesNobody)
{
    for (const char* const seed :
         {"two_roles", "no_such_role", "no_name", "two_names", "zero_in_name", "forged_line", "not_utf8",
          "long_name", "server", "broken_names", "cut", "no_certificate"}) {
        const auto client = zentrel::ReadClient(Seed(seed));
        ASSERT_FALSE(client) << seed << " is " << client->who;
        EXPECT_EQ(client.error().code, Code::InvalidData) << seed;
    }
    const auto authority = Value(zentrel::MakeAuthority("A", 30));
    for (const auto& text : {std::string(1 << 20, '-'), authority.certificate, authority.key})
        EXPECT_FALSE(zentrel::ReadClient(text)) << text.substr(0, 100);
    const auto bare = zentrel::ReadClient(Seed("bare"));
    const auto admin = zentrel::ReadClient(Seed("admin"));
    const auto wide = zentrel::ReadClient(Seed("wide"));
    ASSERT_TRUE(bare && admin && wide);
    EXPECT_EQ(bare->role, Role::Viewer);
    EXPECT_EQ(admin->role, Role::Admin);
    EXPECT_EQ(wide->who + "/" + std::string(zentrel::RoleName(wide->role)), "\xC3\x84nne/operator");
    EXPECT_EQ(ERR_peek_error(), 0U) << "the next connection of this thread would fail";
}

TEST(Certificates, AProtectedKeyIsRefusedWithoutAQuestion)
{
    const auto authority = Value(zentrel::MakeAuthority("A", 30));
    const auto key = openssl::ParseKey(authority.key);
    ASSERT_TRUE(key);
    const openssl::Bio bio(BIO_new(BIO_s_mem()));
    ASSERT_EQ(
        PEM_write_bio_PKCS8PrivateKey(bio.get(), key->get(), EVP_aes_128_cbc(), "x", 1, nullptr, nullptr), 1);
    EXPECT_FALSE(zentrel::MakeServerCertificate({authority.certificate, Written(bio)}, {"a"}, 30));
}
