#include "cache/PackedInfo.h"

#include "zentrel/RecordLayout.h"

#include <algorithm>
#include <charconv>

namespace {

constexpr std::string_view kDeflateExt = ".deflate";
constexpr std::string_view kGzipExt = ".gzip";
constexpr std::size_t kRootsSearched = 64;  // a server that lies about its roots costs memory, not time

std::uint64_t HashFromText(std::string_view hex)
{
    std::uint64_t value = 0;
    std::from_chars(hex.data(), hex.data() + hex.size(), value, 16);
    return value;
}

}  // namespace

std::uint32_t PackedInfos::RootIndex(const VirtualRootMatch& match)
{
    if (m_lastRoot < m_roots.size() && m_roots[m_lastRoot] == match) return m_lastRoot;
    const auto searched = std::min(m_roots.size(), kRootsSearched);
    const auto from = m_roots.end() - static_cast<std::ptrdiff_t>(searched);
    auto found = std::find(from, m_roots.end(), match);
    if (found == m_roots.end()) found = m_roots.insert(m_roots.end(), match);
    m_lastRoot = static_cast<std::uint32_t>(found - m_roots.begin());
    return m_lastRoot;
}

PackedInfo PackedInfos::Pack(const FileInfo& info)
{
    PackedInfo packed{};
    packed.uncompressedSize = info.UncompressedSize;
    packed.compressedSize = info.CompressedSize;
    packed.cacheDate = info.CacheDate.days;
    packed.expires = info.Expires.days;
    packed.fileDate = info.FileDate.days;
    packed.totalLife = info.TotalLife;
    packed.cpuTime = info.CpuTime;
    packed.queryHash = HashFromText(info.QueryHash);
    packed.compLevel = info.CompLevel;
    packed.totalHits = info.TotalHits;
    packed.cacheHits = info.CacheHits;
    packed.overwrites = info.Overwrites;
    packed.cacheId = info.CacheID;
    packed.subQueryCount = info.SubQueryCount;
    packed.root = RootIndex(info.RootMatch());
    packed.isDeflate = info.CacheExt == kDeflateExt;
    return packed;
}

PackedInfos::Index PackedInfos::Add(const FileInfo& info)
{
    m_infos.push_back(Pack(info));
    return static_cast<Index>(m_infos.size() - 1);
}

void PackedInfos::Replace(Index index, const FileInfo& info)
{
    m_infos[index] = Pack(info);
}

FileInfo PackedInfos::Unpack(Index index, std::string_view metaPath) const
{
    const auto& packed = m_infos[index];
    FileInfo info;
    info.UncompressedSize = packed.uncompressedSize;
    info.CompressedSize = packed.compressedSize;
    info.CacheDate.days = packed.cacheDate;
    info.Expires.days = packed.expires;
    info.FileDate.days = packed.fileDate;
    info.TotalLife = packed.totalLife;
    info.CpuTime = packed.cpuTime;
    info.QueryHash = zentrel::QueryHashText(packed.queryHash);
    info.CompLevel = packed.compLevel;
    info.TotalHits = packed.totalHits;
    info.CacheHits = packed.cacheHits;
    info.Overwrites = packed.overwrites;
    info.CacheID = packed.cacheId;
    info.SubQueryCount = packed.subQueryCount;
    info.CacheExt = packed.isDeflate ? kDeflateExt : kGzipExt;
    info.ServedCompressed = info.TotalHits * info.CompressedSize;
    info.UncompEquivalent = info.TotalHits * info.UncompressedSize;
    info.Count = 1;
    info.SetMetaPath(metaPath, m_roots[packed.root]);
    return info;
}

float PackedInfos::Ratio(Index index) const
{
    FileInfo sizes;
    sizes.CompressedSize = m_infos[index].compressedSize;
    sizes.UncompressedSize = m_infos[index].uncompressedSize;
    return sizes.Ratio();
}

void PackedInfos::Clear()
{
    m_infos.clear();
    m_roots.clear();
    m_lastRoot = 0;
}
