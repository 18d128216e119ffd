#pragma once

#include "base/Result.h"
#include "zentrel/CacheFileReader.h"
#include "zentrel/CachedFile.h"
#include "zentrel/FileHandle.h"

#include <atomic>
#include <filesystem>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zentrel {

// A file on its way into the cache folder. One that was not put in its place goes with its owner.
class StagedFile {
public:
    ~StagedFile();
    StagedFile(StagedFile&&) noexcept = default;
    StagedFile& operator=(StagedFile&&) noexcept = default;

private:
    friend class CacheFolder;
    StagedFile(FileHandle folder, std::string name) : m_folder(std::move(folder)), m_name(std::move(name)) {}

    FileHandle m_folder;  // that it lies in; empty once it was put in its place
    std::string m_name;
};

// The files of the cached responses. Never reads or writes outside its folder: a link in the place of a
// file or folder is not followed. Any thread.
class CacheFolder {
public:
    explicit CacheFolder(std::filesystem::path root) : m_root(std::move(root)) {}

    const std::filesystem::path& Root() const { return m_root; }

    // Writes a file beside the others, and puts it in its place in one step: a reader sees the old file or
    // the new one. After a failure the old one stands and nothing is left behind. DiskFull, IoError.
    Result<StagedFile> Stage(std::span<const std::byte> bytes) const;
    Done Place(StagedFile staged, const CachedFile& file) const;

    Result<Bytes> Read(const CachedFile& file) const;  // FileNotFound
    Result<std::unique_ptr<CacheFileReader>> Open(const CachedFile& file) const;
    Result<std::uint64_t> Size(const CachedFile& file) const;  // bytes; FileNotFound

    // Removes the files and the folders that they leave empty. Those that are not there do no harm; what
    // cannot be removed does not keep the others.
    Done Remove(std::vector<CachedFile> files) const;

    // Removes what writers that were cut short left behind.
    Done RemoveStaged() const;

    // Calls `take` for each cached file, in no order, and ends with its first error. Files that are not the
    // cache's are passed over. `take` may remove the file it is told of.
    Done ForEachFile(const std::function<Done(const CachedFile&)>& take) const;

private:
    struct Opened {
        FileHandle file;  // a regular one
        std::uint64_t size = 0;
    };

    Result<FileHandle> OpenFolder(std::string_view relative, bool make) const;
    Result<Opened> OpenFile(const CachedFile& file) const;
    Done RemoveInFolder(std::span<const CachedFile> files) const;  // all of one folder, at least one
    void RemoveEmptyFolders(std::string_view relative) const;

    std::filesystem::path m_root;
    mutable std::atomic<std::uint64_t> m_lastStaged = 0;
};

}  // namespace zentrel
