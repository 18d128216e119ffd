#include "zentrel/Decompressor.h"

#include <algorithm>
#include <array>
#include <limits>

#define ZLIB_CONST
#include <zlib.h>

namespace zentrel {

namespace {

constexpr std::size_t kOutputStep = 65536;
constexpr int kAnyWrapper = 15 + 32;  // largest window; gzip or zlib, told apart by the header

tl::unexpected<SystemError> BadCall(std::string reason)
{
    return Fail(Code::InvalidParameter, "Decompressor", std::move(reason));
}

}  // namespace

void Decompressor::CloseStream::operator()(z_stream_s* stream) const
{
    inflateEnd(stream);
    delete stream;
}

Decompressor::Decompressor() = default;
Decompressor::~Decompressor() = default;
Decompressor::Decompressor(Decompressor&&) noexcept = default;
Decompressor& Decompressor::operator=(Decompressor&&) noexcept = default;

Done Decompressor::BeginDecompress(int flags)
{
    m_begun = false;
    m_atEnd = false;
    if (flags != 0) return BadCall("BeginDecompress knows no flags.");
    if (!m_stream) {
        auto stream = std::make_unique<z_stream>();
        if (inflateInit2(stream.get(), kAnyWrapper) != Z_OK) return Fail(Code::OutOfMemory, "Decompressor");
        m_stream.reset(stream.release());
    } else if (inflateReset(m_stream.get()) != Z_OK) {
        return BadCall("The stream cannot be begun again.");
    }
    m_begun = true;
    return {};
}

Result<Bytes> Decompressor::DecompressBlock(std::span<const std::byte> input)
{
    if (!m_begun) return BadCall("DecompressBlock without BeginDecompress.");
    Bytes output;
    while (!input.empty() && !m_atEnd) {
        const auto part = std::min<std::size_t>(input.size(), std::numeric_limits<uInt>::max());
        m_stream->next_in = reinterpret_cast<const Bytef*>(input.data());
        m_stream->avail_in = static_cast<uInt>(part);
        if (auto inflated = Inflate(output); !inflated) {
            m_begun = false;
            return Fail(inflated.error());
        }
        input = input.subspan(part - m_stream->avail_in);
    }
    if (std::all_of(input.begin(), input.end(), [](std::byte b) { return b == std::byte{0}; })) return output;
    m_begun = false;
    return Fail(Code::InvalidData, "Decompressor", "There are data behind the end of the compressed stream.");
}

Done Decompressor::Inflate(Bytes& output)
{
    std::array<std::byte, kOutputStep> step;
    do {
        m_stream->next_out = reinterpret_cast<Bytef*>(step.data());
        m_stream->avail_out = static_cast<uInt>(step.size());
        const int status = inflate(m_stream.get(), Z_NO_FLUSH);
        output.insert(output.end(), step.data(), step.data() + (step.size() - m_stream->avail_out));
        m_atEnd = status == Z_STREAM_END;
        if (m_atEnd) return {};
        if (status == Z_MEM_ERROR) return Fail(Code::OutOfMemory, "Decompressor");
        if (status != Z_OK && status != Z_BUF_ERROR)
            return Fail(Code::InvalidData, "Decompressor", "The compressed data are damaged.");
    } while (m_stream->avail_out == 0);
    return {};
}

Done Decompressor::EndDecompress()
{
    if (!m_begun) return BadCall("EndDecompress without BeginDecompress.");
    m_begun = false;
    if (m_atEnd) return {};
    return Fail(Code::InvalidData, "Decompressor", "The compressed data end too early.");
}

}  // namespace zentrel
