#include "zentrel/TextFile.h"

#include "zentrel/FileHandle.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>

namespace zentrel {

namespace {

constexpr std::string_view kSource = "TextFile";

}  // namespace

Result<std::string> ReadTextFile(const std::filesystem::path& file, std::size_t most)
{
    // Without waiting: a pipe that nobody writes to would hold the program.
    const FileHandle handle(open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!handle) return FailErrno(errno, kSource, "Cannot open " + file.string());
    struct stat status {};
    if (fstat(handle.Get(), &status) != 0) return FailErrno(errno, kSource, "Cannot read " + file.string());
    if (!S_ISREG(status.st_mode)) return Fail(Code::InvalidData, kSource, file.string() + " is no file.");
    const auto size = static_cast<std::size_t>(status.st_size);
    if (size > most)
        return Fail(Code::InvalidData, kSource,
                    file.string() + " has more than " + std::to_string(most) + " bytes.");
    const auto bytes = ReadToEnd(handle, size, kSource);
    if (!bytes) return Fail(bytes.error().code, kSource, file.string() + ": " + bytes.error().description);
    return std::string(reinterpret_cast<const char*>(bytes->data()), bytes->size());
}

}  // namespace zentrel
