#pragma once

#include "zentrel/Property.h"

#include <cstdint>
#include <string_view>

namespace zentrel {

enum class Encoding : std::uint32_t { Gzip = 1, Deflate = 2 };

inline constexpr Encoding kEncodings[] = {Encoding::Gzip, Encoding::Deflate};

// The ending of the cached file's name, and what a client calls the encoding with a dot before it.
inline std::string_view CachedExtension(Encoding encoding)
{
    return encoding == Encoding::Gzip ? ".gzip" : ".deflate";
}

// The property that holds the cache record of this encoding's file.
inline PropertyId RecordProperty(Encoding encoding)
{
    return encoding == Encoding::Gzip ? Prop::GzipRecord : Prop::DeflateRecord;
}

}  // namespace zentrel
