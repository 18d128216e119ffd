#pragma once

#include <string>
#include <string_view>

// The service's cache folder as this machine names it: cacheDir itself, or on another server the share that
// it lies on, so that "D:\cache" on "web01" becomes "\\web01\D$\cache".
std::string CacheFolderName(std::string_view cacheDir, bool isLocal, std::string_view serverName);

// Names a cached file to the user. cacheFilePath: below that folder, for example "12\1234.gzip".
std::string CachedFileName(std::string_view cacheFolder, std::string_view cacheFilePath);
