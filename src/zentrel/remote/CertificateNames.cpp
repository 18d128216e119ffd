#include "zentrel/remote/Certificates.h"

#include "zentrel/Printable.h"
#include "zentrel/remote/OpenSsl.h"

#include <algorithm>
#include <array>

#include <arpa/inet.h>

namespace zentrel {

namespace {

constexpr std::size_t kMostNameCharacters = 64;  // the standard's bound for a common name

bool IsGoodName(std::string_view text)
{
    if (text.empty() || text.front() == ' ' || text.back() == ' ') return false;
    for (std::size_t count = 0; !text.empty(); ++count)
        if (count == kMostNameCharacters || TakeCharacter(text).kind != TextPiece::Kind::Plain) return false;
    return true;
}

bool IsHostName(std::string_view name)
{
    std::string_view label;
    if (name.size() > 253) return false;
    for (bool isLast = false; !isLast;) {
        label = name.substr(0, name.find('.'));
        isLast = label.size() == name.size();
        name.remove_prefix(isLast ? label.size() : label.size() + 1);
        const bool isGood = std::all_of(label.begin(), label.end(), [](char c) {
            return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-';
        });
        if (!isGood || label.empty() || label.size() > 63 || label.front() == '-' || label.back() == '-')
            return false;
    }
    // A name that ends in a number would be an address that is none.
    return label.find_first_not_of("0123456789") != std::string_view::npos;
}

}  // namespace

std::string openssl::AddressBytes(const std::string& text)
{
    if (text.find('\0') != std::string_view::npos) return {};
    std::array<char, 16> bytes{};
    if (inet_pton(AF_INET, text.c_str(), bytes.data()) == 1) return {bytes.data(), 4};
    if (inet_pton(AF_INET6, text.c_str(), bytes.data()) == 1) return {bytes.data(), 16};
    return {};
}

Done CheckPersonName(std::string_view name)
{
    if (IsGoodName(name)) return {};
    return Fail(Code::InvalidParameter, openssl::kSource,
                "A name has 1 to 64 characters, no control characters, and no blank at either end.");
}

Done CheckServerName(const std::string& name)
{
    if (IsHostName(name) || !openssl::AddressBytes(name).empty()) return {};
    return Fail(Code::InvalidParameter, openssl::kSource,
                "A server is named by host names and IP addresses, not by \"" + Printable(name) + "\".");
}

std::string_view RoleName(Role role)
{
    switch (role) {
    case Role::Operator: return "operator";
    case Role::Admin: return "admin";
    case Role::Viewer: break;
    }
    return "viewer";
}

std::optional<Role> RoleFrom(std::string_view name)
{
    for (const auto role : {Role::Viewer, Role::Operator, Role::Admin})
        if (name == RoleName(role)) return role;
    return {};
}

}  // namespace zentrel
