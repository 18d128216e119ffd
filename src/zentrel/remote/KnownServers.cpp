#include "zentrel/remote/KnownServers.h"

#include "base/Text.h"
#include "zentrel/Printable.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <set>

namespace zentrel {

namespace {

namespace fs = std::filesystem;

constexpr const char* kSource = "ZentrelAdmin";
constexpr std::size_t kLongestHost = 255;
constexpr std::uintmax_t kLargestPem = std::uintmax_t{1} << 20;

tl::unexpected<SystemError> NoHost()
{
    return Fail(Code::ServerUnavailable, kSource, "No server can have this name.");
}

tl::unexpected<SystemError> BadLine(int line, const std::string& what)
{
    return Fail(Code::InvalidData, kSource, "line " + std::to_string(line) + ": " + what);
}

std::optional<std::uint16_t> ParsePort(std::string_view text)
{
    std::uint16_t port = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), port);
    if (error != std::errc() || end != text.data() + text.size() || port == 0) return std::nullopt;
    return port;
}

bool IsHost(std::string_view text, bool isV6)
{
    const auto fits = [isV6](char c) {
        return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '.' ||
               c == '-' || c == '_' || (isV6 && c == ':');
    };
    return !text.empty() && text.size() <= kLongestHost && std::all_of(text.begin(), text.end(), fits);
}

Result<std::string> ReadPem(const fs::path& file)
{
    std::error_code error;
    const auto size = fs::file_size(file, error);
    if (error) return FailErrno(error.value(), kSource, "Cannot read " + Printable(file.string()));
    if (size > kLargestPem)
        return Fail(Code::InvalidData, kSource, Printable(file.string()) + " is no certificate.");
    std::ifstream stream(file, std::ios::binary);
    std::string text(static_cast<std::size_t>(size), '\0');
    if (!stream.read(text.data(), static_cast<std::streamsize>(size)))
        return FailErrno(errno != 0 ? errno : EIO, kSource, "Cannot read " + Printable(file.string()));
    return text;
}

}  // namespace

Result<HostAddress> ParseHost(std::string_view text)
{
    if (text.size() > kLongestHost) return NoHost();
    auto host = text;
    std::string_view port;
    bool hasPort = false;
    bool isV6 = false;
    if (text.starts_with('[')) {
        const auto end = text.find(']');
        if (end == std::string_view::npos) return NoHost();
        host = text.substr(1, end - 1);
        isV6 = true;
        const auto rest = text.substr(end + 1);
        if (!rest.empty() && rest.front() != ':') return NoHost();
        hasPort = !rest.empty();
        if (hasPort) port = rest.substr(1);
    } else if (const auto colons = std::count(text.begin(), text.end(), ':'); colons == 1) {
        host = text.substr(0, text.find(':'));
        port = text.substr(host.size() + 1);
        hasPort = true;
    } else {
        isV6 = colons > 1;
    }
    const auto number = ParsePort(port);
    if (!IsHost(host, isV6) || (hasPort && !number)) return NoHost();
    return HostAddress{std::string(host), number};
}

Result<KnownServers> KnownServers::Read(const fs::path& file)
{
    std::error_code error;
    if (file.empty() || !fs::exists(file, error)) return KnownServers();
    const auto sections = ReadConfig(file);
    if (!sections) return Fail(sections.error());
    auto servers = Take(*sections, file.parent_path());
    if (servers) return servers;
    return Fail(servers.error().code, kSource, Printable(file.string()) + ": " + servers.error().description);
}

Result<KnownServers> KnownServers::Take(const std::vector<ConfigSection>& sections, const fs::path& folder)
{
    KnownServers servers;
    bool hasDefaults = false;
    for (const auto& section : sections) {
        if (section.kind.empty() && section.entries.empty()) continue;
        const bool isServer = section.kind == "server" && !section.name.empty();
        const bool isDefaults = section.kind == "defaults" && section.name.empty();
        if (section.kind.empty())
            return BadLine(section.entries.front().line, "this belongs below [defaults] or [server NAME]");
        if (!isServer && !isDefaults) return BadLine(section.line, "expected [defaults] or [server NAME]");
        if (isDefaults ? hasDefaults : servers.Has(section.name))
            return BadLine(section.line, "this section is there twice");
        auto entry = TakeEntry(section, folder);
        if (!entry) return Fail(entry.error());
        hasDefaults = hasDefaults || isDefaults;
        if (isDefaults)
            servers.m_defaults = std::move(*entry);
        else
            servers.m_servers.push_back(std::move(*entry));
    }
    return servers;
}

Result<KnownServers::Entry> KnownServers::TakeEntry(const ConfigSection& section, const fs::path& folder)
{
    Entry entry;
    entry.name = section.name;
    std::set<std::string_view> seen;
    for (const auto& line : section.entries) {
        if (!seen.insert(line.key).second) return BadLine(line.line, "\"" + line.key + "\" is there twice");
        const bool isFile = line.key == "ca" || line.key == "certificate" || line.key == "key";
        if (section.kind == "defaults" && !isFile)
            return BadLine(line.line,
                           "[defaults] knows ca, certificate and key, not \"" + Printable(line.key) + "\"");
        if (const auto set = Set(entry, line, folder); !set) return Fail(set.error());
    }
    if (entry.certificate.empty() != entry.key.empty())
        return BadLine(section.line, "certificate and key go together");
    return entry;
}

Done KnownServers::Set(Entry& entry, const ConfigEntry& line, const fs::path& folder)
{
    if (line.value.empty()) return BadLine(line.line, "\"" + Printable(line.key) + "\" has no value");
    if (line.key == "ca") {
        entry.authority = folder / line.value;
    } else if (line.key == "certificate") {
        entry.certificate = folder / line.value;
    } else if (line.key == "key") {
        entry.key = folder / line.value;
    } else if (line.key == "name") {
        entry.certificateName = line.value;
    } else if (line.key == "host") {
        const auto host = ParseHost(line.value);
        if (!host || host->port) return BadLine(line.line, "\"host\" is a name or an address, without port");
        entry.host = host->host;
    } else if (line.key == "port") {
        entry.port = ParsePort(line.value);
        if (!entry.port) return BadLine(line.line, "\"port\" is a number from 1 to 65535");
    } else {
        return BadLine(line.line, "there is no \"" + Printable(line.key) + "\"");
    }
    return {};
}

const KnownServers::Entry* KnownServers::Find(std::string_view name) const
{
    const auto at = std::find_if(m_servers.begin(), m_servers.end(),
                                 [name](const Entry& entry) { return CompareFolded(entry.name, name) == 0; });
    return at == m_servers.end() ? nullptr : &*at;
}

Result<RemoteTarget> KnownServers::Target(std::string_view name) const
{
    Entry entry;
    if (const auto* const known = Find(name)) {
        entry = *known;
    } else {
        const auto given = ParseHost(name);
        if (!given) return Fail(given.error());
        if (const auto* const host = Find(given->host)) entry = *host;
        if (entry.host.empty()) entry.host = given->host;
        if (given->port) entry.port = given->port;
    }
    return Complete(std::move(entry));
}

Result<RemoteTarget> KnownServers::Complete(Entry entry) const
{
    if (entry.host.empty()) {
        const auto own = ParseHost(entry.name);
        if (!own) return Fail(own.error());
        entry.host = own->host;
        if (!entry.port) entry.port = own->port;
    }
    if (entry.authority.empty()) entry.authority = m_defaults.authority;
    if (entry.certificate.empty()) {
        entry.certificate = m_defaults.certificate;
        entry.key = m_defaults.key;
    }
    if (entry.authority.empty() || entry.certificate.empty())
        return Fail(Code::ServerUnavailable, kSource,
                    "There are no certificates for this server in the file of known servers.");
    const auto authority = ReadPem(entry.authority);
    if (!authority) return Fail(authority.error());
    const auto certificate = ReadPem(entry.certificate);
    if (!certificate) return Fail(certificate.error());
    const auto key = ReadPem(entry.key);
    if (!key) return Fail(key.error());

    RemoteTarget target;
    target.host = entry.host;
    target.port = entry.port.value_or(kDefaultPort);
    target.authority = *authority;
    target.certificate = *certificate;
    target.key = *key;
    target.certificateName = entry.certificateName;
    return target;
}

}  // namespace zentrel
