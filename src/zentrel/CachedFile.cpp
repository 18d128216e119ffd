#include "zentrel/CachedFile.h"

#include "zentrel/KeyPath.h"
#include "zentrel/RecordLayout.h"

#include <charconv>
#include <limits>

namespace zentrel {

namespace {

template <class Number>
std::optional<Number> ParseHex(std::string_view text)
{
    Number value = 0;
    const auto* end = text.data() + text.size();
    const auto [stopped, error] = std::from_chars(text.data(), end, value, 16);
    if (error != std::errc{} || stopped != end) return std::nullopt;
    return value;
}

}  // namespace

std::optional<std::uint64_t> ParseQueryHash(std::string_view text)
{
    const auto hash = ParseHex<std::uint64_t>(text);
    if (!hash || *hash == 0 || QueryHashText(*hash) != text) return std::nullopt;
    return hash;
}

std::string CachedFile::Path() const
{
    return CachedFilePath(static_cast<std::int32_t>(id), QueryHashText(query), CachedExtension(encoding),
                          '/');
}

std::optional<CachedFile> CachedFile::Parse(std::string_view path)
{
    for (const auto encoding : kEncodings) {
        const auto extension = CachedExtension(encoding);
        if (!path.ends_with(extension)) continue;
        auto rest = path.substr(0, path.size() - extension.size());
        TakeSegment(rest);
        const auto id = ParseHex<std::int32_t>(TakeSegment(rest));
        if (!id || *id <= 0) return std::nullopt;
        CachedFile file{static_cast<std::uint32_t>(*id), encoding, 0};
        if (!rest.empty()) file.query = ParseQueryHash(rest).value_or(0);
        if (file.Path() == path) return file;
    }
    return std::nullopt;
}

}  // namespace zentrel
