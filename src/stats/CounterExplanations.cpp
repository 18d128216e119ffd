#include "stats/CounterExplanations.h"

#include "base/Translate.h"
#include "platform/PdhStatus.h"

#include <algorithm>
#include <iterator>

namespace {

using namespace PdhType;

constexpr CounterExplanation kExplanations[] = {
    {TRANSLATE_NOOP("Counters", "% Compression Processor Time"), Timer100Ns,
     TRANSLATE_NOOP("Counters",
                    "The share of one processor's time that went into compressing responses since the "
                    "counters were last "
                    "reset. A high value means that compression competes with the rest of the server.")},
    {TRANSLATE_NOOP("Counters", "Response Bytes Uncompressed"), LargeRawCount,
     TRANSLATE_NOOP("Counters",
                    "The bytes of all response bodies that were sent as they are, without compression.")},
    {TRANSLATE_NOOP("Counters", "Response Bytes Compressed"), LargeRawCount,
     TRANSLATE_NOOP(
         "Counters",
         "The bytes of all response bodies that were sent compressed, as they went over the network.")},
    {TRANSLATE_NOOP("Counters", "Response Bytes Uncompressed Equivalent"), LargeRawCount,
     TRANSLATE_NOOP(
         "Counters",
         "The bytes that the compressed responses would have needed without compression. Compare them with "
         "Response Bytes Compressed.")},
    {TRANSLATE_NOOP("Counters", "Response Bytes Total Equivalent"), LargeRawCount,
     TRANSLATE_NOOP("Counters",
                    "The bytes that all responses together would have needed without any compression.")},
    {TRANSLATE_NOOP("Counters", "Response Bytes Total"), LargeRawCount,
     TRANSLATE_NOOP("Counters", "The bytes of all response bodies that were sent, compressed or not.")},
    {TRANSLATE_NOOP("Counters", "Bandwidth Savings"), LargeRawCount,
     TRANSLATE_NOOP("Counters", "The bytes that compression kept off the network: what the compressed "
                                "responses would have needed, less "
                                "what they did need. It is negative when compression made them larger.")},
    {TRANSLATE_NOOP("Counters", "Average Compression Ratio"), LargeRawFraction,
     TRANSLATE_NOOP(
         "Counters",
         "The size of the compressed responses as a percentage of their original size. The lower it is, the "
         "better the content compresses.")},
    {TRANSLATE_NOOP("Counters", "Average Reduction"), LargeRawFraction,
     TRANSLATE_NOOP("Counters", "By how many percent compression made the compressed responses smaller than "
                                "their originals. The higher "
                                "it is, the better.")},
    {TRANSLATE_NOOP("Counters", "Responses Sent Uncompressed"), RawCount,
     TRANSLATE_NOOP("Counters", "The number of responses that were sent as they are, because the client or "
                                "the kind of file does not "
                                "allow compression.")},
    {TRANSLATE_NOOP("Counters", "Responses Sent Compressed"), RawCount,
     TRANSLATE_NOOP("Counters",
                    "The number of responses that were sent compressed, from the cache or freshly made.")},
    {TRANSLATE_NOOP("Counters", "% Responses Sent Compressed"), RawFraction,
     TRANSLATE_NOOP("Counters", "The percentage of all responses that were sent compressed.")},
    {TRANSLATE_NOOP("Counters", "Responses Cacheable"), RawCount,
     TRANSLATE_NOOP(
         "Counters",
         "The number of responses for which a compressed version may be kept in the cache. Each of them is "
         "either "
         "a cache hit or a cache miss.")},
    {TRANSLATE_NOOP("Counters", "% Responses Cacheable"), RawFraction,
     TRANSLATE_NOOP(
         "Counters",
         "The percentage of all responses for which a compressed version may be kept in the cache.")},
    {TRANSLATE_NOOP("Counters", "% Responses From Cache"), RawFraction,
     TRANSLATE_NOOP("Counters", "The percentage of all responses, cacheable or not, that were answered with "
                                "a compressed version out of "
                                "the cache.")},
    {TRANSLATE_NOOP("Counters", "Responses Sent Total"), RawCount,
     TRANSLATE_NOOP("Counters", "The number of all responses that were sent, compressed or not.")},
    {TRANSLATE_NOOP("Counters", "Cache Misses"), RawCount,
     TRANSLATE_NOOP("Counters", "The number of cacheable responses that were not in the cache or out of date "
                                "there. Many of them are "
                                "usual after a clean-up or a change of the site.")},
    {TRANSLATE_NOOP("Counters", "Cache Hits"), RawCount,
     TRANSLATE_NOOP("Counters", "The number of responses that were answered out of the cache, without any "
                                "work for the compressor.")},
    {TRANSLATE_NOOP("Counters", "% Cache Hits"), RawFraction,
     TRANSLATE_NOOP(
         "Counters",
         "The percentage of look-ups in the cache that found what they wanted. A low value after a while of "
         "steady traffic means that the cache does not help much.")},
};

}  // namespace

std::optional<CounterExplanation> ExplainCounter(std::string_view name)
{
    const auto at = std::find_if(std::begin(kExplanations), std::end(kExplanations),
                                 [name](const auto& one) { return one.name == name; });
    if (at == std::end(kExplanations)) return std::nullopt;
    return *at;
}
