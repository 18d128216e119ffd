#pragma once

#include "base/Result.h"
#include "zentrel/Property.h"

#include <cstdint>
#include <memory>
#include <span>

struct z_stream_s;

namespace zentrel {

enum class CompressMode : int { Deflate = 1, Gzip = 2 };  // zlib's own format, and gzip

// Compresses one stream after the other, each block by block: BeginCompress, CompressBlock any number of
// times, EndCompress. Calls out of that order fail with InvalidParameter; BeginCompress may come at any
// time and drops a stream that was not ended.
class Compressor {
public:
    Compressor();
    ~Compressor();
    Compressor(Compressor&&) noexcept;
    Compressor& operator=(Compressor&&) noexcept;

    // mode: a CompressMode; level: 1 (fastest) to 9 (smallest). InvalidParameter, OutOfMemory.
    Done BeginCompress(int mode, int level);

    // output receives, in place of what it held, the bytes that this call produced; often none.
    // flags: 0.
    Done CompressBlock(std::span<const std::byte> input, int flags, Bytes& output);

    // output receives the rest of the stream.
    Done EndCompress(Bytes& output);

    // Of the stream begun last: bytes produced so far (at most 2^32 - 1 are counted), and processor time
    // spent on it as a fraction of a day.
    std::uint32_t OutputSize() const;
    double ProcessTime() const;
    std::uint64_t ProcessTicks() const { return m_cpuNanoseconds / 100; }  // in 100 nanoseconds

private:
    struct CloseStream {
        void operator()(z_stream_s* stream) const;
    };

    Done Run(std::span<const std::byte> input, int flush, Bytes& output);

    std::unique_ptr<z_stream_s, CloseStream> m_stream;  // kept from stream to stream
    int m_mode = 0;
    int m_level = 0;
    bool m_begun = false;
    std::uint64_t m_outputSize = 0;
    std::uint64_t m_cpuNanoseconds = 0;
};

}  // namespace zentrel
