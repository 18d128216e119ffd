#include "zentrel/VersionMaker.h"

#include "zentrel/FileTypes.h"

#include <algorithm>

namespace zentrel {

namespace {

constexpr std::size_t kBlock = 8192;

int ModeOf(Encoding encoding)
{
    return static_cast<int>(encoding == Encoding::Gzip ? CompressMode::Gzip : CompressMode::Deflate);
}

}  // namespace

bool VersionMaker::Takes(std::string_view fileName, const FileStamp& source)
{
    return source.size >= kSmallestCompressed && source.size <= kLargestCompressed &&
           IsCompressibleName(fileName);
}

Result<NewVersion> VersionMaker::Compress(std::span<const std::byte> body, Encoding encoding, int level)
{
    if (auto begun = m_compressor.BeginCompress(ModeOf(encoding), level); !begun) return Fail(begun.error());
    NewVersion version;
    const auto append = [&] { version.body.insert(version.body.end(), m_block.begin(), m_block.end()); };
    while (!body.empty()) {
        const auto size = std::min(kBlock, body.size());
        if (auto done = m_compressor.CompressBlock(body.first(size), 0, m_block); !done)
            return Fail(done.error());
        append();
        body = body.subspan(size);
    }
    if (auto done = m_compressor.EndCompress(m_block); !done) return Fail(done.error());
    append();
    version.level = level;
    version.cpuTicks = m_compressor.ProcessTicks();
    return version;
}

Result<VersionMaker::Made> VersionMaker::Make(const VersionKey& key, const SourceFile& source, int level)
{
    Made made;
    auto plain = source.Read();
    if (!plain) return Fail(plain.error());
    made.plain = std::move(*plain);
    auto version = Compress(made.plain, key.encoding, level);
    if (!version) {
        made.kept = Fail(version.error());
        return made;
    }
    m_service.CountCompression(version->cpuTicks);
    if (version->body.size() >= made.plain.size()) return made;
    version->source = source.Stamp();
    if (!source.HasChanged() && made.plain.size() == version->source.size) {
        made.kept = m_service.KeepVersion(key, *version);
        made.isKept = made.kept.has_value();
    }
    made.compressed = std::move(version->body);
    return made;
}

}  // namespace zentrel
