#include "zentrel/Recovery.h"

#include "zentrel/Commit.h"
#include "zentrel/EntryKeys.h"
#include "zentrel/KeyWalk.h"
#include "zentrel/RecordLayout.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <string>
#include <system_error>
#include <vector>

namespace zentrel {

namespace {

constexpr std::size_t kBatchKeys = 10'000;

// A key whose records are not borne out by the cache folder.
struct BadKey {
    std::string path;
    std::uint32_t parentCacheId = 0;
};

class Sweep {
public:
    Sweep(Metabase& store, const CacheFolder& folder) : m_store(store), m_folder(folder) {}

    Result<bool> Run()
    {
        if (auto checked = CheckRecords(); !checked) return Fail(checked.error());
        if (auto removed = m_folder.RemoveStaged(); !removed) return Fail(removed.error());
        if (auto removed = RemoveOrphans(); !removed) return Fail(removed.error());
        if (auto mended = MendKeys(); !mended) return Fail(mended.error());
        return m_isClean;
    }

private:
    Done CheckRecords();
    Done RemoveOrphans();
    Done MendKeys();
    Done Mend(WriteTxn& txn, const BadKey& key);
    bool IsBorneOut(const KeyRow& row, const CachedFile& file) const;

    Metabase& m_store;
    const CacheFolder& m_folder;
    std::vector<CachedFile> m_named;  // files that a good record names; sorted for RemoveOrphans
    std::vector<BadKey> m_bad;
    bool m_isClean = true;
};

bool Sweep::IsBorneOut(const KeyRow& row, const CachedFile& file) const
{
    const auto property = FindProperty(row.properties, RecordProperty(file.encoding));
    const auto record = property ? ParseCacheRecord(property->bytes) : std::nullopt;
    const auto size = m_folder.Size(file);
    return record && size && *size == record->compressedSize;
}

Done Sweep::CheckRecords()
{
    const auto txn = m_store.BeginRead();
    if (!txn) return Fail(txn.error());
    auto walk = KeyWalk::Begin(*txn, {});
    if (!walk) return Fail(walk.error());
    std::vector<CachedFile> files;
    for (;;) {
        const auto visit = walk->Next(*txn);
        if (!visit) return Fail(visit.error());
        if (!*visit) return {};
        const auto& row = (*visit)->row;
        files.clear();
        AppendFiles(row, (*visit)->parentCacheId, files);
        bool isGood = !files.empty() || !HasRecord(row);
        for (const auto& file : files) {
            if (IsBorneOut(row, file))
                m_named.push_back(file);
            else
                isGood = false;
        }
        if (isGood) continue;
        m_bad.push_back({std::string((*visit)->path), (*visit)->parentCacheId});
        if (m_bad.size() < kBatchKeys) continue;
        if (auto mended = MendKeys(); !mended) return mended;
    }
}

Done Sweep::RemoveOrphans()
{
    std::sort(m_named.begin(), m_named.end());
    return m_folder.ForEachFile([this](const CachedFile& file) {
        if (!std::binary_search(m_named.begin(), m_named.end(), file))
            m_isClean &= m_folder.Remove({file}).has_value();
        return Done{};
    });
}

Done Sweep::MendKeys()
{
    if (m_bad.empty()) return {};
    auto txn = m_store.BeginWrite();
    if (!txn) return Fail(txn.error());
    for (const auto& key : m_bad)
        if (auto mended = Mend(*txn, key); !mended) return mended;
    m_bad.clear();
    return CommitChange(*txn);
}

// Takes the records off the key that are wrong, and with the last one the key.
Done Sweep::Mend(WriteTxn& txn, const BadKey& key)
{
    const auto row = txn.Find(key.path);
    if (!row) return Fail(row.error());
    if (!*row) return {};
    std::vector<CachedFile> files;
    AppendFiles(**row, key.parentCacheId, files);
    std::erase_if(files, [&](const CachedFile& file) { return !IsBorneOut(**row, file); });
    PropertySet properties((*row)->properties);
    for (const auto encoding : kEncodings) {
        const auto isKept = [&](const CachedFile& file) { return file.encoding == encoding; };
        if (std::none_of(files.begin(), files.end(), isKept)) properties.Remove(RecordProperty(encoding));
    }
    if (files.empty() && !IsEntry(**row)) properties.Remove(Prop::Statistics);
    if (auto set = txn.SetProperties(key.path, properties); !set) return set;
    return TidyUpwards(txn, key.path);
}

}  // namespace

Result<UncleanMark> UncleanMark::Set(const std::filesystem::path& folder, bool& wasThere)
{
    UncleanMark mark(folder / kUncleanMark);
    const FileHandle file(open(mark.m_file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644));
    wasThere = !file && errno == EEXIST;
    if (!file && !wasThere)
        return FailErrno(errno, "Service", "Cannot mark the data folder as being changed");
    return mark;
}

void UncleanMark::Clear()
{
    std::error_code ignored;  // then the next writer clears up what is in order already
    std::filesystem::remove(m_file, ignored);
}

Result<bool> Recover(Metabase& store, const CacheFolder& folder)
{
    return Sweep(store, folder).Run();
}

}  // namespace zentrel
