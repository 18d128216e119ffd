#include "zentrel/KeyPath.h"

#include "base/Text.h"

#include <algorithm>

namespace zentrel {

namespace {

tl::unexpected<SystemError> BadName(std::string reason)
{
    return Fail(Code::InvalidName, "Metabase", std::move(reason));
}

}  // namespace

Done CheckName(std::string_view name)
{
    if (name.empty()) return BadName("A path has an empty segment.");
    if (name.size() > kLongestName) return BadName("A name in a path is longer than 255 bytes.");
    if (name == "." || name == "..") return BadName("A path must not hold \".\" or \"..\".");
    if (name.find('\0') != std::string_view::npos) return BadName("A name in a path holds a NUL.");
    if (name.find('/') != std::string_view::npos) return BadName("A name must not hold \"/\".");
    if (!IsValidUtf8(name)) return BadName("A name in a path is not valid UTF-8.");
    return {};
}

Result<std::string_view> CheckPath(std::string_view path)
{
    const auto trimmed = TrimSlashes(path);
    auto rest = trimmed;
    while (!rest.empty()) {
        const bool endsInSlash = rest.ends_with('/');
        if (auto checked = CheckName(TakeSegment(rest)); !checked) return Fail(checked.error());
        if (rest.empty() && endsInSlash) return BadName("A path has an empty segment.");
    }
    return trimmed;
}

std::size_t PathDepth(std::string_view path)
{
    if (path.empty()) return 0;
    return 1 + static_cast<std::size_t>(std::count(path.begin(), path.end(), '/'));
}

std::string SiteKey(std::uint32_t site)
{
    return "LM/W3SVC/" + std::to_string(site);
}

std::string SiteRootKey(std::uint32_t site)
{
    return SiteKey(site) + "/Root";
}

}  // namespace zentrel
