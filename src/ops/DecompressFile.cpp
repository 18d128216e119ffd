#include "ops/DecompressFile.h"

#include "base/FillIn.h"
#include "base/Translate.h"
#include "ops/FillBlock.h"
#include "zentrel/FileHandle.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace {

constexpr std::string_view kSource = "DecompressFile";
constexpr std::size_t kBlock = 8192;
constexpr std::size_t kSlice = std::size_t{1} << 20U;  // one block may unpack to 8 MiB; written in slices

// What other programs are left on the disk.
constexpr std::uint64_t kMostReserve = std::uint64_t{64} << 20U;
constexpr std::uint64_t kReserveShare = 20;  // of a small disk, one part in that many

Done CheckRoom(const zentrel::FileHandle& target, std::size_t wanted)
{
    struct statvfs disk {};
    if (fstatvfs(target.Get(), &disk) != 0) return {};  // a full disk then shows when it is written to
    const std::uint64_t unit = disk.f_frsize;
    const auto reserve = std::min(kMostReserve, disk.f_blocks * unit / kReserveShare);
    if (disk.f_bavail * unit >= wanted + reserve) return {};
    return Fail(Code::DiskFull, kSource,
                Translate("DecompressFile", "There is not enough free space in the temporary folder."));
}

// A size limit as a person would say it; whole GiB or MiB.
std::string LimitText(std::uint64_t bytes)
{
    constexpr std::uint64_t kMebi = std::uint64_t{1} << 20U;
    const auto mebibytes = bytes / kMebi;
    if (mebibytes >= 1024 && mebibytes % 1024 == 0) return std::to_string(mebibytes / 1024) + " GiB";
    return std::to_string(mebibytes) + " MiB";
}

// The file that is written: never beyond the limit, nor into the last of the disk's room.
class Target {
public:
    Target(zentrel::FileHandle file, std::uint64_t mostBytes) : m_file(std::move(file)), m_most(mostBytes) {}

    Done Write(std::span<const std::byte> bytes)
    {
        if (bytes.size() > m_most - m_written)
            return Fail(Code::InvalidData, kSource,
                        FillIn(Translate("DecompressFile", "The file unpacks to more than %1."),
                               {LimitText(m_most)}));
        m_written += bytes.size();
        if (auto room = CheckRoom(m_file, bytes.size()); !room) return room;
        return zentrel::WriteAll(m_file, bytes, kSource);
    }

private:
    zentrel::FileHandle m_file;
    std::uint64_t m_most;
    std::uint64_t m_written = 0;
};

// Cut short only when there is something to cut: some file systems write a file that was cut out to the disk
// when it is closed, and a large one takes long.
Result<zentrel::FileHandle> OpenEmpty(const std::string& name)
{
    zentrel::FileHandle file(open(name.c_str(), O_WRONLY | O_CLOEXEC | O_NOFOLLOW));
    struct stat status {};
    const bool isEmpty =
        file && fstat(file.Get(), &status) == 0 && (status.st_size == 0 || ftruncate(file.Get(), 0) == 0);
    if (!isEmpty)
        return FailErrno(errno, kSource, FillIn(Translate("DecompressFile", "Cannot write %1"), {name}));
    return file;
}

Result<std::size_t> ReadSome(zentrel::CacheFileReader& source, std::span<std::byte> room)
{
    const auto bytes = source.Read(room.size());
    if (!bytes) return Fail(bytes.error());
    const auto count = std::min(bytes->size(), room.size());
    std::copy_n(bytes->begin(), count, room.begin());
    return count;
}

}  // namespace

Done DecompressFile(zentrel::Decompressor& decompressor, zentrel::CacheFileReader& source,
                    const std::string& target, std::uint64_t mostBytes, const StepProgress& progress)
{
    if (auto begun = decompressor.BeginDecompress(0); !begun) return begun;
    auto file = OpenEmpty(target);
    if (!file) return Fail(file.error());
    Target written(std::move(*file), mostBytes);

    const auto size = std::max(1.0, static_cast<double>(source.Size()));
    double done = 0;
    std::array<std::byte, kBlock> block;
    const auto read = [&](std::span<std::byte> room) -> Result<std::size_t> {
        // A server may send a few bytes at a time.
        if (room.size() < kBlock && !progress(std::min(done / size, 1.0)))
            return Fail(Code::Cancelled, kSource);
        return ReadSome(source, room);
    };
    for (;;) {
        const auto count = FillBlock(block, read);
        if (!count) return Fail(count.error());
        if (*count == 0) return decompressor.EndDecompress();
        const auto output = decompressor.DecompressBlock(block);
        if (!output) return Fail(output.error());
        const double part = std::min(done / size, 1.0);
        done += static_cast<double>(*count);
        for (std::span<const std::byte> rest = *output; !rest.empty();) {
            const auto slice = rest.first(std::min(rest.size(), kSlice));
            if (auto write = written.Write(slice); !write) return write;
            rest = rest.subspan(slice.size());
            if (!rest.empty() && !progress(part)) return Fail(Code::Cancelled, kSource);
        }
        if (!progress(std::min(done / size, 1.0))) return Fail(Code::Cancelled, kSource);
    }
}
