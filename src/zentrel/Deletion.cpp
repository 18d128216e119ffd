#include "zentrel/Deletion.h"

#include "zentrel/Commit.h"
#include "zentrel/EntryKeys.h"
#include "zentrel/KeyPath.h"
#include "zentrel/TopDownWalk.h"

namespace zentrel {

namespace {

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
    if (auto deleted = DeleteVariants(*txn, path, (*row)->id, CacheIdOf(**row), files); !deleted)
        return Fail(deleted.error());

    row = txn->Find(path);  // as it is without its variants
    if (!row || !*row) return Fail(row ? SystemError{Code::FileCorrupt, "Metabase", {}} : row.error());
    if (auto stripped = StripEntry(*txn, path, **row); !stripped) return Fail(stripped.error());
    if (auto tidied = TidyUpwards(*txn, ParentPath(path)); !tidied) return Fail(tidied.error());
    if (auto kept = CommitChange(*txn); !kept) return Fail(kept.error());
    return files;
}

// ---- trees

// A key that stays: when other keys leave it, it goes on under a new id, and the old one keeps what left.
struct TreeDeletion::Moved {
    KeyId from = 0;
    KeyId to = 0;
    std::uint32_t cacheId = 0;
};

Result<TreeDeletion> TreeDeletion::Plan(const Metabase& store, std::string_view path)
{
    const auto txn = store.BeginRead();
    if (!txn) return Fail(txn.error());
    const auto top = txn->Find(path);
    if (!top) return Fail(top.error());
    if (!*top) return Fail(Code::FileNotFound, "Metabase");
    auto walk = TopDownWalk::Begin(*txn, path);
    if (!walk) return Fail(walk.error());
    TreeDeletion deletion(path);
    const auto topDepth = PathDepth(path);
    std::vector<std::size_t>
        branch;  // places in m_kept of the keys above the walk's, as far as they are there
    if (Stays(**top, topDepth)) deletion.Keep(branch, path);
    for (auto row = walk->Next();; row = walk->Next()) {
        if (!row) return Fail(row.error());
        if (!*row) return deletion;
        if (branch.size() > walk->Depth()) branch.resize(walk->Depth());
        if (Stays(**row, topDepth + walk->Depth())) deletion.Keep(branch, walk->Path());
    }
}

// Keeps a key, and above it the keys that are not kept yet. branch: of the keys above it those that are.
void TreeDeletion::Keep(std::vector<std::size_t>& branch, std::string_view path)
{
    if (branch.empty()) {
        if (m_kept.empty()) m_kept.push_back({0, std::string(LastSegment(m_path)), 0});
        branch.push_back(0);
    }
    auto rest = path.substr(std::min(path.size(), m_path.size() + 1));
    for (std::size_t depth = 1; depth < branch.size(); ++depth) TakeSegment(rest);
    while (!rest.empty()) {
        const auto parent = branch.back();
        ++m_kept[parent].childCount;
        branch.push_back(m_kept.size());
        m_kept.push_back({parent, std::string(TakeSegment(rest)), 0});
    }
}

Result<DeletionId> TreeDeletion::Unlink(Metabase& store) const
{
    auto txn = store.BeginWrite();
    if (!txn) return Fail(txn.error());
    const auto deletion = txn->NewId();
    if (!deletion) return Fail(deletion.error());
    const auto parent = txn->Find(ParentPath(m_path));
    if (!parent) return Fail(parent.error());
    if (!*parent) return Fail(Code::FileNotFound, "Metabase");
    const auto unlinked =
        m_kept.empty() ? UnlinkAll(*txn, *deletion, **parent) : UnlinkAround(*txn, *deletion, **parent);
    if (!unlinked) return Fail(unlinked.error());
    if (auto kept = CommitChange(*txn); !kept) return Fail(kept.error());
    return deletion;
}

Done TreeDeletion::UnlinkAll(WriteTxn& txn, DeletionId deletion, const KeyRow& parent) const
{
    const auto top = txn.Child(parent.id, LastSegment(m_path));
    if (!top) return Fail(top.error());
    if (!*top) return Fail(Code::FileNotFound, "Metabase");
    const PropertySet properties((*top)->properties);  // where they lie, changes may move them
    const KeyRow row{(*top)->id, (*top)->childCount, LastSegment(m_path), properties.Packed()};
    const auto cacheId = CacheIdOf(parent);
    if (auto removed = txn.Detach(m_path); !removed) return removed;
    if (auto buried = Bury(txn, deletion, row, cacheId); !buried) return buried;
    return TidyUpwards(txn, ParentPath(m_path));
}

Done TreeDeletion::UnlinkAround(WriteTxn& txn, DeletionId deletion, const KeyRow& parent) const
{
    std::vector<Moved> moved;
    moved.reserve(m_kept.size());
    const Moved above{parent.id, parent.id, CacheIdOf(parent)};
    for (const auto& key : m_kept) {
        const auto rebuilt = Rebuild(txn, deletion, key, moved.empty() ? above : moved[key.parent]);
        if (!rebuilt) return Fail(rebuilt.error());
        moved.push_back(*rebuilt);
    }
    return {};
}

Result<TreeDeletion::Moved> TreeDeletion::Rebuild(WriteTxn& txn, DeletionId deletion, const Kept& key,
                                                  const Moved& parent)
{
    const auto found = txn.Child(parent.from, key.name);
    if (!found) return Fail(found.error());
    if (!*found) return Fail(Code::FileNotFound, "Metabase");
    const auto own = OwnProperties(**found);
    const auto ofEntry = EntryProperties(**found);
    const KeyRow leaving{(*found)->id, (*found)->childCount, key.name, ofEntry.Packed()};
    Moved moved{leaving.id, leaving.id, CacheIdOf(leaving)};
    if (leaving.childCount != key.childCount) {
        const auto id = txn.NewId();
        if (!id) return Fail(id.error());
        moved.to = *id;
    }
    if (parent.to != parent.from)
        if (auto dropped = txn.DropRow(parent.from, key.name); !dropped) return Fail(dropped.error());
    if (auto put = txn.PutRow(parent.to, {moved.to, key.childCount, key.name, own.Packed()}); !put)
        return Fail(put.error());
    if (moved.to == moved.from && ofEntry.Packed().empty()) return moved;
    const KeyRow buried{leaving.id, moved.to != moved.from ? 1U : 0U, leaving.name, leaving.properties};
    if (auto done = Bury(txn, deletion, buried, parent.cacheId); !done) return Fail(done.error());
    return moved;
}

}  // namespace zentrel
