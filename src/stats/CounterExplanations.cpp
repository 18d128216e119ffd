#include "stats/CounterExplanations.h"

#include "platform/PdhStatus.h"

#include <algorithm>
#include <iterator>

namespace {

using namespace PdhType;

constexpr CounterExplanation kExplanations[] = {
    {"% Compression Processor Time", Timer100Ns,
     "The share of one processor's time that went into compressing responses since the counters were last "
     "reset. A high value means that compression competes with the rest of the server."},
    {"Response Bytes Uncompressed", LargeRawCount,
     "The bytes of all response bodies that were sent as they are, without compression."},
    {"Response Bytes Compressed", LargeRawCount,
     "The bytes of all response bodies that were sent compressed, as they went over the network."},
    {"Response Bytes Uncompressed Equivalent", LargeRawCount,
     "The bytes that the compressed responses would have needed without compression. Compare them with "
     "Response Bytes Compressed."},
    {"Response Bytes Total Equivalent", LargeRawCount,
     "The bytes that all responses together would have needed without any compression."},
    {"Response Bytes Total", LargeRawCount,
     "The bytes of all response bodies that were sent, compressed or not."},
    {"Bandwidth Savings", LargeRawCount,
     "The bytes that compression kept off the network: what the compressed responses would have needed, less "
     "what they did need. It is negative when compression made them larger."},
    {"Average Compression Ratio", LargeRawFraction,
     "The size of the compressed responses as a percentage of their original size. The lower it is, the "
     "better the content compresses."},
    {"Average Reduction", LargeRawFraction,
     "By how many percent compression made the compressed responses smaller than their originals. The higher "
     "it is, the better."},
    {"Responses Sent Uncompressed", RawCount,
     "The number of responses that were sent as they are, because the client or the kind of file does not "
     "allow compression."},
    {"Responses Sent Compressed", RawCount,
     "The number of responses that were sent compressed, from the cache or freshly made."},
    {"% Responses Sent Compressed", RawFraction,
     "The percentage of all responses that were sent compressed."},
    {"Responses Cacheable", RawCount,
     "The number of responses for which a compressed version may be kept in the cache. Each of them is "
     "either "
     "a cache hit or a cache miss."},
    {"% Responses Cacheable", RawFraction,
     "The percentage of all responses for which a compressed version may be kept in the cache."},
    {"% Responses From Cache", RawFraction,
     "The percentage of all responses, cacheable or not, that were answered with a compressed version out of "
     "the cache."},
    {"Responses Sent Total", RawCount, "The number of all responses that were sent, compressed or not."},
    {"Cache Misses", RawCount,
     "The number of cacheable responses that were not in the cache or out of date there. Many of them are "
     "usual after a clean-up or a change of the site."},
    {"Cache Hits", RawCount,
     "The number of responses that were answered out of the cache, without any work for the compressor."},
    {"% Cache Hits", RawFraction,
     "The percentage of look-ups in the cache that found what they wanted. A low value after a while of "
     "steady traffic means that the cache does not help much."},
};

}  // namespace

std::optional<CounterExplanation> ExplainCounter(std::string_view name)
{
    const auto at = std::find_if(std::begin(kExplanations), std::end(kExplanations),
                                 [name](const auto& one) { return one.name == name; });
    if (at == std::end(kExplanations)) return std::nullopt;
    return *at;
}
