#include "zentrel/Sites.h"

#include "base/Text.h"
#include "zentrel/KeyPath.h"
#include "zentrel/KeyWalk.h"
#include "zentrel/SiteNumber.h"

#include <algorithm>
#include <limits>

namespace zentrel {

namespace {

constexpr std::string_view kSource = "Service";
constexpr std::size_t kLongestText = 1000;  // bytes
constexpr std::uint32_t kStarted = 2;
constexpr std::uint32_t kLastSite = std::numeric_limits<std::int32_t>::max();

tl::unexpected<SystemError> BadValue(std::string reason)
{
    return Fail(Code::InvalidParameter, kSource, std::move(reason));
}

bool IsText(std::string_view text)
{
    return text.size() <= kLongestText && text.find('\0') == std::string_view::npos && IsValidUtf8(text);
}

Done CheckSite(const SiteConfig& site)
{
    if (site.number == 0 || site.number > kLastSite)
        return BadValue("A site's number must be 1 to " + std::to_string(kLastSite) + ".");
    if (!IsText(site.comment)) return BadValue("The comment is no UTF-8 text of at most 1000 bytes.");
    if (!std::all_of(site.bindings.begin(), site.bindings.end(), IsText))
        return BadValue("A binding is no UTF-8 text of at most 1000 bytes.");
    if (site.level < 1 || site.level > 9) return BadValue("The compression level must be 1 to 9.");
    if (site.encoding != Encoding::Gzip && site.encoding != Encoding::Deflate)
        return BadValue("There is no such encoding.");
    return {};
}

// The folder as it is stored: absolute, and a text.
Result<std::string> CheckFolder(const std::filesystem::path& folder)
{
    std::error_code error;
    const auto absolute = std::filesystem::absolute(folder, error).lexically_normal();
    if (error || folder.empty() || !std::filesystem::is_directory(absolute, error))
        return Fail(Code::PathNotFound, kSource, "There is no folder \"" + folder.string() + "\".");
    auto text = absolute.string();
    if (!IsValidUtf8(text)) return Fail(Code::InvalidName, kSource, "The folder's name is not valid UTF-8.");
    return text;
}

std::string TextOf(const KeyRow& row, PropertyId id)
{
    const auto property = FindProperty(row.properties, id);
    return property ? std::string(Record(*property).Text()) : std::string();
}

std::uint32_t NumberOf(const KeyRow& row, PropertyId id)
{
    const auto property = FindProperty(row.properties, id);
    return property ? Record(*property).Number() : 0;
}

bool IsVirtualDir(const KeyRow& row)
{
    return TextOf(row, Prop::KeyType) == kVirtualDirType;
}

void ReadCompression(const KeyRow& site, Encoding& encoding, int& level)
{
    const bool isDeflate =
        NumberOf(site, Prop::SiteEncoding) == static_cast<std::uint32_t>(Encoding::Deflate);
    encoding = isDeflate ? Encoding::Deflate : Encoding::Gzip;
    const auto stored = NumberOf(site, Prop::SiteLevel);
    level = stored >= 1 && stored <= 9 ? static_cast<int>(stored) : SiteConfig().level;
}

SiteConfig ReadSite(const KeyRow& row, std::uint32_t number)
{
    SiteConfig site;
    site.number = number;
    site.comment = TextOf(row, Prop::ServerComment);
    if (const auto bindings = FindProperty(row.properties, Prop::ServerBindings))
        site.bindings = Record(*bindings).TextList();
    ReadCompression(row, site.encoding, site.level);
    return site;
}

// A site's number from its key's name; 0 for a key that is none.
std::uint32_t SiteNumber(const KeyRow& row)
{
    const auto number = ParseSiteNumber(row.name);
    return number && TextOf(row, Prop::KeyType) == kWebServerType ? static_cast<std::uint32_t>(*number) : 0;
}

}  // namespace

Done WriteSite(WriteTxn& txn, const SiteConfig& site)
{
    if (auto checked = CheckSite(site); !checked) return checked;
    const auto folder = CheckFolder(site.documentRoot);
    if (!folder) return Fail(folder.error());
    const auto existing = txn.Find(SiteKey(site.number));
    if (!existing) return Fail(existing.error());
    if (*existing)
        return Fail(Code::AlreadyExists, kSource,
                    "There is a site " + std::to_string(site.number) + " already.");
    PropertySet server;
    server.SetText(Prop::KeyType, kWebServerType);
    server.SetText(Prop::ServerComment, site.comment);
    server.SetNumber(Prop::ServerState, kStarted);
    server.SetTextList(Prop::ServerBindings, site.bindings);
    server.SetNumber(Prop::SiteEncoding, static_cast<std::uint32_t>(site.encoding));
    server.SetNumber(Prop::SiteLevel, static_cast<std::uint32_t>(site.level));
    if (auto set = txn.SetProperties(SiteKey(site.number), server); !set) return set;
    PropertySet root;
    root.SetText(Prop::KeyType, kVirtualDirType);
    root.SetText(Prop::VirtualRoot, *folder);
    return txn.SetProperties(SiteRootKey(site.number), root);
}

// Keys on the way to a virtual directory are set up too: by their type they are told from folders that are
// there for a cached URL.
Done MarkFolders(WriteTxn& txn, std::string_view path)
{
    for (; !path.empty(); path = ParentPath(path)) {
        const auto row = txn.Find(path);
        if (!row) return Fail(row.error());
        if (!*row) return Fail(Code::FileCorrupt, kSource);
        PropertySet properties((*row)->properties);
        if (properties.Has(Prop::KeyType)) return {};
        properties.SetText(Prop::KeyType, kFolderType);
        if (auto set = txn.SetProperties(path, properties); !set) return set;
    }
    return {};
}

Done WriteVirtualDir(WriteTxn& txn, std::uint32_t site, const VirtualDir& directory)
{
    const auto checked = CheckPath(directory.urlPath);
    if (!checked) return Fail(checked.error());
    if (checked->empty()) return Fail(Code::InvalidName, kSource, "A virtual directory needs a path.");
    const auto folder = CheckFolder(directory.target);
    if (!folder) return Fail(folder.error());
    const auto root = txn.Find(SiteRootKey(site));
    if (!root) return Fail(root.error());
    if (!*root) return Fail(Code::PathNotFound, kSource, "There is no site " + std::to_string(site) + ".");

    const auto path = SiteRootKey(site) + '/' + std::string(*checked);
    const auto row = txn.Find(path);
    if (!row) return Fail(row.error());
    if (*row && IsVirtualDir(**row))
        return Fail(Code::AlreadyExists, kSource,
                    "There is a virtual directory \"" + std::string(*checked) + "\" already.");
    auto properties = *row ? PropertySet((*row)->properties) : PropertySet();
    properties.SetText(Prop::KeyType, kVirtualDirType);
    properties.SetText(Prop::VirtualRoot, *folder);
    if (auto set = txn.SetProperties(path, properties); !set) return set;
    return MarkFolders(txn, ParentPath(path));
}

Result<std::vector<SiteConfig>> ReadSites(const ReadTxn& txn)
{
    std::vector<SiteConfig> sites;
    const auto service = txn.Find(kServiceKey);
    if (!service) return Fail(service.error());
    if (!*service) return sites;
    auto cursor = ChildCursor::Open(txn);
    if (!cursor) return Fail(cursor.error());
    for (auto row = cursor->Seek((*service)->id);; row = cursor->Next()) {
        if (!row) return Fail(row.error());
        if (!*row) break;
        const auto number = SiteNumber(**row);
        if (number == 0) continue;
        sites.push_back(ReadSite(**row, number));
        const auto root = txn.Child((*row)->id, kRootName);
        if (!root) return Fail(root.error());
        if (*root) sites.back().documentRoot = TextOf(**root, Prop::VirtualRoot);
    }
    std::sort(sites.begin(), sites.end(), [](auto& a, auto& b) { return a.number < b.number; });
    return sites;
}

Result<std::vector<VirtualDir>> ReadVirtualDirs(const ReadTxn& txn, std::uint32_t site)
{
    std::vector<VirtualDir> directories;
    const auto rootKey = SiteRootKey(site);
    auto walk = KeyWalk::Begin(txn, rootKey);
    if (!walk && walk.error().Is(Code::FileNotFound)) return directories;
    if (!walk) return Fail(walk.error());
    for (;;) {
        const auto visit = walk->Next(txn);
        if (!visit) return Fail(visit.error());
        if (!*visit) break;
        if (!IsVirtualDir((*visit)->row)) continue;
        auto path = (*visit)->path;
        path.remove_prefix(std::min(path.size(), rootKey.size() + 1));
        directories.push_back({std::string(path), TextOf((*visit)->row, Prop::VirtualRoot)});
    }
    std::sort(directories.begin(), directories.end(), [](auto& a, auto& b) { return a.urlPath < b.urlPath; });
    return directories;
}

Result<std::optional<UrlPlace>> FindUrlPlace(const ReadTxn& txn, std::uint32_t site, std::string_view urlPath)
{
    const auto server = txn.Find(SiteKey(site));
    if (!server) return Fail(server.error());
    if (!*server) return std::nullopt;
    UrlPlace place;
    ReadCompression(**server, place.encoding, place.level);
    auto row = txn.Child((*server)->id, kRootName);
    auto rest = urlPath;
    for (;;) {
        if (!row) return Fail(row.error());
        if (!*row) break;
        if (IsVirtualDir(**row)) {
            place.folder = TextOf(**row, Prop::VirtualRoot);
            place.rest = rest;
        }
        if (rest.empty()) break;
        row = txn.Child((*row)->id, TakeSegment(rest));
    }
    if (place.folder.empty()) return std::nullopt;
    return place;
}

}  // namespace zentrel
