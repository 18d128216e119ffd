#include "server/ServerChoices.h"

#include "base/Text.h"
#include "settings/ServerList.h"

#include <algorithm>

namespace {

// Answers where the name stands. Adds it at the end if it is not there yet.
std::size_t Offer(std::vector<ServerChoice>& entries, std::string_view name, std::string_view computerName)
{
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [name](const ServerChoice& entry) { return entry.name == name; });
    const auto place = static_cast<std::size_t>(found - entries.begin());
    if (found == entries.end()) entries.push_back({std::string(name), name == computerName});
    return place;
}

}  // namespace

ServerChoices OfferServers(const Settings& settings, std::string_view computerName,
                           std::string_view localServer)
{
    ServerChoices choices;
    const auto most = static_cast<std::size_t>(std::max(settings.RememberServers, 0));
    const auto shown = std::min(settings.Servers.size(), most);
    for (std::size_t i = 0; i < shown; ++i) {
        const auto name = TrimBlanks(settings.Servers[i]);
        if (!name.empty()) Offer(choices.entries, name, computerName);
    }
    const bool showsLast = settings.RememberLastServer && !settings.LastServer.empty();
    choices.selected = Offer(choices.entries, showsLast ? settings.LastServer : localServer, computerName);
    return choices;
}
