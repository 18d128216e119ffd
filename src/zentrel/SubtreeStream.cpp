#include "zentrel/SubtreeStream.h"

#include "zentrel/LittleEndian.h"

namespace zentrel {

namespace {

// depth (4), number of children (4), size of the properties (4), size of the name (4), name, properties.
constexpr std::size_t kHeader = 16;

}  // namespace

void RowBatch::Clear()
{
    m_bytes.clear();
    m_at = 0;
}

void RowBatch::Assign(std::string packed)
{
    m_bytes = std::move(packed);
    m_at = 0;
}

void RowBatch::Add(const SubtreeRow& row)
{
    const auto at = m_bytes.size();
    m_bytes.resize(at + kHeader);
    auto* to = reinterpret_cast<std::byte*>(m_bytes.data() + at);
    StoreLittle(to, row.depth);
    StoreLittle(to + 4, row.childCount);
    StoreLittle(to + 8, static_cast<std::uint32_t>(row.properties.size()));
    StoreLittle(to + 12, static_cast<std::uint32_t>(row.name.size()));
    m_bytes.append(row.name);
    m_bytes.append(reinterpret_cast<const char*>(row.properties.data()), row.properties.size());
}

std::optional<SubtreeRow> RowBatch::Peek() const
{
    const auto rest = std::as_bytes(std::span(m_bytes)).subspan(m_at);
    if (rest.size() < kHeader) return std::nullopt;
    const std::size_t propertySize = LoadLittle<std::uint32_t>(rest.data() + 8);
    const std::size_t nameSize = LoadLittle<std::uint32_t>(rest.data() + 12);
    if (propertySize + nameSize > rest.size() - kHeader) return std::nullopt;
    SubtreeRow row;
    row.depth = LoadLittle<std::uint32_t>(rest.data());
    row.childCount = LoadLittle<std::uint32_t>(rest.data() + 4);
    row.name = std::string_view(m_bytes).substr(m_at + kHeader, nameSize);
    row.properties = rest.subspan(kHeader + nameSize, propertySize);
    return row;
}

std::optional<SubtreeRow> RowBatch::Take()
{
    auto row = Peek();
    if (row) m_at += kHeader + row->name.size() + row->properties.size();
    return row;
}

}  // namespace zentrel
