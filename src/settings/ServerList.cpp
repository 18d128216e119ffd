#include "settings/ServerList.h"

#include "base/Text.h"

#include <utility>
#include <vector>

void RememberServer(Settings& settings, std::string_view chosen, std::span<const std::string> boxEntries)
{
    // A copy, since the text may be one of those that are replaced here.
    const std::string name(chosen);
    if (settings.RememberServers > 0) {
        const auto most = static_cast<std::size_t>(settings.RememberServers);
        std::vector<std::string> servers{std::string(TrimBlanks(name))};
        for (const auto& entry : boxEntries) {
            if (servers.size() >= most) break;
            if (entry != name) servers.emplace_back(TrimBlanks(entry));
        }
        settings.Servers = std::move(servers);
    }
    settings.LastServer = name;
}
