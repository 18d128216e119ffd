#include "fuzz/Targets.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FUZZ_TARGET(std::as_bytes(std::span(data, size)));
    return 0;
}
