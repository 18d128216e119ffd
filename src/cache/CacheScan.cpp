#include "cache/CacheScan.h"

#include "base/FillIn.h"
#include "base/Translate.h"
#include "cache/PathPieces.h"

namespace {

constexpr std::string_view kScanRoot = "LM/W3SVC/";

// Far above the URLs that web servers take. What lies deeper is not looked at: each level costs a look at
// the whole path, and its server may be making it up.
constexpr std::size_t kLongestPath = 16'384;

// Property 3001 of keys, read from the server. Errors count as absence.
class AdminRoots : public VirtualRootReader {
public:
    explicit AdminRoots(zentrel::ServerAdmin& server) : m_server(server) {}

    std::string_view VirtualRoot(std::string_view key) override
    {
        const auto record = m_server.GetData(key, zentrel::Prop::VirtualRoot);
        m_value.clear();
        if (record && *record) m_value = (*record)->Text();
        return m_value;
    }

private:
    zentrel::ServerAdmin& m_server;
    std::string m_value;
};

bool MeansNoService(const SystemError& error)
{
    return error.Is(Code::UnknownInterface) || error.Is(Code::ServerUnavailable) ||
           error.Is(Code::InterfaceNotFound);
}

}  // namespace

void CacheScan::Rescan(std::span<const std::int32_t> sites, const bool& isConnected)
{
    if (m_isBusy || !isConnected) return;
    m_isBusy = true;
    m_stop.isSet = false;  // a Stop from before must not empty this scan
    m_host.screen.HideTree();
    Clear();
    Load(sites);
    m_host.screen.ShowTree();
    m_host.pump.Run();
    m_host.pointer.Set(ScreenPointer::Default);
    m_isBusy = false;
}

void CacheScan::LoadInfo2(std::span<const std::int32_t> sites)
{
    if (m_isBusy) return;
    m_isBusy = true;
    m_stop.isSet = false;
    m_host.screen.ForgetContents();
    Load(sites);
    m_isBusy = false;
}

void CacheScan::ClearAll()
{
    if (!m_isBusy) Clear();
}

void CacheScan::Clear()
{
    m_host.screen.ForgetContents();
    m_contents.tree.Clear();
    m_contents.types.Clear();
    m_contents.totals = FileInfo();
}

void CacheScan::Load(std::span<const std::int32_t> sites)
{
    m_builder.AddRootNode();
    m_loadingInfo = Translate("CacheScan", "Loading Info: ");
    const auto opened = m_cache.OpenKey("/LM/W3SVC");
    if (!opened && MeansNoService(opened.error())) {
        m_host.boxes.Show(
            Translate("CacheScan", "Zentrel is not started on this server or it is an older version"),
            BoxStyle::Exclamation, m_host.screen.Caption());
        m_host.screen.ShowContents();
        m_stop.isSet = false;
        return;
    }
    for (const auto site : std::vector<std::int32_t>(sites.begin(), sites.end())) {
        if (site < 1) continue;
        ScanKey(std::string(kScanRoot) + std::to_string(site));
        m_host.pump.Run();
    }
    m_host.screen.ShowContents();
    m_host.status.SetStatus(
        FillIn(Translate("CacheScan", "Found: %1 Files"), {std::to_string(m_contents.totals.Count)}));
    m_stop.isSet = false;
}

// Scans a key and all keys below it, parents before their children. Keys may be as deep as the server
// likes, so the levels are kept here and not on the stack.
void CacheScan::ScanKey(const std::string& top)
{
    if (m_stop.isSet) return;
    const zentrel::ReadAhead readAhead(m_cache, m_server, top);
    m_path = top;
    EnterKey();
    while (!m_levels.empty() && !m_stop.isSet) {
        auto& level = m_levels.back();
        m_path.resize(level.pathEnd);
        if (!level.keys.Next()) {
            LeaveKey();
            m_host.pump.Run();
            continue;
        }
        m_path += '/';
        m_path += level.keys.Name();
        LookAtKey();
        m_host.pump.Run();
        if (!m_stop.isSet) EnterKey();
    }
    while (!m_levels.empty()) LeaveKey();
}

void CacheScan::EnterKey()
{
    if (m_path.size() > kLongestPath) return;
    CWaitCursor wait(m_host.pointer);
    wait.ShowCursor(ScreenPointer::Hourglass);
    auto keys = m_cache.EnumKeys(m_path);
    if (keys && keys->Count() != 0) {
        auto root = RootAbove();
        AdminRoots roots(m_server);
        if (const auto own = roots.VirtualRoot(m_path); !own.empty())
            root = std::make_shared<VirtualRootMatch>(
                VirtualRootMatch{std::string(own), static_cast<std::uint32_t>(CountSlashes(m_path))});
        m_levels.push_back({std::move(*keys), m_path.size(), std::move(root)});
        return;
    }
    const auto key = TreeKey();
    if (!key.empty() && key.find('/') == std::string_view::npos) m_builder.AddEmptySite(key);
}

void CacheScan::LeaveKey()
{
    m_path.resize(m_levels.back().pathEnd);
    m_levels.pop_back();
    m_builder.SortChildren(TreeKey(), [this] { m_host.pump.Run(); });
}

std::string_view CacheScan::TreeKey() const
{
    return std::string_view(m_path).substr(kScanRoot.size());
}

std::optional<zentrel::Record> CacheScan::Read(const std::string& path, zentrel::PropertyId id)
{
    auto record = m_cache.GetData(path, id);
    return record ? std::move(*record) : std::nullopt;
}

void CacheScan::LookAtKey()
{
    const auto statistics = Read(m_path, zentrel::Prop::Statistics);
    const auto cacheId = Read(m_path, zentrel::Prop::CacheId);
    if (cacheId) AddEntry(cacheId->Number(), statistics);
}

// The record of the encoding that the cached file has; gzip where there are both.
std::optional<zentrel::Record> CacheScan::ReadCacheRecord(const std::string& path)
{
    m_info.CacheExt = ".gzip";
    auto record = Read(path, zentrel::Prop::GzipRecord);
    if (record) return record;
    record = Read(path, zentrel::Prop::DeflateRecord);
    m_info.CacheExt = ".deflate";
    return record;
}

void CacheScan::AddEntry(std::uint32_t cacheId, const std::optional<zentrel::Record>& statistics)
{
    m_statusText = m_loadingInfo;
    m_statusText += m_path;
    m_host.status.SetStatus(m_statusText);

    const auto variants = m_cache.EnumKeys(m_path);
    const auto variantCount = variants ? variants->Count() : 0;
    m_info.Clear();
    std::optional<zentrel::Record> record;
    if (variantCount == 0) {
        record = ReadCacheRecord(m_path);
    } else if (const auto first = variants->Item(1)) {
        record = ReadCacheRecord(m_path + "/" + *first);
    }
    if (!record) return;

    m_info.RawBinary_528404(record->Value());
    if (statistics) m_info.RawBinary_528410(statistics->Value());
    SetMetaPath();
    m_info.CacheID = static_cast<std::int32_t>(cacheId);
    m_info.SubQueryCount = static_cast<std::int32_t>(variantCount);
    m_builder.AddFileNode(TreeKey(), m_info);
    m_contents.totals.Add(m_info);
    m_contents.types.Find(m_info.Extension).Add(m_info);
}

std::shared_ptr<const VirtualRootMatch> CacheScan::RootAbove() const
{
    static const auto none = std::make_shared<const VirtualRootMatch>();
    return m_levels.empty() ? none : m_levels.back().root;
}

// A URL that is no virtual root itself lies under that of the key above it, which was found on the way down.
void CacheScan::SetMetaPath()
{
    AdminRoots roots(m_server);
    if (roots.VirtualRoot(m_path).empty())
        m_info.SetMetaPath(m_path, *RootAbove());
    else
        m_info.SetMetaPath(m_path, roots);
}

void CacheScan::RefreshFileNode(NodeId node)
{
    auto& tree = m_contents.tree;
    if (node == kNoNode || m_isBusy || !IsUrl(tree.Kind(node))) return;
    auto info = tree.HasInfo(node) ? tree.Info(node) : FileInfo();
    if (tree.HasInfo(node)) m_contents.totals.Subtract(info);

    const auto path = "/" + std::string(kScanRoot) + tree.Key(node);
    if (const auto record = Read(path, zentrel::Prop::GzipRecord)) info.RawBinary_528404(record->Value());
    const auto variants = m_cache.EnumKeys(path);
    if (variants && variants->Count() != 0) {
        if (const auto first = variants->Item(1))
            if (const auto record = Read(path + "/" + *first, zentrel::Prop::GzipRecord))
                info.RawBinary_528404(record->Value());
    }
    AdminRoots roots(m_server);
    info.SetMetaPath(path, roots);
    tree.SetText(node, tree.Text(node));
    tree.SetInfo(node, info);
    m_contents.totals.Add(info);
}
