#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <variant>

// A control's properties by name, as a window's definition keeps them: what has its default value is left
// out. Colours are kept as 32-bit integers, their bits unchanged.
class PropertyBag {
public:
    // An absent value, and one that cannot be the wanted kind, reads as the default. Between the number kinds
    // the nearest value is taken: ties to even, the ends of the range for what lies beyond.
    bool ReadBool(std::string_view name, bool standard) const;
    std::int32_t ReadInt(std::string_view name, std::int32_t standard) const;
    float ReadFloat(std::string_view name, float standard) const;
    std::uint32_t ReadColor(std::string_view name, std::uint32_t standard) const;
    std::string ReadText(std::string_view name, std::string_view standard) const;

    // Writing the default takes an earlier value out.
    void WriteBool(std::string_view name, bool value, bool standard);
    void WriteInt(std::string_view name, std::int32_t value, std::int32_t standard);
    void WriteFloat(std::string_view name, float value, float standard);
    void WriteColor(std::string_view name, std::uint32_t value, std::uint32_t standard);
    void WriteText(std::string_view name, std::string_view value, std::string_view standard);

    bool Contains(std::string_view name) const { return m_values.find(name) != m_values.end(); }
    std::size_t Count() const { return m_values.size(); }

private:
    using Value = std::variant<bool, std::int32_t, float, std::string>;

    const Value* Find(std::string_view name) const;
    void Put(std::string_view name, Value value, const Value& standard);

    std::map<std::string, Value, std::less<>> m_values;
};
