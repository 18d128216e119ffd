#include "zentrel/remote/Certificates.h"

#include "fuzz/Targets.h"
#include "zentrel/Printable.h"

#include <openssl/evp.h>

namespace fuzz {

namespace {

void RequireGoodClient(std::string_view pem)
{
    const auto info = zentrel::ReadCertificate(pem);
    Require(!info || info->fingerprint.size() == 64, "a certificate has a fingerprint");
    const auto client = zentrel::ReadClient(pem);
    if (!client) return Require(!client.error().description.empty(), "a refusal has a reason");
    Require(info && info->subject == client->who, "both readers see the same name");
    Require(!client->who.empty() && client->who.size() <= 256, "a name is short");
    Require(zentrel::Printable(client->who) == client->who, "a name forges nothing");
    const auto role = std::string(zentrel::kRoleUri).append(zentrel::RoleName(client->role));
    for (const auto& name : info->names)
        Require(!name.starts_with(zentrel::kRoleUri) || name == role, "there is no other role");
}

}  // namespace

// Input: a certificate without its wrapping, or any text.
void ClientCertificate(Input bytes)
{
    RequireGoodClient(TextOf(bytes));
    std::string lines(4 * (bytes.size() / 3 + 1) + 1, '\0');
    const auto* const raw = reinterpret_cast<const unsigned char*>(bytes.data());
    auto* const out = reinterpret_cast<unsigned char*>(lines.data());
    lines.resize(static_cast<std::size_t>(EVP_EncodeBlock(out, raw, static_cast<int>(bytes.size()))));
    for (std::size_t i = 64; i < lines.size(); i += 65) lines.insert(i, 1, '\n');
    RequireGoodClient("-----BEGIN CERTIFICATE-----\n" + lines + "\n-----END CERTIFICATE-----\n");
}

}  // namespace fuzz
