#pragma once

#include "base/DateTime.h"
#include "cache/VirtualRoots.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

// The statistics of one cached file, or of a group of files summed up: a folder, a file type, the cache.
// Sizes are bytes, times counts of 100 nanoseconds. What comes from a server may be any bytes.
class FileInfo {
public:
    // Add and Subtract sum the fields marked "summed"; 32-bit sums wrap around.
    std::int32_t CompLevel = 0;   // compression level; summed
    double UncompressedSize = 0;  // summed
    double CompressedSize = 0;    // summed
    DateTime CacheDate;           // when the entry was cached
    DateTime Expires;
    DateTime FileDate;               // time stamp of the source file
    std::int32_t TotalHits = 0;      // requests for the entry; summed
    std::int32_t CacheHits = 0;      // requests answered from the cache; summed
    std::int32_t Overwrites = 0;     // times the cached version was replaced; summed
    double TotalLife = 0;            // lifetimes of the replaced versions together; summed
    double CpuTime = 0;              // processor time of compression; summed
    std::string Extension;           // file type in lower case, without the dot
    std::string FilePath;            // URL path below the site's root, begins with "/"
    std::string FileName;            // last segment of the path
    std::int32_t CacheID = 0;        // the service's number for the entry; 0 = none
    std::string CacheExt;            // ".gzip" or ".deflate"
    std::int32_t SubQueryCount = 0;  // query-string variants cached under the URL
    std::string QueryHash;           // hexadecimal key of the variant; empty = none
    double ServedCompressed = 0;     // bytes sent compressed; summed
    double UncompEquivalent = 0;     // bytes that would have been sent uncompressed; summed
    std::int32_t Count = 0;          // files in the record, 1 for one file; summed

    void Add(const FileInfo& other);
    void Subtract(const FileInfo& other);

    // As new, but the texts keep their memory: a scan uses one record for a million entries.
    void Clear();

    // Derived values; 0 where the divisor is not positive.
    double CurrentSavings() const { return UncompressedSize - CompressedSize; }
    double BandwidthSavings() const { return UncompEquivalent - ServedCompressed; }
    float Ratio() const;  // what remains after compression: 0.25 = a quarter
    float Boost() const;  // how much more could be served in the same bandwidth: 3 = three times more
    std::int32_t AvgCompLevel() const;
    float CacheHitsRatio() const;
    double AvgCacheLife() const;
    double CompCpuTime() const { return Count == 1 ? CpuTime : 0; }  // a group shows no processor time

    // "/" and the path in the metabase, as in /LM/W3SVC/1/Root/dir/page.htm.
    std::string MetaPath() const { return "/" + m_metaPath; }

    // Sets the path, with or without a leading "/", and with it Extension, FilePath and FileName. The
    // physical path is settled now, by a search through `reader` or by a match found before.
    void SetMetaPath(std::string_view path, VirtualRootReader& reader);
    void SetMetaPath(std::string_view path, const VirtualRootMatch& match);
    const VirtualRootMatch& RootMatch() const { return m_rootMatch; }

    // Sets FilePath and FileName from a tree key, as in 1/Root/dir/page.htm.
    void SetRelPath(std::string_view treeKey);

    // The file's path on the server, with backslashes; empty when its virtual root is not known.
    std::string PhysycalPath() const { return PhysicalPath(m_metaPath, m_rootMatch); }

    // The compressed file below the service's cache folder, with backslashes; empty without a CacheID.
    std::string CacheFilePath() const;

    // Parse the value of a cache record (528404, 528405) and of a statistics record (528410). Count becomes
    // 1; bytes that are not such a record change nothing else.
    void RawBinary_528404(std::span<const std::byte> value);
    void RawBinary_528410(std::span<const std::byte> value);

    friend bool operator==(const FileInfo&, const FileInfo&) = default;

private:
    void SetParts(std::string_view path);
    void SetUrlPath(std::string_view path, std::size_t slashesBeforeUrl);
    void MultiplyHits();

    std::string m_metaPath;  // without a leading "/"
    VirtualRootMatch m_rootMatch;
};
