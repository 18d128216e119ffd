#include "zentrel/TopDownWalk.h"

#include "zentrel/KeyPath.h"

namespace zentrel {

Result<TopDownWalk> TopDownWalk::Begin(const ReadTxn& txn, std::string_view path)
{
    const auto checked = CheckPath(path);
    if (!checked) return Fail(checked.error());
    const auto top = txn.Find(*checked);
    if (!top) return Fail(top.error());
    if (!*top) return Fail(Code::FileNotFound, "Metabase", "There is no such key: " + std::string(*checked));
    TopDownWalk walk((*top)->id, *checked);
    if (auto ready = walk.Resume(txn); !ready) return Fail(ready.error());
    return walk;
}

Done TopDownWalk::Resume(const ReadTxn& txn)
{
    auto cursor = ChildCursor::Open(txn);
    if (!cursor) return Fail(cursor.error());
    m_cursor = std::move(*cursor);
    m_isPlaced = false;
    return {};
}

Result<std::optional<KeyRow>> TopDownWalk::Next()
{
    auto row = Step();
    while (row && !*row && !m_levels.empty()) {
        m_path.resize(m_levels.back().pathEnd);
        m_levels.pop_back();
        if (m_levels.empty()) break;
        row = m_cursor->Seek(m_levels.back().parent, LastSegment(m_path), true);
    }
    if (!row) return row;
    m_isPlaced = row->has_value();
    m_descends = m_isPlaced && (*row)->childCount != 0;
    if (!m_isPlaced) return row;

    m_last = (*row)->id;
    m_path.resize(m_levels.back().pathEnd);
    if (!m_path.empty()) m_path += '/';
    m_path += (*row)->name;
    return row;
}

// The first child or the next sibling of the last key, when it has one.
Result<std::optional<KeyRow>> TopDownWalk::Step()
{
    if (m_descends) {
        m_levels.push_back({m_last, m_path.size()});
        return m_cursor->Seek(m_last);
    }
    if (m_levels.empty()) return std::nullopt;
    if (m_isPlaced) return m_cursor->Next();
    return m_cursor->Seek(m_levels.back().parent, LastSegment(m_path), true);
}

}  // namespace zentrel
