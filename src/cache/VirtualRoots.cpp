#include "cache/VirtualRoots.h"

#include "cache/PathPieces.h"

#include <algorithm>

namespace {

constexpr std::size_t kSiteLevel = 2;  // LM/W3SVC/1

void AppendBackslashed(std::string& out, std::string_view text)
{
    const auto begin = static_cast<std::ptrdiff_t>(out.size());
    out += text;
    std::replace(out.begin() + begin, out.end(), '/', '\\');
}

}  // namespace

void VirtualRootMatch::Search(std::string_view storedPath, VirtualRootReader& reader)
{
    Clear();
    for (auto slashes = CountSlashes(storedPath); slashes >= kSiteLevel; --slashes) {
        const auto root = reader.VirtualRoot(storedPath);
        if (!root.empty()) {
            value = root;
            level = static_cast<std::uint32_t>(slashes);
            return;
        }
        storedPath = storedPath.substr(0, storedPath.rfind('/'));
    }
}

void VirtualRootMatch::Clear()
{
    value.clear();
    level = 0;
}

VirtualRootMatch FindVirtualRoot(std::string_view storedPath, VirtualRootReader& reader)
{
    VirtualRootMatch match;
    match.Search(storedPath, reader);
    return match;
}

std::string PhysicalPath(std::string_view storedPath, const VirtualRootMatch& match)
{
    std::string path;
    if (match.value.empty()) return path;
    AppendBackslashed(path, match.value);
    if (path.back() == '\\') path.pop_back();

    // A path that is itself the root's key has nothing below it: its own last name is appended.
    const auto slashes = std::min(CountSlashes(storedPath), std::size_t{match.level} + 1);
    if (slashes < kSlashesBeforeUrl) return path;
    path += '\\';
    AppendBackslashed(path, TextBehindSlashes(storedPath, slashes).value_or(std::string_view{}));
    return path;
}
