#pragma once

#include "base/Result.h"
#include "zentrel/Role.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The certificates of the administration: a small authority, and what it signs for servers and clients.
// X.509 version 3, keys on the curve P-256, signed with SHA-256, valid from an hour ago. Texts are PEM; a
// protected key is not read, and nobody is ever asked for a passphrase.
// Names of people and authorities have 1 to 64 characters, none of them a control character; days go from 1
// to 36500. InvalidParameter when they do not.
namespace zentrel {

struct KeyPair {
    std::string certificate, key;
};

inline constexpr int kMostCertificateDays = 36500;

Done CheckPersonName(std::string_view name);
Done CheckServerName(const std::string& name);  // a host name or an IP address

// An authority of its own, that signs servers and clients but no other authority.
Result<KeyPair> MakeAuthority(std::string_view name, int days);

// Both fail with InvalidData when the authority is none, does not fit its key or has expired. What an
// authority signs ends at the latest when the authority does.
// names: host names and IP addresses under which clients reach the server, at least one.
Result<KeyPair> MakeServerCertificate(const KeyPair& authority, const std::vector<std::string>& names,
                                      int days);
Result<KeyPair> MakeClientCertificate(const KeyPair& authority, std::string_view who, Role role, int days);

struct ClientIdentity {
    std::string who;
    Role role = Role::Viewer;
};

// Whom a client certificate names: its common name, and its role as Role.h says. Safe for any text, but
// whether an authority has signed it is not looked at. InvalidData when it is no certificate, not one for
// clients, names nobody or more than one, or its role is none or not the only one.
Result<ClientIdentity> ReadClient(std::string_view pem);

// What a person wants to know of a certificate.
struct CertificateInfo {
    enum class Kind { Authority, Server, Client, Other };

    Kind kind = Kind::Other;
    std::string subject, issuer;     // the common names; empty when there is none
    std::vector<std::string> names;  // alternative names: hosts, addresses and URIs
    std::string begins, ends;        // UTC, "2026-01-31T23:59:59Z"
    std::string fingerprint;         // SHA-256 in hexadecimal digits
    bool isValidNow = false;
};

// Any bytes may stand in the texts. InvalidData when it is no certificate.
Result<CertificateInfo> ReadCertificate(std::string_view pem);

// The role's name in lower case, as in certificates and on the command line.
std::string_view RoleName(Role role);
std::optional<Role> RoleFrom(std::string_view name);

}  // namespace zentrel
