#include "zentrel/SourceFile.h"

#include <array>
#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace zentrel {

namespace {

constexpr std::string_view kSource = "Site";
constexpr std::uint64_t kTicksTo1970 = 116'444'736'000'000'000;
constexpr std::uint64_t kTicksPerSecond = 10'000'000;

FileStamp StampOf(const struct stat& status)
{
    const auto& time = status.st_mtim;
    const auto seconds = static_cast<std::uint64_t>(time.tv_sec) * kTicksPerSecond;
    return {kTicksTo1970 + seconds + static_cast<std::uint64_t>(time.tv_nsec) / 100,
            static_cast<std::uint64_t>(status.st_size)};
}

std::string DescriptorPath(const FileHandle& file)
{
    return "/proc/self/fd/" + std::to_string(file.Get());
}

// The path that an open file or folder really has, all links followed; empty when the system hides it.
std::string RealPath(const FileHandle& file)
{
    std::array<char, PATH_MAX> text;
    const auto length = readlink(DescriptorPath(file).c_str(), text.data(), text.size());
    return length > 0 ? std::string(text.data(), static_cast<std::size_t>(length)) : std::string();
}

bool LiesWithin(const FileHandle& file, const FileHandle& folder)
{
    auto top = RealPath(folder);
    if (top.empty()) return false;
    if (top.back() != '/') top += '/';
    return RealPath(file).starts_with(top);
}

}  // namespace

Result<SourceFile> SourceFile::Open(const std::filesystem::path& folder, const std::string& relative)
{
    const FileHandle top(open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!top) return FailErrno(errno, kSource, "Cannot open the folder " + folder.string());
    // Looked at before it is opened for reading: opening a pipe or a device may do something.
    const FileHandle place(openat(top.Get(), relative.c_str(), O_PATH | O_CLOEXEC));
    struct stat status {};
    if (!place || fstat(place.Get(), &status) != 0)
        return FailErrno(errno, kSource, "Cannot open the file " + relative);
    if (S_ISDIR(status.st_mode)) return Fail(Code::FileNotFound, kSource);
    if (!S_ISREG(status.st_mode) || !LiesWithin(place, top)) return Fail(Code::AccessDenied, kSource);
    FileHandle file(open(DescriptorPath(place).c_str(), O_RDONLY | O_CLOEXEC));
    if (!file) return FailErrno(errno, kSource, "Cannot open the file " + relative);
    return SourceFile(std::move(file), StampOf(status));
}

Result<Bytes> SourceFile::Read() const
{
    return ReadToEnd(m_file, m_stamp.size, kSource);
}

bool SourceFile::HasChanged() const
{
    struct stat status {};
    return fstat(m_file.Get(), &status) != 0 || StampOf(status) != m_stamp;
}

}  // namespace zentrel
