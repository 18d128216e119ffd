#pragma once

#include "zentrel/Metabase.h"
#include "zentrel/SubtreeStream.h"

#include <memory>
#include <vector>

namespace zentrel {

// The cache's view of the store: of the keys that sites and virtual directories are set up with (they
// carry a key type), only those that lead to a cache entry are shown. Every other key is an entry, a
// variant of one, or on the way to one.
class CacheView {
public:
    static Result<CacheView> Open(const ReadTxn& txn);

    Result<bool> Shows(const KeyRow& row);

    // The number of shown children; exact for an entry, otherwise at least right about being 0.
    Result<std::uint32_t> ChildCount(const KeyRow& row);

private:
    explicit CacheView(ChildCursor cursor) : m_cursor(std::move(cursor)) {}
    Result<bool> LeadsToEntry(const KeyRow& row);

    ChildCursor m_cursor;
};

// Walks everything below one key of a store as it was when the walk began. Depth costs 24 bytes a level.
class StoreWalk : public SubtreeStream {
public:
    // FileNotFound when there is no such key, InvalidName for a bad path.
    static Result<std::unique_ptr<SubtreeStream>> Begin(const Metabase& store, std::string_view path);

    Done Next(RowBatch& batch) override;

private:
    struct Level {
        KeyId parent;
        std::string_view name;  // the child whose subtree is being walked; lies in the transaction's pages
    };

    StoreWalk(ReadTxn txn, ChildCursor cursor, CacheView view, const KeyRow& top)
        : m_txn(std::move(txn)),
          m_cursor(std::move(cursor)),
          m_view(std::move(view)),
          m_row(top)
    {
    }
    Done Emit(RowBatch& batch);
    Done Descend();

    ReadTxn m_txn;  // outlives the cursors below
    ChildCursor m_cursor;
    CacheView m_view;
    std::vector<Level> m_levels;
    KeyId m_parent = 0;           // whose children m_row is one of
    std::optional<KeyRow> m_row;  // the next candidate
    bool m_isTop = true;
    bool m_isOver = false;
};

}  // namespace zentrel
