#include "zentrel/Compressor.h"
#include "zentrel/Decompressor.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

using namespace zentrel;

namespace {

Bytes Numbers(std::size_t size)
{
    Bytes bytes;
    for (std::size_t i = 0; bytes.size() < size; ++i)
        for (const char c : std::to_string(i * i)) bytes.push_back(static_cast<std::byte>(c));
    bytes.resize(size);
    return bytes;
}

// Hands out `bytes` in blocks.
void InBlocks(std::span<const std::byte> bytes, std::size_t block,
              const std::function<void(std::span<const std::byte>)>& take)
{
    for (; !bytes.empty(); bytes = bytes.subspan(std::min(block, bytes.size())))
        take(bytes.first(std::min(block, bytes.size())));
}

Bytes Compress(Compressor& compressor, const Bytes& input, CompressMode mode, int level, std::size_t block)
{
    Bytes all;
    Bytes output;
    EXPECT_TRUE(compressor.BeginCompress(static_cast<int>(mode), level));
    InBlocks(input, block, [&](auto part) {
        EXPECT_TRUE(compressor.CompressBlock(part, 0, output));
        all.insert(all.end(), output.begin(), output.end());
    });
    EXPECT_TRUE(compressor.EndCompress(output));
    all.insert(all.end(), output.begin(), output.end());
    return all;
}

// What comes out, or the code of the first error.
Result<Bytes> Decompress(Decompressor& decompressor, const Bytes& input, std::size_t block)
{
    Bytes all;
    Done outcome = decompressor.BeginDecompress(0);
    InBlocks(input, block, [&](auto part) {
        if (!outcome) return;
        const auto output = decompressor.DecompressBlock(part);
        if (output)
            all.insert(all.end(), output->begin(), output->end());
        else
            outcome = Fail(output.error());
    });
    if (outcome) outcome = decompressor.EndDecompress();
    if (!outcome) return Fail(outcome.error());
    return all;
}

}  // namespace

TEST(Compressor, WhatGoesInComesOutInEitherModeAtAnyLevelAndBlockSize)
{
    Compressor compressor;
    Decompressor decompressor;
    for (const std::size_t size : {0, 1, 8192, 300'000}) {
        for (const auto& [mode, level] : {std::pair(CompressMode::Gzip, 1), {CompressMode::Deflate, 9}}) {
            const auto input = Numbers(size);
            auto packed = Compress(compressor, input, mode, level, 8096);
            EXPECT_EQ(packed[0] == std::byte{0x1F} && packed[1] == std::byte{0x8B},
                      mode == CompressMode::Gzip);
            packed.resize((packed.size() + 8191) / 8192 * 8192);  // as a reader in whole blocks pads it
            for (const std::size_t block : {1, 8192, 1 << 20})
                EXPECT_EQ(Decompress(decompressor, packed, block).value(), input) << size << ' ' << level;
        }
    }
}

TEST(Decompressor, DamagedDataAreAnErrorWhereverTheyAreDamaged)
{
    Compressor compressor;
    Decompressor decompressor;
    const auto packed = Compress(compressor, Numbers(5000), CompressMode::Gzip, 6, 8096);
    for (std::size_t length = 0; length < packed.size(); length += 13) {
        const auto cut = Decompress(decompressor, {packed.data(), packed.data() + length}, 512);
        ASSERT_FALSE(cut);
        EXPECT_TRUE(cut.error().Is(Code::InvalidData)) << length;
    }
    auto badSum = packed, noPadding = packed;
    badSum[packed.size() - 6] ^= std::byte{1};
    noPadding.insert(noPadding.end(), {std::byte{0}, std::byte{7}});
    for (const auto& wrong : {badSum, noPadding}) EXPECT_FALSE(Decompress(decompressor, wrong, 512));
    EXPECT_FALSE(Decompress(decompressor, Bytes(8192), 8192));
}

TEST(Decompressor, ABlockOfABombStaysWithinBounds)
{
    Compressor compressor;
    const auto packed = Compress(compressor, Bytes(std::size_t{64} << 20U), CompressMode::Gzip, 9, 1U << 20U);
    Decompressor decompressor;
    ASSERT_TRUE(decompressor.BeginDecompress(0));
    std::size_t total = 0;
    InBlocks(packed, 8192, [&](auto part) {
        const auto output = decompressor.DecompressBlock(part);
        ASSERT_TRUE(output);
        EXPECT_LE(output->size(), 8192U * 1100);
        total += output->size();
    });
    EXPECT_EQ(total, std::size_t{64} << 20U);
}
