#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// What stands on a toolbar, in order, and how a user's arrangement is stored. An item is the key of a button,
// or empty for a separator. A button stands on the bar at most once, separators as often as wanted up to a
// number that no bar has room for.
class ToolbarLayout {
public:
    using Items = std::vector<std::string>;
    static constexpr std::string_view kSeparator{};
    static constexpr std::size_t kMostSeparators = 32;

    // The default arrangement names every button that there is, once. Keys hold no line breaks.
    explicit ToolbarLayout(Items standard);

    const Items& Current() const { return m_items; }
    Items
    Available() const;  // what can be put on the bar: a separator, then the missing buttons in default order
    bool IsStandard() const { return m_items == m_standard; }

    // Positions count from 0. Each answers whether it could be done, and otherwise changes nothing.
    bool Insert(std::string_view item, std::size_t at);  // before the item that stands there now
    bool Remove(std::size_t at);
    bool Move(std::size_t from, std::size_t to);  // `to`: where it stands afterwards

    void Reset() { m_items = m_standard; }

    // The arrangement as it is stored. Restore takes such bytes of this program's older and newer versions as
    // well; a button that the storing version did not have comes to its place in the default arrangement,
    // one that this version does not have is left out. Anything else is answered with false and gives the
    // default arrangement.
    std::vector<std::uint8_t> Bytes() const;
    bool Restore(std::span<const std::uint8_t> bytes);

private:
    bool IsButton(std::string_view key) const;
    bool IsOnBar(std::string_view key) const;
    void InsertNew(std::size_t standardPlace);

    Items m_standard;
    Items m_items;
};
