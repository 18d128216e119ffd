#pragma once

#include <cstdint>
#include <string>

// What the file details dialog shows of one cached file, and where its compressed bytes are. Texts are UTF-8,
// or whatever bytes the server sent; sizes are bytes.
struct FileDetails {
    std::string FileName;
    std::string FilePath;       // URL path below the site's root
    std::string PhysycalPath;   // of the file on the server
    std::string CacheFilePath;  // below the service's cache folder, for example "12\1234.gzip"
    std::int32_t CompLevel = 0;
    double CompressedSize = 0;
    double UncompressedSize = 0;
    float Ratio = 0;  // the fraction that compression leaves
    std::int32_t TotalHits = 0;
    std::int32_t CacheHits = 0;
};
