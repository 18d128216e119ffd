#include "ops/CachedFileName.h"

std::string CacheFolderName(std::string_view cacheDir, bool isLocal, std::string_view serverName)
{
    std::string folder(cacheDir);
    if (isLocal) return folder;
    if (folder.size() > 1 && folder[1] == ':') folder[1] = '$';
    return "\\\\" + std::string(serverName) + '\\' + folder;
}

std::string CachedFileName(std::string_view cacheFolder, std::string_view cacheFilePath)
{
    return std::string(cacheFolder) + '\\' + std::string(cacheFilePath);
}
