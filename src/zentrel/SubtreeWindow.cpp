#include "zentrel/SubtreeWindow.h"

#include "zentrel/KeyPath.h"

#include <algorithm>

namespace zentrel {

namespace {

// Rows left over in one step, before the window gives up and the server is asked key by key.
constexpr int kMostSkipped = 4096;

}  // namespace

SubtreeWindow::SubtreeWindow(std::unique_ptr<SubtreeStream> stream, std::string_view top)
    : m_stream(std::move(stream))
{
    const auto first = Peek();
    if (!first) {
        Break();
        return;
    }
    Enter(*first, 0);
    Take();
    m_path = top;
    m_levels.front().pathEnd = m_path.size();
}

std::optional<SubtreeRow> SubtreeWindow::Peek()
{
    if (m_isBroken) return std::nullopt;
    auto row = m_batch.Peek();
    if (!row && !m_isAtEnd) {
        if (!m_stream->Next(m_batch)) return Break();
        m_isAtEnd = m_batch.Bytes() == 0;
        row = m_batch.Peek();
        if (!row && !m_isAtEnd) return Break();
    }
    if (row && !Fits(*row)) return Break();
    return row;
}

std::nullopt_t SubtreeWindow::Break()
{
    m_isBroken = true;
    m_depth = 0;
    return std::nullopt;
}

void SubtreeWindow::Take()
{
    const auto row = m_batch.Take();
    if (!row) return;
    m_lastDepth = row->depth;
    m_lastChildCount = row->childCount;
}

// A server may lie: every row stands below the one before it or beside one above that.
bool SubtreeWindow::Fits(const SubtreeRow& row) const
{
    if (m_visits == 0) return row.depth == 0;
    const bool isBelowLast = row.depth == m_lastDepth + 1;
    return row.depth != 0 && row.depth <= m_lastDepth + 1 && (!isBelowLast || m_lastChildCount != 0) &&
           IsSegment(row.name);
}

void SubtreeWindow::Enter(const SubtreeRow& row, std::size_t parentEnd)
{
    m_path.resize(parentEnd);
    if (m_depth != 0) m_path += '/';
    m_path += row.name;
    if (m_levels.size() == m_depth) m_levels.emplace_back();
    auto& level = m_levels[m_depth++];
    level.pathEnd = m_path.size();
    level.visit = ++m_visits;
    level.childCount = row.childCount;
    level.properties.assign(reinterpret_cast<const char*>(row.properties.data()), row.properties.size());
}

const SubtreeWindow::Level* SubtreeWindow::FindLevel(std::string_view path) const
{
    const auto end = m_levels.begin() + static_cast<std::ptrdiff_t>(m_depth);
    auto level = end - 1;  // mostly it is the one that the walk stands on
    if (level->pathEnd != path.size())
        level = std::lower_bound(m_levels.begin(), end, path.size(),
                                 [](const Level& at, std::size_t size) { return at.pathEnd < size; });
    const bool isThere =
        level != end && level->pathEnd == path.size() && std::string_view(m_path).starts_with(path);
    return isThere ? &*level : nullptr;
}

std::optional<SubtreeWindow::Key> SubtreeWindow::Find(std::string_view path)
{
    if (m_depth == 0) return std::nullopt;
    if (const auto* level = FindLevel(path))
        return Key{static_cast<std::uint32_t>(level - m_levels.data()), level->childCount,
                   std::as_bytes(std::span(level->properties)), level->visit};

    const auto isBelow =
        path.size() > m_path.size() && path[m_path.size()] == '/' && path.starts_with(m_path);
    if (!isBelow) return std::nullopt;
    const auto next = Peek();
    if (!next || next->depth != m_depth || next->name != path.substr(m_path.size() + 1)) return std::nullopt;
    return Key{next->depth, next->childCount, next->properties, 0};
}

std::optional<std::string_view> SubtreeWindow::FirstChild(std::uint32_t depth, std::uint64_t visit)
{
    if (depth + 1 != m_depth || m_levels[depth].visit != visit) return std::nullopt;
    const auto next = Peek();
    if (!next || next->depth != m_depth) return std::nullopt;
    return next->name;
}

SubtreeWindow::Step SubtreeWindow::NextChild(std::uint32_t depth, std::uint64_t visit, std::string& name)
{
    if (depth >= m_depth || m_levels[depth].visit != visit) return Step::NotHere;
    for (int skipped = 0; skipped < kMostSkipped; ++skipped) {
        const auto row = Peek();
        if (m_isBroken) return Step::NotHere;
        if (!row || row->depth <= depth) return Step::AtEnd;
        if (row->depth == depth + 1) {
            m_depth = depth + 1;
            Enter(*row, m_levels[depth].pathEnd);
            name = row->name;
            Take();
            return Step::Moved;
        }
        Take();  // left over from a subtree that the walk did not go into
    }
    Break();
    return Step::NotHere;
}

}  // namespace zentrel
