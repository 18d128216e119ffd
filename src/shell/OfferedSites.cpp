#include "shell/OfferedSites.h"

#include "zentrel/SiteNumber.h"

#include <algorithm>

Result<std::vector<std::int32_t>> OfferedSites(zentrel::ServerAdmin& server)
{
    auto keys = server.EnumKeys("/LM/W3SVC");
    if (!keys) return Fail(keys.error());
    std::vector<std::int32_t> sites;
    while (keys->Next())
        if (const auto site = zentrel::ParseSiteNumber(keys->Name())) sites.push_back(*site);
    std::sort(sites.begin(), sites.end());
    return sites;
}
