#include "zentrel/Compressor.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <limits>

#define ZLIB_CONST
#include <zlib.h>

namespace zentrel {

namespace {

constexpr std::size_t kOutputStep = 16384;
constexpr int kLargestWindow = 15;
constexpr int kGzipWrapper = 16;  // added to the window size
constexpr int kMemoryLevel = 8;

std::uint64_t ThreadNanoseconds()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<std::uint64_t>(now.tv_sec) * 1'000'000'000U + static_cast<std::uint64_t>(now.tv_nsec);
}

tl::unexpected<SystemError> BadCall(std::string reason)
{
    return Fail(Code::InvalidParameter, "Compressor", std::move(reason));
}

}  // namespace

void Compressor::CloseStream::operator()(z_stream_s* stream) const
{
    deflateEnd(stream);
    delete stream;
}

Compressor::Compressor() = default;
Compressor::~Compressor() = default;
Compressor::Compressor(Compressor&&) noexcept = default;
Compressor& Compressor::operator=(Compressor&&) noexcept = default;

Done Compressor::BeginCompress(int mode, int level)
{
    m_begun = false;
    if (mode != static_cast<int>(CompressMode::Deflate) && mode != static_cast<int>(CompressMode::Gzip))
        return BadCall("There is no such compression mode.");
    if (level < 1 || level > 9) return BadCall("The compression level must be 1 to 9.");
    m_outputSize = 0;
    m_cpuNanoseconds = 0;

    // Setting a stream back costs a fraction of making one.
    if (!m_stream || m_mode != mode || m_level != level) {
        m_stream.reset();
        auto stream = std::make_unique<z_stream>();
        const bool isGzip = mode == static_cast<int>(CompressMode::Gzip);
        const int window = kLargestWindow + (isGzip ? kGzipWrapper : 0);
        const int status =
            deflateInit2(stream.get(), level, Z_DEFLATED, window, kMemoryLevel, Z_DEFAULT_STRATEGY);
        if (status != Z_OK) return Fail(Code::OutOfMemory, "Compressor");
        m_stream.reset(stream.release());
        m_mode = mode;
        m_level = level;
    } else if (deflateReset(m_stream.get()) != Z_OK) {
        return BadCall("The stream cannot be begun again.");
    }
    m_begun = true;
    return {};
}

Done Compressor::CompressBlock(std::span<const std::byte> input, int flags, Bytes& output)
{
    output.clear();
    if (!m_begun) return BadCall("CompressBlock without BeginCompress.");
    if (flags != 0) return BadCall("CompressBlock knows no flags.");
    while (!input.empty()) {
        const auto part = std::min<std::size_t>(input.size(), std::numeric_limits<uInt>::max());
        if (auto run = Run(input.first(part), Z_NO_FLUSH, output); !run) return run;
        input = input.subspan(part);
    }
    return {};
}

Done Compressor::EndCompress(Bytes& output)
{
    output.clear();
    if (!m_begun) return BadCall("EndCompress without BeginCompress.");
    auto run = Run({}, Z_FINISH, output);
    m_begun = false;
    return run;
}

Done Compressor::Run(std::span<const std::byte> input, int flush, Bytes& output)
{
    const auto start = ThreadNanoseconds();
    const auto before = output.size();
    std::array<std::byte, kOutputStep> step;
    m_stream->next_in = reinterpret_cast<const Bytef*>(input.data());
    m_stream->avail_in = static_cast<uInt>(input.size());
    int status = Z_OK;
    do {
        m_stream->next_out = reinterpret_cast<Bytef*>(step.data());
        m_stream->avail_out = static_cast<uInt>(step.size());
        status = deflate(m_stream.get(), flush);
        output.insert(output.end(), step.data(), step.data() + (step.size() - m_stream->avail_out));
    } while (m_stream->avail_out == 0);  // a step that was not filled: all there was is out
    m_outputSize += output.size() - before;
    m_cpuNanoseconds += ThreadNanoseconds() - start;

    const bool isGood = flush == Z_FINISH ? status == Z_STREAM_END : status == Z_OK || status == Z_BUF_ERROR;
    if (isGood) return {};
    m_begun = false;
    return Fail(Code::InvalidData, "Compressor");
}

std::uint32_t Compressor::OutputSize() const
{
    constexpr std::uint64_t kMost = std::numeric_limits<std::uint32_t>::max();
    return static_cast<std::uint32_t>(std::min(m_outputSize, kMost));
}

double Compressor::ProcessTime() const
{
    constexpr double kDay = 86'400e9;
    return static_cast<double>(m_cpuNanoseconds) / kDay;
}

}  // namespace zentrel
