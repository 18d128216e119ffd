#pragma once

#include "base/Result.h"
#include "zentrel/Property.h"

#include <memory>
#include <span>

struct z_stream_s;

namespace zentrel {

// Restores what a Compressor made, in either mode, which it tells apart by itself: BeginDecompress,
// DecompressBlock any number of times, EndDecompress. Calls out of that order fail with InvalidParameter;
// BeginDecompress may come at any time and drops a stream that was not ended.
class Decompressor {
public:
    Decompressor();
    ~Decompressor();
    Decompressor(Decompressor&&) noexcept;
    Decompressor& operator=(Decompressor&&) noexcept;

    Done BeginDecompress(int flags);  // flags: 0. InvalidParameter, OutOfMemory.

    // The bytes that this block restores; often empty, at most about a thousand times the block.
    // Zeros may follow the end of the stream, since callers pad their last block. InvalidData for anything
    // else that is not a stream; the stream is then over.
    Result<Bytes> DecompressBlock(std::span<const std::byte> input);

    Done EndDecompress();  // InvalidData when the stream is not complete

private:
    struct CloseStream {
        void operator()(z_stream_s* stream) const;
    };

    Done Inflate(Bytes& output);

    std::unique_ptr<z_stream_s, CloseStream> m_stream;
    bool m_begun = false;
    bool m_atEnd = false;
};

}  // namespace zentrel
