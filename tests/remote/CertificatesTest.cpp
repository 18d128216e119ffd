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

// Whether the library, left to itself, takes the certificate for the purpose.
bool Serves(const KeyPair& pair, int purpose)
{
    const auto x509 = openssl::ParseCertificate(pair.certificate);
    return x509 && X509_check_purpose(x509->get(), purpose, 0) == 1;
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
    const auto server = Value(zentrel::MakeServerCertificate(authority, {"web01", "10.0.0.5"}, 30));
    const auto client = Value(zentrel::MakeClientCertificate(authority, "\xC3\x84nne", Role::Operator, 30));
    EXPECT_TRUE(Serves(server, X509_PURPOSE_SSL_SERVER) && !Serves(server, X509_PURPOSE_SSL_CLIENT));
    EXPECT_TRUE(Serves(client, X509_PURPOSE_SSL_CLIENT) && !Serves(client, X509_PURPOSE_SSL_SERVER));

    const auto longer =
        zentrel::ReadCertificate(Value(zentrel::MakeServerCertificate(authority, {"web01"}, 60)).certificate);
    const auto ca = zentrel::ReadCertificate(authority.certificate);
    ASSERT_TRUE(longer && ca);
    EXPECT_EQ(longer->ends, ca->ends) << "nothing outlives its authority";
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
    for (const auto& name : std::vector<std::string>{"", "a b", "a..b", "*", "10.0.0", "[::1]",
                                                     std::string("1.2.3.4\0b", 9), wide, "\xC3\xA4"})
        EXPECT_FALSE(zentrel::MakeServerCertificate(authority, {"good", name}, 30)) << name;
    for (const int days : {0, 36501}) EXPECT_FALSE(zentrel::MakeAuthority("A", days)) << days;
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
