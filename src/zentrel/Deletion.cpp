#include "zentrel/Deletion.h"

#include "zentrel/Commit.h"
#include "zentrel/EntryKeys.h"
#include "zentrel/KeyPath.h"

namespace zentrel {

namespace {

constexpr int kBatchKeys = 10'000;

Done DeleteVariants(WriteTxn& txn, std::string_view path, KeyId url, std::uint32_t cacheId,
                    std::vector<CachedFile>& files)
{
    auto cursor = ChildCursor::Open(txn);
    if (!cursor) return Fail(cursor.error());
    std::string last;
    for (auto row = cursor->Seek(url);; row = cursor->Seek(url, last, true)) {
        if (!row) return Fail(row.error());
        if (!*row) return {};
        last = (*row)->name;
        if (!IsVariant(**row)) continue;
        AppendFiles(**row, cacheId, files);
        const auto variant = std::string(path) + '/' + last;
        if (auto stripped = StripEntry(txn, variant, **row); !stripped) return stripped;
    }
}

}  // namespace

Result<std::vector<CachedFile>> DeleteEntryKeys(Metabase& store, std::string_view path)
{
    auto txn = store.BeginWrite();
    if (!txn) return Fail(txn.error());
    auto row = txn->Find(path);
    if (!row) return Fail(row.error());
    if (!*row || !IsEntry(**row))
        return Fail(Code::FileNotFound, "Service", "There is no cache entry \"" + std::string(path) + "\".");
    std::vector<CachedFile> files;
    AppendFiles(**row, 0, files);
    const auto cacheId = Record(*FindProperty((*row)->properties, Prop::CacheId)).Number();
    if (auto deleted = DeleteVariants(*txn, path, (*row)->id, cacheId, files); !deleted)
        return Fail(deleted.error());

    row = txn->Find(path);  // as it is without its variants
    if (!row || !*row) return Fail(row ? SystemError{Code::FileCorrupt, "Metabase", {}} : row.error());
    if (auto stripped = StripEntry(*txn, path, **row); !stripped) return Fail(stripped.error());
    if (auto tidied = TidyUpwards(*txn, ParentPath(path)); !tidied) return Fail(tidied.error());
    if (auto kept = CommitChange(*txn); !kept) return Fail(kept.error());
    return files;
}

Result<TreeDeletion> TreeDeletion::Begin(const Metabase& store, std::string_view path)
{
    const auto txn = store.BeginRead();
    if (!txn) return Fail(txn.error());
    auto walk = KeyWalk::Begin(*txn, path);
    if (!walk) return Fail(walk.error());
    return TreeDeletion(std::move(*walk), path);
}

Result<bool> TreeDeletion::DeleteBatch(Metabase& store, std::vector<CachedFile>& files)
{
    files.clear();
    auto txn = store.BeginWrite();
    if (!txn) return Fail(txn.error());
    const auto more = DeleteKeys(*txn, files);
    m_walk.Release();
    if (!more) return more;
    if (auto kept = CommitChange(*txn); !kept) return Fail(kept.error());
    return more;
}

Result<bool> TreeDeletion::DeleteKeys(WriteTxn& txn, std::vector<CachedFile>& files)
{
    for (int i = 0; i < kBatchKeys; ++i) {
        const auto visit = m_walk.Next(txn);
        if (!visit) return Fail(visit.error());
        if (!*visit) {
            if (auto tidied = TidyUpwards(txn, ParentPath(m_path)); !tidied) return Fail(tidied.error());
            return false;
        }
        if (IsEntry((*visit)->row)) ++m_entryCount;
        AppendFiles((*visit)->row, (*visit)->parentCacheId, files);
        if (auto stripped = StripEntry(txn, (*visit)->path, (*visit)->row); !stripped)
            return Fail(stripped.error());
        m_walk.Seek();
    }
    return true;
}

}  // namespace zentrel
