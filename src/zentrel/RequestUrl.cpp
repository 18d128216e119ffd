#include "zentrel/RequestUrl.h"

#include "zentrel/KeyPath.h"

namespace zentrel {

namespace {

std::optional<unsigned> HexDigit(char c)
{
    if (c >= '0' && c <= '9') return static_cast<unsigned>(c - '0');
    if (c >= 'A' && c <= 'F') return static_cast<unsigned>(c - 'A' + 10);
    if (c >= 'a' && c <= 'f') return static_cast<unsigned>(c - 'a' + 10);
    return std::nullopt;
}

std::optional<std::string> DecodePercent(std::string_view text)
{
    std::string decoded;
    decoded.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '%') {
            decoded += text[i];
            continue;
        }
        if (text.size() - i < 3) return std::nullopt;
        const auto high = HexDigit(text[i + 1]);
        const auto low = HexDigit(text[i + 2]);
        if (!high || !low) return std::nullopt;
        decoded += static_cast<char>(*high * 16 + *low);
        i += 2;
    }
    return decoded;
}

}  // namespace

std::optional<RequestUrl> ParseRequestUrl(std::string_view url)
{
    if (!url.starts_with('/')) return std::nullopt;
    RequestUrl parsed;
    const auto mark = url.find('?');
    const auto query = mark == std::string_view::npos ? std::string_view() : url.substr(mark + 1);
    if (!query.empty()) parsed.query = HashQuery(query);

    auto decoded = DecodePercent(url.substr(1, mark == std::string_view::npos ? mark : mark - 1));
    if (!decoded) return std::nullopt;
    parsed.isFolder = decoded->empty() || decoded->ends_with('/');
    if (decoded->starts_with('/') || decoded->ends_with("//")) return std::nullopt;
    if (decoded->ends_with('/')) decoded->pop_back();
    if (!CheckPath(*decoded)) return std::nullopt;
    parsed.path = std::move(*decoded);
    return parsed;
}

std::uint64_t HashQuery(std::string_view query)
{
    constexpr std::uint64_t kBasis = 0xCBF29CE484222325;
    constexpr std::uint64_t kPrime = 0x100000001B3;
    std::uint64_t hash = kBasis;
    for (const char c : query) hash = (hash ^ static_cast<unsigned char>(c)) * kPrime;
    return hash != 0 ? hash : kBasis;
}

}  // namespace zentrel
