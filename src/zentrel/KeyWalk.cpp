#include "zentrel/KeyWalk.h"

#include "zentrel/EntryKeys.h"
#include "zentrel/KeyPath.h"

namespace zentrel {

Result<KeyWalk> KeyWalk::Begin(const ReadTxn& txn, std::string_view path)
{
    const auto row = txn.Find(path);
    if (!row) return Fail(row.error());
    if (!*row) return Fail(Code::FileNotFound, "Metabase");
    KeyWalk walk(path);
    walk.Push(**row);
    return walk;
}

void KeyWalk::Push(const KeyRow& row)
{
    m_levels.push_back({row.id, m_path.size(), CacheIdOf(row)});
    m_last.clear();
    m_isPlaced = false;
}

Result<std::optional<KeyWalk::Visit>> KeyWalk::Next(const ReadTxn& txn)
{
    while (!m_levels.empty()) {
        m_path.resize(m_levels.back().pathSize);
        const auto child = NextChild(txn);
        if (!child) return Fail(child.error());
        if (!*child) {
            const auto visit = Leave(txn);
            if (!visit || *visit) return visit;
            continue;
        }
        m_last = (*child)->name;
        if (!m_path.empty()) m_path += '/';
        m_path += m_last;
        if ((*child)->childCount == 0) return Visit{m_path, **child, m_levels.back().cacheId};
        Push(**child);
    }
    return std::nullopt;
}

Result<std::optional<KeyRow>> KeyWalk::NextChild(const ReadTxn& txn)
{
    if (!m_cursor) {
        auto cursor = ChildCursor::Open(txn);
        if (!cursor) return Fail(cursor.error());
        m_cursor.emplace(std::move(*cursor));
    }
    if (std::exchange(m_isPlaced, true)) return m_cursor->Next();
    return m_cursor->Seek(m_levels.back().id, m_last, !m_last.empty());
}

// All children of the top key are passed: it comes next itself, unless somebody removed it meanwhile.
Result<std::optional<KeyWalk::Visit>> KeyWalk::Leave(const ReadTxn& txn)
{
    const auto left = m_levels.back().id;
    m_levels.pop_back();
    m_last = LastSegment(m_path);
    m_isPlaced = false;
    const auto row = m_levels.empty() ? txn.Find(m_path) : txn.Child(m_levels.back().id, m_last);
    if (!row) return Fail(row.error());
    if (!*row || (*row)->id != left) return std::nullopt;
    return Visit{m_path, **row, m_levels.empty() ? 0 : m_levels.back().cacheId};
}

}  // namespace zentrel
