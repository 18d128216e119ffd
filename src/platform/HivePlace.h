#pragma once

#include "base/Result.h"

#include <filesystem>
#include <string_view>

#include <sys/stat.h>

// What stands at a path where a hive is looked for.
struct HivePlace {
    enum class Kind { Nothing, File, SomethingElse };

    std::filesystem::path path;  // absolute; where a symbolic link leads, when it leads to a file
    Kind kind = Kind::Nothing;
    struct stat status {};  // of a file
};

// Opens nothing, so that neither a pipe can block nor a lock on the file be lost. SomethingElse also for a
// link that leads nowhere, and when one of SQLite's companions of the file is no file.
HivePlace LookAtHive(const std::filesystem::path& path);

// Keeps other processes from opening or moving hives of the folder, so that none takes the log of a new hive
// for that of the bad one that it has open. Waits for five seconds at most, then and in a folder that cannot
// be locked goes on without; a process that runs already is not kept from anything.
class FolderLock {
public:
    explicit FolderLock(const std::filesystem::path& folder);
    ~FolderLock();
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

private:
    const int m_descriptor;
};

// Makes an empty file for this user only, and the folders on the way to it likewise. Not an error when the
// file exists by now.
Done MakeHiveFile(const std::filesystem::path& path);

// Renames the file with its companions to a free name, "settings.hive.<why>-20261122-235959", and returns
// that. SharingViolation when another file took its place since it was looked at, AccessDenied when the
// folder does not let it.
Result<std::filesystem::path> MoveHiveAside(const HivePlace& place, std::string_view why);
