#include "server/ReadSites.h"

#include "base/Text.h"
#include "base/Translate.h"
#include "zentrel/SiteNumber.h"

#include <string_view>

namespace {

constexpr std::string_view kSites = "/LM/W3SVC/";
constexpr std::size_t kLongestText = 4000;  // bytes; more than a window ever shows
constexpr std::uint32_t kStateUnknown = 0;
constexpr std::uint32_t kStateStarted = 2;

// The site's name; empty for a site that has none, or that is gone by now.
Result<std::string> Description(zentrel::ServerAdmin& server, const std::string& path)
{
    const auto record = server.GetData(path, zentrel::Prop::ServerComment);
    if (!record && record.error().Is(Code::FileNotFound)) return std::string();
    if (!record) return Fail(record.error());
    return *record ? std::string((*record)->Text().substr(0, kLongestText)) : std::string();
}

bool IsUp(zentrel::ServerAdmin& server, const std::string& path)
{
    const auto record = server.GetData(path, zentrel::Prop::ServerState);
    const auto state = record && *record ? (*record)->Number() : kStateUnknown;
    return state == kStateUnknown || state == kStateStarted;
}

std::string Address(zentrel::ServerAdmin& server, const std::string& path)
{
    const auto record = server.GetData(path, zentrel::Prop::ServerBindings);
    return record && *record ? BindingsText((*record)->TextList()) : std::string();
}

}  // namespace

std::string BindingsText(const std::vector<std::string>& bindings)
{
    std::string text;
    for (const std::string_view binding : bindings) {
        const auto first = binding.find(':');
        const auto second = first == std::string_view::npos ? first : binding.find(':', first + 1);
        if (second == std::string_view::npos) continue;
        if (text.size() > kLongestText) break;
        if (!text.empty()) text += ", ";
        const auto host = binding.substr(second + 1);
        if (!TrimBlanks(host).empty()) {
            text += host;
            continue;
        }
        const auto address = binding.substr(0, first);
        text +=
            TrimBlanks(address).empty() ? Translate("ReadSites", "(All Unassigned)") : std::string(address);
        text += binding.substr(first, second - first);
    }
    if (text.size() > kLongestText) text.resize(kLongestText);
    return text;
}

Result<bool> ReadSites(zentrel::ServerAdmin& server, const std::function<bool(Site)>& take,
                       const SiteReadingLimits& limits)
{
    const auto end = std::chrono::steady_clock::now() + limits.time;
    auto keys = server.EnumKeys(kSites);
    if (!keys) return Fail(keys.error());
    std::size_t taken = 0;
    std::size_t seen = 0;
    for (; keys->Next(); ++seen) {
        if (seen == limits.keys || taken == limits.sites || std::chrono::steady_clock::now() > end)
            return false;
        const auto number = zentrel::ParseSiteNumber(keys->Name());
        if (!number) continue;
        const auto path = std::string(kSites) + keys->Name();
        auto description = Description(server, path);
        if (!description) return Fail(description.error());
        if (description->empty()) continue;
        ++taken;
        Site site;
        site.number = *number;
        site.name = std::move(*description);
        site.isUp = IsUp(server, path);
        site.address = Address(server, path);
        if (!take(std::move(site))) return true;
    }
    // Names also end where the server no longer answers; then it does not answer this either.
    if (seen < keys->Count())
        if (const auto answers = server.OpenKey(kSites); !answers) return Fail(answers.error());
    return true;
}
