#include "shell/OfferedSites.h"

#include "zentrel/SiteNumber.h"

#include <algorithm>

Result<std::vector<std::int32_t>> OfferedSites(zentrel::ServerAdmin& server, const SiteReadingLimits& limits)
{
    const auto end = std::chrono::steady_clock::now() + limits.time;
    auto keys = server.EnumKeys("/LM/W3SVC");
    if (!keys) return Fail(keys.error());
    std::vector<std::int32_t> sites;
    for (std::size_t seen = 0; seen < limits.keys && sites.size() < limits.sites; ++seen) {
        if (!keys->Next() || std::chrono::steady_clock::now() > end) break;
        if (const auto site = zentrel::ParseSiteNumber(keys->Name())) sites.push_back(*site);
    }
    std::sort(sites.begin(), sites.end());
    return sites;
}
