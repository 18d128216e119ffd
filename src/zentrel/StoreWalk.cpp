#include "zentrel/StoreWalk.h"

#include "zentrel/KeyPath.h"

namespace zentrel {

namespace {

constexpr std::size_t kBatchBytes = 64U << 10U;

bool Has(const KeyRow& row, PropertyId id)
{
    return FindProperty(row.properties, id).has_value();
}

// Set up by an administrator, and no entry by itself.
bool IsSetUp(const KeyRow& row)
{
    return Has(row, Prop::KeyType) && !Has(row, Prop::CacheId);
}

}  // namespace

Result<CacheView> CacheView::Open(const ReadTxn& txn)
{
    auto cursor = ChildCursor::Open(txn);
    if (!cursor) return Fail(cursor.error());
    return CacheView(std::move(*cursor));
}

Result<bool> CacheView::Shows(const KeyRow& row)
{
    if (!IsSetUp(row)) return true;
    return LeadsToEntry(row);
}

Result<std::uint32_t> CacheView::ChildCount(const KeyRow& row)
{
    if (row.childCount == 0 || !Has(row, Prop::KeyType)) return row.childCount;
    if (!Has(row, Prop::CacheId)) {
        const auto leads = LeadsToEntry(row);
        if (!leads) return Fail(leads.error());
        return *leads ? row.childCount : 0;
    }
    std::uint32_t count = 0;
    auto child = m_cursor.Seek(row.id);
    while (child && *child) {
        const KeyRow at = **child;
        if (IsSetUp(at)) {
            const auto leads = LeadsToEntry(at);  // moves the cursor
            if (!leads) return Fail(leads.error());
            count += *leads ? 1 : 0;
            child = m_cursor.Seek(row.id, at.name, true);
        } else {
            ++count;
            child = m_cursor.Next();
        }
    }
    if (!child) return Fail(child.error());
    return count;
}

// Looks through the set-up keys below a row; they are few, cached URLs below them end the search at once.
Result<bool> CacheView::LeadsToEntry(const KeyRow& row)
{
    std::vector<KeyId> open;
    if (row.childCount != 0) open.push_back(row.id);
    while (!open.empty()) {
        const auto id = open.back();
        open.pop_back();
        for (auto child = m_cursor.Seek(id);; child = m_cursor.Next()) {
            if (!child) return Fail(child.error());
            if (!*child) break;
            if (!IsSetUp(**child)) return true;
            if ((*child)->childCount != 0) open.push_back((*child)->id);
        }
    }
    return false;
}

Result<std::unique_ptr<SubtreeStream>> StoreWalk::Begin(const Metabase& store, std::string_view path)
{
    const auto checked = CheckPath(path);
    if (!checked) return Fail(checked.error());
    auto txn = store.BeginRead();
    if (!txn) return Fail(txn.error());
    auto top = txn->Find(*checked);
    if (!top) return Fail(top.error());
    if (!*top) return Fail(Code::FileNotFound, "Metabase");
    (*top)->name = {};  // lies in the caller's path; whoever asked knows it
    auto cursor = ChildCursor::Open(*txn);
    if (!cursor) return Fail(cursor.error());
    auto view = CacheView::Open(*txn);
    if (!view) return Fail(view.error());
    return std::unique_ptr<SubtreeStream>(
        new StoreWalk(std::move(*txn), std::move(*cursor), std::move(*view), **top));
}

Done StoreWalk::Next(RowBatch& batch)
{
    batch.Clear();
    while (!m_isOver && batch.Bytes() < kBatchBytes) {
        if (m_row) {
            if (auto emitted = Emit(batch); !emitted) {
                m_isOver = true;
                return emitted;
            }
            continue;
        }
        if (m_levels.empty()) break;
        const auto level = m_levels.back();
        m_levels.pop_back();
        m_isOver = m_levels.empty();  // the top key has no siblings that matter
        if (m_isOver) break;
        m_parent = level.parent;
        auto next = m_cursor.Seek(level.parent, level.name, true);
        if (!next) return Fail(next.error());
        m_row = *next;
    }
    return {};
}

Done StoreWalk::Emit(RowBatch& batch)
{
    const bool isTop = std::exchange(m_isTop, false);
    const auto shown = isTop ? Result<bool>(true) : m_view.Shows(*m_row);
    if (!shown) return Fail(shown.error());
    std::uint32_t children = 0;
    if (*shown) {
        const auto counted = m_view.ChildCount(*m_row);
        if (!counted) return Fail(counted.error());
        children = *counted;
        batch.Add({static_cast<std::uint32_t>(m_levels.size()), children, m_row->name, m_row->properties});
    }
    if (children != 0) return Descend();
    if (isTop) {
        m_isOver = true;
        return {};
    }
    auto next = m_cursor.Next();
    if (!next) return Fail(next.error());
    m_row = *next;
    return {};
}

Done StoreWalk::Descend()
{
    m_levels.push_back({m_parent, m_row->name});
    m_parent = m_row->id;
    auto first = m_cursor.Seek(m_row->id);
    if (!first) return Fail(first.error());
    m_row = *first;
    return {};
}

}  // namespace zentrel
