#include "cache/FileInfo.h"
#include "fuzz/Targets.h"
#include "zentrel/LittleEndian.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace fuzz {
namespace {

// A second, plain way to take paths apart, which the fast one must agree with.
std::vector<std::size_t> EndsOfSegments(std::string_view path)
{
    std::vector<std::size_t> ends;
    for (std::size_t i = 0; i < path.size(); ++i)
        if (path[i] == '/') ends.push_back(i);
    ends.push_back(path.size());
    return ends;
}

std::string Backslashed(std::string_view path)
{
    std::string text(path);
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
    const auto ends = EndsOfSegments(path);
    for (std::size_t i = ends.size(); i-- > 2;) {
        auto physical = Backslashed(reader.VirtualRoot(path.substr(0, ends[i])));
        if (physical.empty()) continue;
        if (physical.back() == '\\') physical.pop_back();
        const auto last = i + 1 == ends.size() ? i : i + 1;  // what is not of the key, at least its name
        return last < 4 ? physical : physical + '\\' + Backslashed(path.substr(ends[last - 1] + 1));
    }
    return {};
}

// least: the number of segments that a URL needs.
void RequireUrlParts(const FileInfo& info, std::string_view path, std::size_t least)
{
    const auto ends = EndsOfSegments(path);
    const bool isUrl = ends.size() >= least;
    const auto url = isUrl ? path.substr(ends[least - 2]) : "/";
    Require(info.FilePath == url, "the URL path is the last piece");
    Require(info.FileName == (isUrl ? path.substr(ends[ends.size() - 2] + 1) : ""),
            "the name is the last segment");
}

// The folder holds 256 ids; both are told in hexadecimal, an id below 0 by its two's complement.
void RequireCacheFile(FileInfo info, std::int32_t id)
{
    info.CacheID = id;
    info.CacheExt = ".gzip";
    char path[32];
    std::snprintf(path, sizeof path, "%X\\%X.gzip", static_cast<unsigned>(id / 256),
                  static_cast<unsigned>(id));
    Require(info.CacheFilePath() == (id == 0 ? "" : path), "the file is named after its id");
}

}  // namespace

// Input: the level of the root's key (1 byte), a cache id (4), the path up to a zero byte, the root's folder.
void MetaPath(Input bytes)
{
    if (bytes.size() < 5) return;
    const auto level = static_cast<std::ptrdiff_t>(bytes[0]);
    const auto id = zentrel::LoadLittle<std::int32_t>(bytes.data() + 1);
    const auto text = TextOf(bytes.subspan(5));
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

    info.SetRelPath(path);
    RequireUrlParts(info, path, 3);
    RequireCacheFile(std::move(info), id);
}

}  // namespace fuzz
