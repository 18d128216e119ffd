#pragma once

#include "base/Result.h"
#include "zentrel/Encoding.h"
#include "zentrel/Metabase.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zentrel {

inline constexpr std::string_view kServiceKey = "LM/W3SVC";  // its children are the sites
inline constexpr std::string_view kRootName = "Root";        // a site's child that its URLs are below

// A web site as the administrator sets it up.
struct SiteConfig {
    std::uint32_t number = 0;            // 1 to 2^31 - 1; names the site's key
    std::string comment;                 // the site's name for people; at most 1000 bytes of UTF-8
    std::vector<std::string> bindings;   // "address:port:host", each at most 1000 bytes of UTF-8
    std::filesystem::path documentRoot;  // an existing folder; kept as an absolute path
    Encoding encoding = Encoding::Gzip;  // what the site prefers when the client takes both
    int level = 6;                       // 1 to 9
};

// A folder that the URLs at and below a path are read from.
struct VirtualDir {
    std::string urlPath;           // "docs/api", without a slash at either end; empty for the site's root
    std::filesystem::path target;  // absolute
};

// Where a URL is read from, and how its site compresses.
struct UrlPlace {
    std::filesystem::path folder;  // the target of the longest virtual directory above the URL
    std::string rest;              // the URL's path below that folder
    Encoding encoding = Encoding::Gzip;
    int level = 6;
};

// The site keys of the store. What Service says of its operations of the same names holds here.
Done WriteSite(WriteTxn& txn, const SiteConfig& site);
Done WriteVirtualDir(WriteTxn& txn, std::uint32_t site, const VirtualDir& directory);
Result<std::vector<SiteConfig>> ReadSites(const ReadTxn& txn);
Result<std::vector<VirtualDir>> ReadVirtualDirs(const ReadTxn& txn, std::uint32_t site);
Result<std::optional<UrlPlace>> FindUrlPlace(const ReadTxn& txn, std::uint32_t site,
                                             std::string_view urlPath);

}  // namespace zentrel
