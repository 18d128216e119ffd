#include "ops/AnalyzeLevel.h"

#include "base/Translate.h"
#include "format/FormatValue.h"
#include "ops/FillBlock.h"
#include "zentrel/FileHandle.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr std::string_view kSource = "AnalyzeLevel";
constexpr std::size_t kBlock = 8096;
constexpr double kSecond = 0.00001157407;  // as a fraction of a day
constexpr double kShortest = 0.01;         // seconds that are still told as a number

Result<std::size_t> ReadSome(const zentrel::FileHandle& file, std::span<std::byte> room)
{
    for (;;) {
        const auto count = read(file.Get(), room.data(), room.size());
        if (count >= 0) return static_cast<std::size_t>(count);
        if (errno != EINTR) return FailErrno(errno, kSource, Translate("Analysis", "Cannot read a file"));
    }
}

double SizeOf(const zentrel::FileHandle& file)
{
    struct stat status {};
    return fstat(file.Get(), &status) == 0 ? static_cast<double>(status.st_size) : 0;
}

tl::unexpected<LevelFailure> Failed(LevelStage stage, tl::unexpected<SystemError> reason)
{
    return tl::unexpected<LevelFailure>(LevelFailure{stage, std::move(reason.value())});
}

}  // namespace

tl::expected<LevelFigures, LevelFailure> AnalyzeLevel(zentrel::Compressor& compressor,
                                                      const std::string& file, int level,
                                                      const StepProgress& progress)
{
    const auto mode = static_cast<int>(zentrel::CompressMode::Gzip);
    if (auto begun = compressor.BeginCompress(mode, level); !begun)
        return Failed(LevelStage::Compress, Fail(begun.error()));
    const zentrel::FileHandle source(open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW));
    if (!source)
        return Failed(LevelStage::Access,
                      FailErrno(errno, kSource, Translate("Analysis", "Cannot open the file")));

    const auto size = SizeOf(source);
    double done = 0;
    std::array<std::byte, kBlock> block;
    zentrel::Bytes output;
    for (;;) {
        const auto count = FillBlock(block, [&source](auto room) { return ReadSome(source, room); });
        if (!count) return Failed(LevelStage::Access, Fail(count.error()));
        if (*count == 0) break;
        if (auto run = compressor.CompressBlock(block, 0, output); !run)
            return Failed(LevelStage::Compress, Fail(run.error()));
        done += static_cast<double>(*count);
        if (!progress(std::min(done / size, 1.0)))
            return Failed(LevelStage::Compress, Fail(Code::Cancelled, kSource));
    }
    if (auto end = compressor.EndCompress(output); !end)
        return Failed(LevelStage::Compress, Fail(end.error()));
    return LevelFigures{compressor.OutputSize(), compressor.ProcessTime()};
}

double SecondsOf(const LevelFigures& figures)
{
    return figures.ProcessTime / kSecond;
}

LevelRow RowOfLevel(int level, const std::optional<LevelFigures>& figures, const FormatLocale& locale)
{
    const auto number = std::to_string(level);
    if (!figures) return {"C" + number, number, "???", "???"};
    const double seconds = SecondsOf(*figures);
    return {"C" + number, number, FormatValue(std::int64_t{figures->OutputSize}, FormatKind::Large, locale),
            seconds > kShortest ? FormatValue(seconds, "0.000", locale) : Translate("Analysis", "< 10 ms")};
}
