#pragma once

#include "zentrel/remote/RemoteTransport.h"

#include <map>
#include <vector>

namespace zentrel {

struct ServerPlaces {
    std::vector<std::filesystem::path> sockets;  // where a zentreld of this machine may listen, best first
    std::filesystem::path knownServers;          // see KnownServers.h; need not be there
};

// The system's daemon for administrators, for everybody else, then one that runs on the data folder alone.
std::vector<std::filesystem::path> LocalSockets(const std::filesystem::path& dataFolder);

// The transport of a program that reaches every server: finds the way by name. This machine's names (empty,
// ".", "localhost", "127.0.0.1", "::1" and its own) lead to the first socket where a zentreld listens, else
// to the embedded service; an entry of the file of known servers to what it says; any other name to a host.
// A session's name is the text that it was asked for with; for the empty one, this machine's name.
//
// The file is read at each connection. A bad one fails connections to other machines with InvalidData, never
// those to this one.
class ServerDirectory : public Transport {
public:
    ServerDirectory(std::shared_ptr<Transport> embedded, ServerPlaces places, WhileWaiting whileWaiting = {},
                    Deadlines deadlines = {});

    std::string LocalName() const override { return m_embedded->LocalName(); }
    Result<std::shared_ptr<Session>> Connect(std::string_view server) override;
    // The name may begin with backslashes, as in a network path.
    Result<std::unique_ptr<ServiceManager>> OpenServiceManager(std::string_view machine,
                                                               std::uint32_t access) override;

private:
    bool IsThisMachine(std::string_view name) const;
    std::shared_ptr<Transport> LocalWay() const;
    Result<std::shared_ptr<Transport>> FindWay(std::string_view name) const;
    void Remember(std::string_view name, std::shared_ptr<Transport> way);

    std::shared_ptr<Transport> m_embedded;
    ServerPlaces m_places;
    WhileWaiting m_whileWaiting;
    Deadlines m_deadlines;
    std::map<std::string, std::shared_ptr<Transport>, std::less<>> m_ways;  // used of late: services go along
};

}  // namespace zentrel
