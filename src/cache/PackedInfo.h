#pragma once

#include "base/ChunkedVector.h"
#include "cache/FileInfo.h"

#include <vector>

// The record of one cached URL as the tree stores it: 96 bytes. The texts of a FileInfo are left out; they
// follow from the URL's place in the tree.
struct PackedInfo {
    double uncompressedSize;
    double compressedSize;
    double cacheDate;  // days, as in DateTime
    double expires;
    double fileDate;
    double totalLife;
    double cpuTime;
    std::uint64_t queryHash;
    std::int32_t compLevel;
    std::int32_t totalHits;
    std::int32_t cacheHits;
    std::int32_t overwrites;
    std::int32_t cacheId;
    std::int32_t subQueryCount;
    std::uint32_t root;  // index into the store's virtual roots
    bool isDeflate;
};

// All records of a tree.
class PackedInfos {
public:
    using Index = std::uint32_t;
    static constexpr Index None = ~Index{0};

    Index Add(const FileInfo& info);
    void Replace(Index index, const FileInfo& info);

    // The working form; metaPath: the URL's path in the metabase, without a leading "/".
    FileInfo Unpack(Index index, std::string_view metaPath) const;

    const PackedInfo& operator[](Index index) const { return m_infos[index]; }
    float Ratio(Index index) const;
    void Clear();

private:
    PackedInfo Pack(const FileInfo& info);
    std::uint32_t RootIndex(const VirtualRootMatch& match);

    ChunkedVector<PackedInfo> m_infos;
    std::vector<VirtualRootMatch> m_roots;  // few: one for each site and virtual directory
    std::uint32_t m_lastRoot = 0;
};
