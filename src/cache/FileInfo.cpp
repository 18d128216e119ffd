#include "cache/FileInfo.h"

#include "base/Text.h"
#include "cache/PathPieces.h"
#include "zentrel/RecordLayout.h"

namespace {

// Sums of a hostile server's numbers pass 32 bits: they wrap around.
std::int32_t Wrapped(std::uint32_t value)
{
    return static_cast<std::int32_t>(value);
}

struct Plus {
    static double Of(double left, double right) { return left + right; }
    static std::int32_t Of(std::int32_t left, std::int32_t right)
    {
        return Wrapped(static_cast<std::uint32_t>(left) + static_cast<std::uint32_t>(right));
    }
};

struct Minus {
    static double Of(double left, double right) { return left - right; }
    static std::int32_t Of(std::int32_t left, std::int32_t right)
    {
        return Wrapped(static_cast<std::uint32_t>(left) - static_cast<std::uint32_t>(right));
    }
};

template <class Operation>
void Combine(FileInfo& sum, const FileInfo& other)
{
    const auto apply = [&](auto field) { sum.*field = Operation::Of(sum.*field, other.*field); };
    apply(&FileInfo::CompLevel);
    apply(&FileInfo::UncompressedSize);
    apply(&FileInfo::CompressedSize);
    apply(&FileInfo::TotalHits);
    apply(&FileInfo::CacheHits);
    apply(&FileInfo::Overwrites);
    apply(&FileInfo::TotalLife);
    apply(&FileInfo::CpuTime);
    apply(&FileInfo::ServedCompressed);
    apply(&FileInfo::UncompEquivalent);
    apply(&FileInfo::Count);
}

DateTime DateOf(std::uint64_t ticks)
{
    return DateTime{zentrel::TicksToDays(ticks)};
}

}  // namespace

void FileInfo::Add(const FileInfo& other)
{
    Combine<Plus>(*this, other);
}

void FileInfo::Subtract(const FileInfo& other)
{
    Combine<Minus>(*this, other);
}

void FileInfo::Clear()
{
    CompLevel = TotalHits = CacheHits = Overwrites = CacheID = SubQueryCount = Count = 0;
    UncompressedSize = CompressedSize = ServedCompressed = UncompEquivalent = TotalLife = CpuTime = 0;
    CacheDate = Expires = FileDate = DateTime{};
    for (auto* text : {&Extension, &FilePath, &FileName, &CacheExt, &QueryHash, &m_metaPath}) text->clear();
    m_rootMatch.Clear();
}

float FileInfo::Ratio() const
{
    return UncompressedSize > 0 ? static_cast<float>(CompressedSize / UncompressedSize) : 0;
}

float FileInfo::Boost() const
{
    return ServedCompressed > 0 ? static_cast<float>(UncompEquivalent / ServedCompressed - 1) : 0;
}

std::int32_t FileInfo::AvgCompLevel() const
{
    return Count >= 1 ? CompLevel / Count : 0;
}

float FileInfo::CacheHitsRatio() const
{
    return TotalHits >= 1 ? static_cast<float>(static_cast<double>(CacheHits) / TotalHits) : 0;
}

double FileInfo::AvgCacheLife() const
{
    return Overwrites > 0 ? TotalLife / Overwrites : 0;
}

void FileInfo::SetMetaPath(std::string_view path, VirtualRootReader& reader)
{
    SetParts(path);
    m_rootMatch.Search(m_metaPath, reader);
}

void FileInfo::SetMetaPath(std::string_view path, const VirtualRootMatch& match)
{
    SetParts(path);
    m_rootMatch = match;
}

void FileInfo::SetParts(std::string_view path)
{
    if (path.starts_with('/')) path.remove_prefix(1);
    m_metaPath = path;

    // The whole path is searched, so that a dot in a folder's name makes a type of all that follows.
    Extension.clear();
    const auto dot = m_metaPath.rfind('.');
    if (dot != std::string::npos) AppendLowerCase(Extension, std::string_view(m_metaPath).substr(dot + 1));

    SetUrlPath(m_metaPath, kSlashesBeforeUrl);
}

void FileInfo::SetRelPath(std::string_view treeKey)
{
    SetUrlPath(treeKey, kSlashesBeforeUrlInKey);
}

void FileInfo::SetUrlPath(std::string_view path, std::size_t slashesBeforeUrl)
{
    const auto url = TextBehindSlashes(path, slashesBeforeUrl);
    FilePath = '/';
    FileName.clear();
    if (!url) return;
    FilePath += *url;
    FileName = url->substr(url->rfind('/') + 1);
}

std::string FileInfo::CacheFilePath() const
{
    return zentrel::CachedFilePath(CacheID, QueryHash, CacheExt, '\\');
}

void FileInfo::RawBinary_528404(std::span<const std::byte> value)
{
    Count = 1;
    const auto record = zentrel::ParseCacheRecord(value);
    if (!record) return;
    CompLevel = record->level;
    CacheDate = DateOf(record->cacheTicks);
    Expires = DateOf(record->expiresTicks);
    FileDate = DateOf(record->fileTicks);
    UncompressedSize = static_cast<double>(record->uncompressedSize);
    CompressedSize = static_cast<double>(record->compressedSize);
    QueryHash = zentrel::QueryHashText(record->queryHash);
    MultiplyHits();
}

void FileInfo::RawBinary_528410(std::span<const std::byte> value)
{
    Count = 1;
    const auto record = zentrel::ParseStatisticsRecord(value);
    if (!record) return;
    TotalHits = record->totalHits;
    CacheHits = record->cacheHits;
    Overwrites = record->overwrites;
    TotalLife = static_cast<double>(record->totalLife);
    CpuTime = static_cast<double>(record->cpuTime);
    MultiplyHits();
}

void FileInfo::MultiplyHits()
{
    ServedCompressed = TotalHits * CompressedSize;
    UncompEquivalent = TotalHits * UncompressedSize;
}
