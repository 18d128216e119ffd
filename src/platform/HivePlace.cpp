#include "platform/HivePlace.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <ctime>
#include <string>
#include <system_error>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kSource = "Registry";

// What SQLite keeps beside a database. They move before it: a log without its database is no harm, but a new
// database would take over the log that it finds.
constexpr std::array<const char*, 3> kCompanions{"-wal", "-shm", "-journal"};

fs::path Beside(const fs::path& file, std::string_view suffix)
{
    return fs::path(file.native() + std::string(suffix));
}

bool IsTaken(const fs::path& path)
{
    struct stat status {};
    return lstat(path.c_str(), &status) == 0;
}

bool HasStrangeCompanion(const fs::path& file)
{
    for (const char* suffix : kCompanions) {
        struct stat status {};
        if (stat(Beside(file, suffix).c_str(), &status) == 0 && !S_ISREG(status.st_mode)) return true;
    }
    return false;
}

Done MakeFolders(const fs::path& folder)
{
    std::error_code error;
    if (folder.empty() || fs::is_directory(folder, error)) return {};
    if (auto made = MakeFolders(folder.parent_path()); !made) return made;
    if (mkdir(folder.c_str(), S_IRWXU) == 0 || errno == EEXIST) return {};
    const int reason = errno;
    return FailErrno(reason, kSource, "Cannot make the folder " + folder.string());
}

int OpenFolder(const fs::path& folder)
{
    return open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
}

// Makes the names of new files last.
void SyncFolder(const fs::path& folder)
{
    const int descriptor = OpenFolder(folder);
    if (descriptor < 0) return;
    fsync(descriptor);
    close(descriptor);
}

std::string TimeStamp()
{
    const std::time_t now = std::time(nullptr);
    std::tm parts{};
    localtime_r(&now, &parts);
    std::array<char, 32> text{};
    return {text.data(), std::strftime(text.data(), text.size(), "%Y%m%d-%H%M%S", &parts)};
}

bool IsFreeFor(const fs::path& name)
{
    for (const char* suffix : kCompanions)
        if (IsTaken(Beside(name, suffix))) return false;
    return !IsTaken(name);
}

fs::path FreeName(const fs::path& file, std::string_view why)
{
    const std::string stem = file.native() + '.' + std::string(why) + '-' + TimeStamp();
    fs::path name = stem;
    for (int i = 2; !IsFreeFor(name); ++i) name = stem + '-' + std::to_string(i);
    return name;
}

bool RenameToFree(const fs::path& from, const fs::path& to)
{
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return true;
    // Some file systems cannot promise not to replace; the name was free a moment ago.
    return errno == EINVAL && !IsTaken(to) && std::rename(from.c_str(), to.c_str()) == 0;
}

}  // namespace

FolderLock::FolderLock(const fs::path& folder) : m_descriptor(OpenFolder(folder))
{
    constexpr int kTries = 500;
    for (int i = 0; i < kTries && flock(m_descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK; ++i)
        usleep(10'000);
}

FolderLock::~FolderLock()
{
    if (m_descriptor >= 0) close(m_descriptor);
}

HivePlace LookAtHive(const fs::path& path)
{
    HivePlace place;
    std::error_code error;
    place.path = fs::absolute(path, error);
    if (error) place.path = path;
    if (stat(place.path.c_str(), &place.status) != 0) {
        if (IsTaken(place.path)) place.kind = HivePlace::Kind::SomethingElse;
        return place;
    }
    // SQLite puts the companions beside the file itself, not beside a link to it.
    if (const auto real = fs::canonical(place.path, error); !error) place.path = real;
    const bool usable = S_ISREG(place.status.st_mode) && !HasStrangeCompanion(place.path);
    place.kind = usable ? HivePlace::Kind::File : HivePlace::Kind::SomethingElse;
    return place;
}

Done MakeHiveFile(const fs::path& path)
{
    if (auto made = MakeFolders(path.parent_path()); !made) return made;
    const int descriptor = open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
    const int reason = errno;
    if (descriptor < 0 && reason == EEXIST) return {};
    if (descriptor < 0) return FailErrno(reason, kSource, "Cannot make the file " + path.string());
    close(descriptor);
    SyncFolder(path.parent_path());
    return {};
}

Result<fs::path> MoveHiveAside(const HivePlace& place, std::string_view why)
{
    struct stat now {};
    const bool same = stat(place.path.c_str(), &now) == 0 && now.st_ino == place.status.st_ino &&
                      now.st_dev == place.status.st_dev;
    if (!same) return Fail(Code::SharingViolation, kSource);
    const auto name = FreeName(place.path, why);
    for (const char* suffix : kCompanions) {
        const auto companion = Beside(place.path, suffix);
        if (IsTaken(companion) && !RenameToFree(companion, Beside(name, suffix)))
            return Fail(Code::AccessDenied, kSource);
    }
    if (!RenameToFree(place.path, name)) return Fail(Code::AccessDenied, kSource);
    return name;
}
