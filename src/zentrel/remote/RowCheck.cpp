#include "zentrel/remote/RowCheck.h"

#include "zentrel/KeyPath.h"
#include "zentrel/LittleEndian.h"
#include "zentrel/remote/Limits.h"

namespace zentrel {

namespace {

constexpr std::size_t kHeader = 16;  // of a packed row, see SubtreeStream.cpp

}  // namespace

Done RowCheck::Check(std::string_view packed)
{
    const auto refused = [] { return Fail(Code::InvalidData, "ZentrelAdmin"); };
    if (packed.size() > Limit::Batch) return refused();
    while (!packed.empty()) {
        if (packed.size() < kHeader || m_rows == Limit::Rows) return refused();
        const auto* const header = reinterpret_cast<const std::byte*>(packed.data());
        const auto depth = LoadLittle<std::uint32_t>(header);
        const std::size_t size = LoadLittle<std::uint32_t>(header + 8);
        const std::size_t nameSize = LoadLittle<std::uint32_t>(header + 12);
        const auto whole = kHeader + size + nameSize;
        if (whole > packed.size() || nameSize > kLongestName) return refused();
        const bool fits = m_rows == 0 ? depth == 0 : depth != 0 && depth <= m_lastDepth + 1;
        if (!fits || depth > Limit::Depth) return refused();

        if (depth == m_largest.size()) m_largest.push_back(0);
        if (auto& largest = m_largest[depth]; largest < whole) {
            m_levelBytes += whole - largest;
            largest = static_cast<std::uint32_t>(whole);
        }
        m_nameBytes += nameSize;
        m_bytes += whole;
        if (m_levelBytes > Limit::LevelBytes || m_nameBytes > Limit::RowNames || m_bytes > Limit::RowBytes)
            return refused();
        m_lastDepth = depth;
        ++m_rows;
        packed.remove_prefix(whole);
    }
    return {};
}

}  // namespace zentrel
