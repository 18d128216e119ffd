#include "zentrel/CacheFolder.h"

#include "zentrel/Directory.h"
#include "zentrel/KeyPath.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <tuple>
#include <unistd.h>

namespace zentrel {

namespace {

constexpr std::string_view kSource = "Cache folder";
constexpr std::string_view kStagingFolder = "tmp";
constexpr int kFolderFlags = O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
constexpr mode_t kFolderMode = 0750;
constexpr mode_t kFileMode = 0640;

std::string Leaf(const std::string& path)
{
    return std::string(LastSegment(path));
}

class OpenedFile : public CacheFileReader {
public:
    OpenedFile(FileHandle file, std::uint64_t size) : m_file(std::move(file)), m_size(size), m_left(size) {}

    std::uint64_t Size() const override { return m_size; }
    Result<Bytes> Read(std::size_t most) override
    {
        if (most == 0) return Fail(Code::InvalidParameter, kSource);
        Bytes bytes(static_cast<std::size_t>(std::min<std::uint64_t>(most, m_left)));
        auto got = read(m_file.Get(), bytes.data(), bytes.size());
        while (got < 0 && errno == EINTR) got = read(m_file.Get(), bytes.data(), bytes.size());
        if (got < 0) return FailErrno(errno, kSource, "Cannot read a cached file");
        bytes.resize(static_cast<std::size_t>(got));
        m_left = bytes.empty() ? 0 : m_left - bytes.size();  // an end that was told stays the end
        return bytes;
    }

private:
    FileHandle m_file;
    std::uint64_t m_size;
    std::uint64_t m_left;
};

}  // namespace

// Opens a folder below the root, one level after the other, so that none of them can be a link.
Result<FileHandle> CacheFolder::OpenFolder(std::string_view relative, bool make) const
{
    FileHandle folder(open(m_root.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!folder && make && errno == ENOENT && mkdir(m_root.c_str(), kFolderMode) == 0)
        folder = FileHandle(open(m_root.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    while (folder && !relative.empty()) {
        const std::string name(TakeSegment(relative));
        FileHandle next(openat(folder.Get(), name.c_str(), kFolderFlags));
        if (!next && make && errno == ENOENT &&
            (mkdirat(folder.Get(), name.c_str(), kFolderMode) == 0 || errno == EEXIST))
            next = FileHandle(openat(folder.Get(), name.c_str(), kFolderFlags));
        folder = std::move(next);
    }
    if (!folder) return FailErrno(errno, kSource, "Cannot open a folder of the cache");
    return folder;
}

StagedFile::~StagedFile()
{
    if (m_folder) unlinkat(m_folder.Get(), m_name.c_str(), 0);
}

Result<StagedFile> CacheFolder::Stage(std::span<const std::byte> bytes) const
{
    auto folder = OpenFolder(kStagingFolder, true);
    if (!folder) return Fail(folder.error());
    auto name = std::to_string(++m_lastStaged);
    const int flags = O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC;
    const FileHandle file(openat(folder->Get(), name.c_str(), flags, kFileMode));
    if (!file) return FailErrno(errno, kSource, "Cannot make a cached file");
    StagedFile staged(std::move(*folder), std::move(name));
    if (auto written = WriteAll(file, bytes, kSource); !written) return Fail(written.error());
    return staged;
}

Done CacheFolder::Place(StagedFile staged, const CachedFile& file) const
{
    const auto path = file.Path();
    // A folder that was just left empty may be removed by somebody else in between.
    for (int attempt = 0;; ++attempt) {
        const auto folder = OpenFolder(ParentPath(path), true);
        if (!folder) return Fail(folder.error());
        const auto name = Leaf(path);
        if (renameat(staged.m_folder.Get(), staged.m_name.c_str(), folder->Get(), name.c_str()) == 0) break;
        if (errno != ENOENT || attempt == 3) return FailErrno(errno, kSource, "Cannot place " + path);
    }
    staged.m_folder.Close();
    return {};
}

Result<CacheFolder::Opened> CacheFolder::OpenFile(const CachedFile& file) const
{
    constexpr int kFlags =
        O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;  // a pipe would wait for its writer
    const auto path = file.Path();
    const auto folder = OpenFolder(ParentPath(path), false);
    if (!folder) return Fail(folder.error());
    FileHandle handle(openat(folder->Get(), Leaf(path).c_str(), kFlags));
    struct stat status {};
    if (!handle && errno == ELOOP) return Fail(Code::FileNotFound, kSource);  // a link
    if (!handle || fstat(handle.Get(), &status) != 0)
        return FailErrno(errno, kSource, "Cannot open the cached file " + path);
    if (!S_ISREG(status.st_mode)) return Fail(Code::FileNotFound, kSource);
    return Opened{std::move(handle), static_cast<std::uint64_t>(status.st_size)};
}

Result<Bytes> CacheFolder::Read(const CachedFile& file) const
{
    const auto opened = OpenFile(file);
    if (!opened) return Fail(opened.error());
    return ReadToEnd(opened->file, static_cast<std::size_t>(opened->size), kSource);
}

Result<std::unique_ptr<CacheFileReader>> CacheFolder::Open(const CachedFile& file) const
{
    auto opened = OpenFile(file);
    if (!opened) return Fail(opened.error());
    return std::unique_ptr<CacheFileReader>(
        std::make_unique<OpenedFile>(std::move(opened->file), opened->size));
}

Result<std::uint64_t> CacheFolder::Size(const CachedFile& file) const
{
    const auto path = file.Path();
    const auto folder = OpenFolder(ParentPath(path), false);
    if (!folder) return Fail(folder.error());
    struct stat status {};
    if (fstatat(folder->Get(), Leaf(path).c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0)
        return FailErrno(errno, kSource, "Cannot find the cached file " + path);
    if (!S_ISREG(status.st_mode)) return Fail(Code::FileNotFound, kSource);
    return static_cast<std::uint64_t>(status.st_size);
}

Done CacheFolder::Remove(std::vector<CachedFile> files) const
{
    // Folder by folder, each with the folders of its variants before its own files.
    const auto place = [](const CachedFile& file) {
        return std::tuple(file.id / 256, file.query == 0, file.query == 0 ? 0 : file.id);
    };
    std::sort(files.begin(), files.end(), [&](const CachedFile& a, const CachedFile& b) {
        return std::pair(place(a), a) < std::pair(place(b), b);
    });
    Done outcome;
    for (auto next = files.begin(); next != files.end();) {
        const auto end = std::find_if(next, files.end(),
                                      [&](const CachedFile& file) { return place(file) != place(*next); });
        if (auto removed = RemoveInFolder({next, end}); !removed) outcome = removed;
        next = end;
    }
    return outcome;
}

Done CacheFolder::RemoveInFolder(std::span<const CachedFile> files) const
{
    const auto first = files.front().Path();
    const auto folderPath = ParentPath(first);
    const auto folder = OpenFolder(folderPath, false);
    if (!folder) return folder.error().Is(Code::FileNotFound) ? Done{} : Fail(folder.error());
    Done outcome;
    for (const auto& file : files)
        if (unlinkat(folder->Get(), Leaf(file.Path()).c_str(), 0) != 0 && errno != ENOENT)
            outcome = FailErrno(errno, kSource, "Cannot remove the cached file " + file.Path());
    RemoveEmptyFolders(folderPath);
    return outcome;
}

void CacheFolder::RemoveEmptyFolders(std::string_view relative) const
{
    for (; !relative.empty(); relative = ParentPath(relative)) {
        const auto parent = OpenFolder(ParentPath(relative), false);
        const std::string name(LastSegment(relative));
        if (!parent || unlinkat(parent->Get(), name.c_str(), AT_REMOVEDIR) != 0) break;  // not empty
    }
}

Done CacheFolder::RemoveStaged() const
{
    const auto folder = OpenFolder(kStagingFolder, false);
    if (!folder) return {};
    const auto directory = Directory::Open(*folder);
    if (!directory) return Fail(directory.error());
    while (const auto* found = directory->Next())
        if (unlinkat(folder->Get(), found->d_name, 0) != 0 && errno != ENOENT && errno != EISDIR)
            return FailErrno(errno, kSource, "Cannot remove a file that was being written");
    return {};
}

Done CacheFolder::ForEachFile(const std::function<Done(const CachedFile&)>& take) const
{
    constexpr auto kDeepest = 2;  // folders of ids, and in those the folders of an id's variants
    std::vector<std::string> open{std::string()};
    while (!open.empty()) {
        const auto relative = std::move(open.back());
        open.pop_back();
        const auto folder = OpenFolder(relative, false);
        if (!folder && (folder.error().Is(Code::FileNotFound) || folder.error().Is(Code::PathNotFound)))
            continue;  // gone, or a link
        if (!folder) return Fail(folder.error());
        const auto directory = Directory::Open(*folder);
        if (!directory) return Fail(directory.error());
        const auto depth = relative.empty() ? 0 : relative.find('/') == std::string::npos ? 1 : 2;
        while (const auto* found = directory->Next()) {
            const std::string_view name(found->d_name);
            auto path = relative.empty() ? std::string(name) : relative + '/' + std::string(name);
            if (const auto file = CachedFile::Parse(path)) {
                if (auto taken = take(*file); !taken) return taken;
            } else if (depth < kDeepest && found->d_type != DT_REG) {
                open.push_back(std::move(path));
            }
        }
    }
    return {};
}

}  // namespace zentrel
