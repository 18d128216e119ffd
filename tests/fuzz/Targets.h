#pragma once

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <string_view>

// What each fuzz program does with one input. The same functions replay the corpus in the ordinary tests.
// A broken promise aborts.
namespace fuzz {

using Input = std::span<const std::byte>;

void CacheRecord(Input bytes);
void StatisticsRecord(Input bytes);
void MetaPath(Input bytes);
void Property(Input bytes);
void AccessLog(Input bytes);
void RegistryBytes(Input bytes);
void ToolbarBytes(Input bytes);
void Config(Input bytes);
void MetricsRequest(Input bytes);
void ClientCertificate(Input bytes);
void ServerReply(Input bytes);

inline std::string_view TextOf(Input bytes)
{
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

inline void Require(bool holds, const char* promise)
{
    if (holds) return;
    std::fprintf(stderr, "Broken promise: %s\n", promise);
    std::abort();
}

}  // namespace fuzz
