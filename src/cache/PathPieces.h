#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string_view>

// How many slashes stand before the URL in a metabase path (LM/W3SVC/1/Root/) and in a tree key (1/Root/).
inline constexpr std::size_t kSlashesBeforeUrl = 4;
inline constexpr std::size_t kSlashesBeforeUrlInKey = 2;

// The text behind the first `slashes` slashes, further ones included; empty when the path has fewer.
inline std::optional<std::string_view> TextBehindSlashes(std::string_view path, std::size_t slashes)
{
    for (; slashes > 0; --slashes) {
        const auto slash = path.find('/');
        if (slash == std::string_view::npos) return std::nullopt;
        path.remove_prefix(slash + 1);
    }
    return path;
}

inline std::size_t CountSlashes(std::string_view path)
{
    return static_cast<std::size_t>(std::count(path.begin(), path.end(), '/'));
}
