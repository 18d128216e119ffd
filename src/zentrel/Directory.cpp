#include "zentrel/Directory.h"

#include <cerrno>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace zentrel {

namespace {

constexpr int kFlags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;

}  // namespace

Result<Directory> Directory::Open(const FileHandle& folder)
{
    return From(openat(folder.Get(), ".", kFlags));
}

Result<Directory> Directory::Open(const std::filesystem::path& path)
{
    return From(open(path.c_str(), kFlags));
}

Result<Directory> Directory::From(int descriptor)
{
    auto* directory = descriptor < 0 ? nullptr : fdopendir(descriptor);
    if (directory != nullptr) return Directory(directory);
    const int error = errno;
    if (descriptor >= 0) close(descriptor);
    return FailErrno(error, "Folder", "Cannot read a folder");
}

const dirent* Directory::Next() const
{
    for (;;) {
        const auto* found = readdir(m_directory.get());
        if (found == nullptr) return nullptr;
        const std::string_view name(found->d_name);
        if (name != "." && name != "..") return found;
    }
}

unsigned char Directory::TypeOf(const dirent& entry) const
{
    if (entry.d_type != DT_UNKNOWN) return entry.d_type;
    struct stat status {};
    if (fstatat(dirfd(m_directory.get()), entry.d_name, &status, AT_SYMLINK_NOFOLLOW) != 0) return DT_UNKNOWN;
    return static_cast<unsigned char>(IFTODT(status.st_mode));
}

}  // namespace zentrel
