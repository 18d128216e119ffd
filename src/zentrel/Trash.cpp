#include "zentrel/Trash.h"

#include "zentrel/Commit.h"
#include "zentrel/EntryKeys.h"
#include "zentrel/KeyRowCodec.h"

#include <array>

namespace zentrel {

namespace {

constexpr std::size_t kBatchKeys = 10'000;

// The children of one key, all of them to be freed. Lies below kTrashParent, named by its deletion and its
// own id; the cache id that the files of variants need is the one property.
struct Branch {
    KeyId id = 0;
    std::uint32_t cacheId = 0;
};

using BranchName = std::array<char, sizeof(DeletionId) + sizeof(KeyId)>;

std::string_view Text(const BranchName& name, std::size_t size = sizeof(BranchName))
{
    return {name.data(), size};
}

BranchName NameOf(DeletionId deletion, KeyId branch)
{
    BranchName name;
    const std::array<std::uint64_t, 2> big{__builtin_bswap64(deletion), __builtin_bswap64(branch)};
    std::memcpy(name.data(), big.data(), sizeof big);
    return name;
}

DeletionId DeletionOf(const KeyRow& row)
{
    DeletionId big = 0;
    std::memcpy(&big, row.name.data(), std::min(sizeof big, row.name.size()));
    return __builtin_bswap64(big);
}

Done PutBranch(WriteTxn& txn, DeletionId deletion, const Branch& branch)
{
    PropertySet properties;
    if (branch.cacheId != 0) properties.SetNumber(Prop::CacheId, branch.cacheId);
    const auto name = NameOf(deletion, branch.id);
    return txn.PutRow(kTrashParent, {branch.id, 0, Text(name), properties.Packed()});
}

class Freeing {
public:
    Freeing(WriteTxn& txn, DeletionId deletion, ChildCursor cursor)
        : m_txn(txn),
          m_deletion(deletion),
          m_cursor(std::move(cursor))
    {
    }

    Result<FreedKeys> Run()
    {
        while (m_left != 0) {
            const auto branch = FirstBranch();
            if (!branch) return Fail(branch.error());
            m_freed.isLast = !*branch;
            if (m_freed.isLast) break;
            if (auto freed = FreeChildren(**branch); !freed) return Fail(freed.error());
        }
        return std::move(m_freed);
    }

private:
    Result<std::optional<Branch>> FirstBranch();
    Done FreeChildren(const Branch& branch);

    WriteTxn& m_txn;
    const DeletionId m_deletion;
    ChildCursor m_cursor;
    FreedKeys m_freed;
    std::size_t m_left = kBatchKeys;
};

Result<std::optional<Branch>> Freeing::FirstBranch()
{
    const auto name = NameOf(m_deletion, 0);
    const auto row = m_cursor.Seek(kTrashParent, Text(name));
    if (!row) return Fail(row.error());
    if (!*row || DeletionOf(**row) != m_deletion) return std::nullopt;
    return Branch{(*row)->id, CacheIdOf(**row)};
}

// Takes rows off the branch; those that have children of their own leave a new branch in the same
// transaction.
Done Freeing::FreeChildren(const Branch& branch)
{
    std::vector<Branch> below;
    auto row = m_cursor.Seek(branch.id);
    for (; row && *row && m_left != 0; row = m_cursor.Next(), --m_left) {
        AppendFiles(**row, branch.cacheId, m_freed.files);
        m_freed.entryCount += IsEntry(**row) ? 1 : 0;
        if ((*row)->childCount != 0) below.push_back({(*row)->id, CacheIdOf(**row)});
        if (auto dropped = m_cursor.Drop(); !dropped) return dropped;
    }
    if (!row) return Fail(row.error());
    const bool isEmpty = !*row;
    for (const auto& next : below)
        if (auto put = PutBranch(m_txn, m_deletion, next); !put) return put;
    if (!isEmpty) return {};
    if (m_left != 0) --m_left;
    return m_txn.DropRow(kTrashParent, Text(NameOf(m_deletion, branch.id)));
}

// The cursor goes before the transaction ends.
Result<FreedKeys> FreeKeys(WriteTxn& txn, DeletionId deletion)
{
    auto cursor = ChildCursor::Open(txn);
    if (!cursor) return Fail(cursor.error());
    return Freeing(txn, deletion, std::move(*cursor)).Run();
}

}  // namespace

Done Bury(WriteTxn& txn, DeletionId deletion, const KeyRow& row, std::uint32_t parentCacheId)
{
    const auto branch = txn.NewId();
    if (!branch) return Fail(branch.error());
    if (auto put = txn.PutRow(*branch, row); !put) return put;
    return PutBranch(txn, deletion, {*branch, parentCacheId});
}

Result<std::vector<DeletionId>> ListTrash(const Metabase& store)
{
    const auto txn = store.BeginRead();
    if (!txn) return Fail(txn.error());
    auto cursor = ChildCursor::Open(*txn);
    if (!cursor) return Fail(cursor.error());
    std::vector<DeletionId> deletions;
    auto row = cursor->Seek(kTrashParent);
    for (; row && *row; row = cursor->Seek(kTrashParent, Text(NameOf(deletions.back() + 1, 0))))
        deletions.push_back(DeletionOf(**row));
    if (!row) return Fail(row.error());
    return deletions;
}

Result<FreedKeys> FreeBatch(Metabase& store, DeletionId deletion)
{
    auto txn = store.BeginWrite();
    if (!txn) return Fail(txn.error());
    auto freed = FreeKeys(*txn, deletion);
    if (!freed) return freed;
    if (auto kept = CommitChange(*txn); !kept) return Fail(kept.error());
    return freed;
}

}  // namespace zentrel
