#pragma once

#include "base/Result.h"
#include "zentrel/Property.h"

#include <cstddef>
#include <cstdint>

namespace zentrel {

// One file of a server's cache folder, open for reading from its start. It ends where the file ended when it
// was opened, also when it grows; one that shrinks meanwhile ends earlier.
class CacheFileReader {
public:
    virtual ~CacheFileReader() = default;
    virtual std::uint64_t Size() const = 0;  // bytes, when it was opened
    // The next bytes, at least one and at most `most`; none at the end. Fails with ServerUnavailable,
    // IoError.
    virtual Result<Bytes> Read(std::size_t most) = 0;
};

}  // namespace zentrel
