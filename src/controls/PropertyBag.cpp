#include "controls/PropertyBag.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <type_traits>
#include <utility>

namespace {

// The number in a value; none in a text and in what is no number.
template <class Value>
std::optional<double> NumberIn(const Value* value)
{
    if (!value) return std::nullopt;
    const auto number = std::visit(
        [](const auto& held) {
            if constexpr (std::is_arithmetic_v<std::decay_t<decltype(held)>>)
                return static_cast<double>(held);
            return std::numeric_limits<double>::quiet_NaN();
        },
        *value);
    if (std::isnan(number)) return std::nullopt;
    return number;
}

}  // namespace

const PropertyBag::Value* PropertyBag::Find(std::string_view name) const
{
    const auto found = m_values.find(name);
    return found == m_values.end() ? nullptr : &found->second;
}

void PropertyBag::Put(std::string_view name, Value value, const Value& standard)
{
    if (value != standard) {
        m_values.insert_or_assign(std::string(name), std::move(value));
    } else if (const auto found = m_values.find(name); found != m_values.end()) {
        m_values.erase(found);
    }
}

bool PropertyBag::ReadBool(std::string_view name, bool standard) const
{
    const auto number = NumberIn(Find(name));
    return number ? *number != 0 : standard;
}

std::int32_t PropertyBag::ReadInt(std::string_view name, std::int32_t standard) const
{
    using Limits = std::numeric_limits<std::int32_t>;
    const auto number = NumberIn(Find(name));
    if (!number) return standard;
    return static_cast<std::int32_t>(
        std::clamp<double>(std::nearbyint(*number), Limits::min(), Limits::max()));
}

float PropertyBag::ReadFloat(std::string_view name, float standard) const
{
    const auto number = NumberIn(Find(name));
    return number ? static_cast<float>(*number) : standard;
}

std::uint32_t PropertyBag::ReadColor(std::string_view name, std::uint32_t standard) const
{
    return static_cast<std::uint32_t>(ReadInt(name, static_cast<std::int32_t>(standard)));
}

std::string PropertyBag::ReadText(std::string_view name, std::string_view standard) const
{
    const auto* const value = Find(name);
    const auto* const text = value ? std::get_if<std::string>(value) : nullptr;
    return text ? *text : std::string(standard);
}

void PropertyBag::WriteBool(std::string_view name, bool value, bool standard)
{
    Put(name, value, standard);
}

void PropertyBag::WriteInt(std::string_view name, std::int32_t value, std::int32_t standard)
{
    Put(name, value, standard);
}

void PropertyBag::WriteFloat(std::string_view name, float value, float standard)
{
    Put(name, value, standard);
}

void PropertyBag::WriteColor(std::string_view name, std::uint32_t value, std::uint32_t standard)
{
    WriteInt(name, static_cast<std::int32_t>(value), static_cast<std::int32_t>(standard));
}

void PropertyBag::WriteText(std::string_view name, std::string_view value, std::string_view standard)
{
    Put(name, std::string(value), std::string(standard));
}
