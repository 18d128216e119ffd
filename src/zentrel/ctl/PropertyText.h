#pragma once

#include "zentrel/Property.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace zentrel {

std::string_view PropertyName(PropertyId id);  // "CacheId"; "-" for an id that is not known
std::string_view TypeName(PropertyType type);  // "number", "text", "bytes", "list"

// A date of a record (ticks since 1601) as ISO 8601 in UTC, "2026-11-22T20:54:39.5Z"; the fraction has at
// most seven digits and is left out when it is 0. Years beyond 9999 have a plus sign.
std::string IsoTime(std::uint64_t ticks);

std::string Hexadecimal(std::span<const std::byte> bytes);

struct Seconds {
    double value = 0;
};

// One field of a binary record.
struct RecordField {
    std::string_view name;
    std::variant<std::uint64_t, std::int32_t, Seconds, std::string> value;
};

// The fields of a cache record or a statistics record; empty when the property is neither, or when its
// bytes are no record that can be read.
std::vector<RecordField> DecodeRecord(const PropertyView& property);

}  // namespace zentrel
