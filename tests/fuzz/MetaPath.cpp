#include "cache/FileInfo.h"
#include "cache/FileTypeTable.h"
#include "fuzz/Targets.h"
#include "zentrel/LittleEndian.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace fuzz {
namespace {

// A second, plain way to take paths apart, which the fast one must agree with.
using Pieces = std::vector<std::string>;

Pieces Split(std::string_view text, std::size_t most)
{
    Pieces pieces;
    for (auto slash = text.find('/'); slash != text.npos && pieces.size() + 1 < most;
         slash = text.find('/')) {
        pieces.emplace_back(text.substr(0, slash));
        text.remove_prefix(slash + 1);
    }
    pieces.emplace_back(text);
    return pieces;
}

std::string Join(const Pieces& pieces, std::size_t count)
{
    std::string text = pieces.at(0);
    for (std::size_t i = 1; i < count; ++i) text += "/" + pieces.at(i);
    return text;
}

std::string Backslashed(std::string text)
{
    std::replace(text.begin(), text.end(), '/', '\\');
    return text;
}

// Knows one root, that of the key with so many slashes; notes the keys that it is asked for.
class OneRoot : public VirtualRootReader {
public:
    OneRoot(std::ptrdiff_t slashes, std::string_view value) : m_slashes(slashes), m_value(value) {}

    std::string_view VirtualRoot(std::string_view key) override
    {
        asked.append(key).push_back('\n');
        return std::count(key.begin(), key.end(), '/') == m_slashes ? m_value : std::string_view{};
    }

    std::string asked;

private:
    std::ptrdiff_t m_slashes;
    std::string_view m_value;
};

std::string PlainPhysicalPath(std::string_view path, VirtualRootReader& reader)
{
    const auto segments = Split(path, path.npos);
    for (std::size_t i = segments.size() - 1; i >= 2 && i < segments.size(); --i) {
        auto physical = Backslashed(std::string(reader.VirtualRoot(Join(segments, i + 1))));
        if (physical.empty()) continue;
        if (physical.back() == '\\') physical.pop_back();
        const auto pieces = Split(path, i + 2);
        return pieces.size() < 5 ? physical : physical + "\\" + Backslashed(pieces.back());
    }
    return {};
}

void RequireUrlParts(const FileInfo& info, std::string_view path, std::size_t pieces)
{
    const auto parts = Split(path, pieces);
    const auto all = Split(path, path.npos);
    Require(info.FilePath == (parts.size() == pieces ? "/" + parts.back() : "/"),
            "the URL path is the last piece");
    Require(info.FileName == (all.size() >= pieces ? all.back() : ""), "the name is the last segment");
}

void RequireCacheFile(FileInfo info, std::int32_t id)
{
    info.CacheID = id;
    info.CacheExt = ".gzip";
    const auto path = info.CacheFilePath();
    if (id == 0) return Require(path.empty(), "no cache id, no file");
    const auto slash = path.find('\\');
    const auto folder = static_cast<std::uint32_t>(std::stoul(path.substr(0, slash), nullptr, 16));
    const auto name = static_cast<std::uint32_t>(std::stoul(path.substr(slash + 1), nullptr, 16));
    Require(static_cast<std::int32_t>(name) == id, "the file is named after its id");
    Require(static_cast<std::int32_t>(folder) == id / 256, "the folder holds 256 ids");
    Require(path.ends_with(".gzip"), "the extension comes last");
}

}  // namespace

// Input: the level of the root's key (1 byte), a cache id (4), the path up to a zero byte, the root's folder.
void MetaPath(Input bytes)
{
    if (bytes.size() < 5) return;
    const auto level = static_cast<std::ptrdiff_t>(bytes[0]);
    const auto id = zentrel::LoadLittle<std::int32_t>(bytes.data() + 1);
    const std::string_view text(reinterpret_cast<const char*>(bytes.data()) + 5, bytes.size() - 5);
    const auto path = text.substr(0, text.find('\0'));
    const auto folder = text.substr(std::min(path.size() + 1, text.size()));

    OneRoot fast(level, folder);
    OneRoot plain(level, folder);
    FileInfo info;
    info.SetMetaPath(path, fast);
    const auto stored = path.substr(path.starts_with('/') ? 1 : 0);
    Require(info.MetaPath() == "/" + std::string(stored), "one leading slash goes, the rest stays");
    Require(info.PhysycalPath() == PlainPhysicalPath(stored, plain), "the physical path is the plain one");
    Require(fast.asked == plain.asked, "the keys are asked for upward, once each");
    RequireUrlParts(info, stored, 5);

    FileInfo again;
    again.SetMetaPath(path, info.RootMatch());
    Require(again == info, "a found match serves as well as a search");
    Require(FindVirtualRoot(stored, plain) == info.RootMatch(), "the match alone is found as well");

    FileTypeTable types;
    auto& type = types.Find(info.Extension);
    const auto dot = stored.rfind('.');
    const auto raw = dot == stored.npos ? std::string_view{} : stored.substr(dot + 1);
    Require(type.Extension == info.Extension, "an extension is its own key");
    Require(&types.Find(raw) == &type, "case makes no other type");

    info.SetRelPath(path);
    RequireUrlParts(info, path, 3);
    RequireCacheFile(std::move(info), id);
}

}  // namespace fuzz
