#include "controls/ToolbarLayout.h"

#include <algorithm>
#include <optional>
#include <utility>

// Stored are lines of text, each ended by a line feed:
//
//     toolbar 1           the format; another number stands for one that this version cannot read
//     button Connect      on the bar, in order
//     separator
//     spare Help          not on the bar, though there was such a button
//     end                 so that a value that was cut off is noticed
//
// Lines that begin with another word are a later version's affair.
namespace {

constexpr std::string_view kHeading = "toolbar 1", kEnd = "end";
constexpr std::string_view kButton = "button ", kSpare = "spare ", kSeparatorLine = "separator";

struct Stored {
    ToolbarLayout::Items items;
    ToolbarLayout::Items spare;
};

bool Contains(const ToolbarLayout::Items& items, std::string_view item)
{
    return std::find(items.begin(), items.end(), item) != items.end();
}

void AppendLine(std::string& text, std::string_view word, std::string_view key = {})
{
    text.append(word).append(key).append(1, '\n');
}

// Takes the first line off; nothing when none is ended.
std::optional<std::string_view> TakeLine(std::string_view& text)
{
    const auto end = text.find('\n');
    if (end == std::string_view::npos) return std::nullopt;
    const auto line = text.substr(0, end);
    text.remove_prefix(end + 1);
    return line;
}

std::optional<Stored> ReadStored(std::string_view text)
{
    if (TakeLine(text) != kHeading) return std::nullopt;
    Stored stored;
    while (const auto line = TakeLine(text)) {
        if (*line == kEnd) return stored;
        if (*line == kSeparatorLine) stored.items.emplace_back(ToolbarLayout::kSeparator);
        if (line->starts_with(kButton)) stored.items.emplace_back(line->substr(kButton.size()));
        if (line->starts_with(kSpare)) stored.spare.emplace_back(line->substr(kSpare.size()));
    }
    return std::nullopt;
}

}  // namespace

ToolbarLayout::ToolbarLayout(Items standard) : m_standard(std::move(standard)), m_items(m_standard) {}

bool ToolbarLayout::IsButton(std::string_view key) const
{
    return key != kSeparator && Contains(m_standard, key);
}

bool ToolbarLayout::IsOnBar(std::string_view key) const
{
    return Contains(m_items, key);
}

ToolbarLayout::Items ToolbarLayout::Available() const
{
    Items available{std::string(kSeparator)};
    for (const auto& key : m_standard)
        if (IsButton(key) && !IsOnBar(key)) available.push_back(key);
    return available;
}

bool ToolbarLayout::Insert(std::string_view item, std::size_t at)
{
    if (at > m_items.size()) return false;
    if (item == kSeparator) {
        const auto separators = std::count(m_items.begin(), m_items.end(), kSeparator);
        if (static_cast<std::size_t>(separators) >= kMostSeparators) return false;
    } else if (!IsButton(item) || IsOnBar(item)) {
        return false;
    }
    m_items.emplace(m_items.begin() + static_cast<std::ptrdiff_t>(at), item);
    return true;
}

bool ToolbarLayout::Remove(std::size_t at)
{
    if (at >= m_items.size()) return false;
    m_items.erase(m_items.begin() + static_cast<std::ptrdiff_t>(at));
    return true;
}

bool ToolbarLayout::Move(std::size_t from, std::size_t to)
{
    if (from >= m_items.size() || to >= m_items.size()) return false;
    const auto item = m_items.begin() + static_cast<std::ptrdiff_t>(from);
    const auto place = m_items.begin() + static_cast<std::ptrdiff_t>(to);
    if (from < to) std::rotate(item, item + 1, place + 1);
    if (to < from) std::rotate(place, item, item + 1);
    return true;
}

std::vector<std::uint8_t> ToolbarLayout::Bytes() const
{
    std::string text;
    AppendLine(text, kHeading);
    for (const auto& item : m_items)
        item == kSeparator ? AppendLine(text, kSeparatorLine) : AppendLine(text, kButton, item);
    for (const auto& item : Available())
        if (item != kSeparator) AppendLine(text, kSpare, item);
    AppendLine(text, kEnd);
    return {text.begin(), text.end()};
}

bool ToolbarLayout::Restore(std::span<const std::uint8_t> bytes)
{
    const auto stored = ReadStored({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    m_items.clear();
    const auto cannotStand = [this](const std::string& item) {
        const bool isKnown = item == kSeparator || IsButton(item);
        return isKnown && !Insert(item, m_items.size());
    };
    if (!stored || std::any_of(stored->items.begin(), stored->items.end(), cannotStand)) {
        Reset();
        return false;
    }
    for (std::size_t i = 0; i < m_standard.size(); ++i)
        if (!Contains(stored->spare, m_standard[i])) InsertNew(i);
    return true;
}

// Behind the nearest button that also comes before it in the default arrangement. Nothing for a separator and
// a button that the bar has already.
void ToolbarLayout::InsertNew(std::size_t standardPlace)
{
    std::size_t at = 0;
    for (std::size_t i = 0; i < standardPlace; ++i) {
        if (m_standard[i] == kSeparator) continue;
        const auto before = std::find(m_items.begin(), m_items.end(), m_standard[i]);
        if (before != m_items.end()) at = static_cast<std::size_t>(before - m_items.begin()) + 1;
    }
    if (IsButton(m_standard[standardPlace])) Insert(m_standard[standardPlace], at);
}
