#pragma once

#include "base/Result.h"

#include <string>
#include <string_view>

namespace zentrel {

inline constexpr std::size_t kLongestName = 255;  // bytes in one segment of a path

// Checks a path such as "LM/W3SVC/1/Root/img/a.gif" (one slash more or less at either end does no harm)
// and answers it without those slashes; the empty path is the root.
// InvalidName when a segment is empty, "." or "..", longer than 255 bytes, holds a NUL or is not UTF-8.
Result<std::string_view> CheckPath(std::string_view path);

// The check that CheckPath makes of each segment.
Done CheckName(std::string_view name);

// Whether a name that a server sent can stand in a path at all; far less than CheckName asks.
inline bool IsSegment(std::string_view name)
{
    return !name.empty() && name.find('/') == std::string_view::npos;
}

// Takes the first segment off a checked path.
inline std::string_view TakeSegment(std::string_view& path)
{
    const auto end = path.find('/');
    const auto segment = path.substr(0, end);
    path.remove_prefix(end == std::string_view::npos ? path.size() : end + 1);
    return segment;
}

// The path without its last segment; empty for one segment.
inline std::string_view ParentPath(std::string_view path)
{
    const auto end = path.rfind('/');
    return end == std::string_view::npos ? std::string_view{} : path.substr(0, end);
}

inline std::string_view LastSegment(std::string_view path)
{
    return path.substr(path.rfind('/') + 1);
}

// The number of segments in a checked path.
std::size_t PathDepth(std::string_view path);

// "LM/W3SVC/1", and "LM/W3SVC/1/Root".
std::string SiteKey(std::uint32_t site);
std::string SiteRootKey(std::uint32_t site);

}  // namespace zentrel
