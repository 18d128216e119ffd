#pragma once

#include "zentrel/ConfigFile.h"
#include "zentrel/remote/RemoteTransport.h"

#include <optional>

namespace zentrel {

// A server's place as a person writes it: "web01", "web01:5280", "10.0.0.5:5280", "::1", "[::1]:5280".
struct HostAddress {
    std::string host;  // an IPv6 address without brackets
    std::optional<std::uint16_t> port;
};

// ServerUnavailable, without looking for it, when no host can have this name: longer than 255 bytes, or
// anything but letters, digits, ".", "-", "_" and the colons of an address in it.
Result<HostAddress> ParseHost(std::string_view text);

// The file of known servers:
//
//   [defaults]            for every server that does not say otherwise
//   ca = ca.pem           who must have signed the server's certificate
//   certificate = me.pem  this client's, with its key
//   key = me.key
//
//   [server web01]        the name that a person chooses
//   host = 10.0.0.5       the name itself when left out; also port, ca, certificate, key
//   name = web01.example  what the server's certificate is made for, where that is not the host
//
// Paths are relative to the file's folder. Names are found whatever the case of their letters.
class KnownServers {
public:
    // A file that is not there knows nobody. InvalidData names the line that is wrong.
    static Result<KnownServers> Read(const std::filesystem::path& file);
    static Result<KnownServers> Take(const std::vector<ConfigSection>& sections,
                                     const std::filesystem::path& folder);

    bool Has(std::string_view name) const { return Find(name) != nullptr; }

    // Where a name leads, certificates read: an entry, or a host by its own name with the defaults. Fails
    // with ServerUnavailable as ParseHost does, and where there is no certificate to go there with; with the
    // system's code when a file cannot be read.
    Result<RemoteTarget> Target(std::string_view name) const;

private:
    struct Entry {
        std::string name, host, certificateName;
        std::optional<std::uint16_t> port;
        std::filesystem::path authority, certificate, key;
    };

    static Result<Entry> TakeEntry(const ConfigSection& section, const std::filesystem::path& folder);
    static Done Set(Entry& entry, const ConfigEntry& line, const std::filesystem::path& folder);
    const Entry* Find(std::string_view name) const;
    Result<RemoteTarget> Complete(Entry entry) const;

    Entry m_defaults;
    std::vector<Entry> m_servers;
};

}  // namespace zentrel
