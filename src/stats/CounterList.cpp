#include "stats/CounterList.h"

#include "base/Translate.h"

namespace {

constexpr std::string_view kTexts[] = {
    // clang-format off
    R"(\Zentrel(_Total)\% Compression Processor Time)", TRANSLATE_NOOP("Counters", "Compression CPU Time"),
    R"(\Zentrel(_Total)\Response Bytes Uncompressed)", TRANSLATE_NOOP("Counters", "Bytes Uncompressed"),
    R"(\Zentrel(_Total)\Response Bytes Compressed)", TRANSLATE_NOOP("Counters", "Bytes Compressed"),
    R"(\Zentrel(_Total)\Response Bytes Uncompressed Equivalent)", TRANSLATE_NOOP("Counters", "Bytes Uncompressed Equiv"),
    R"(\Zentrel(_Total)\Response Bytes Total Equivalent)", TRANSLATE_NOOP("Counters", "Bytes Total Equiv"),
    R"(\Zentrel(_Total)\Response Bytes Total)", TRANSLATE_NOOP("Counters", "Bytes Total"),
    R"(\Zentrel(_Total)\Bandwidth Savings)", "",
    R"(\Zentrel(_Total)\Average Compression Ratio)", "",
    R"(\Zentrel(_Total)\Average Reduction)", "",
    R"(\Zentrel(_Total)\Responses Sent Uncompressed)", TRANSLATE_NOOP("Counters", "Responses Uncompressed"),
    R"(\Zentrel(_Total)\Responses Sent Compressed)", TRANSLATE_NOOP("Counters", "Responses Compressed"),
    R"(\Zentrel(_Total)\% Responses Sent Compressed)", TRANSLATE_NOOP("Counters", "% Responses Compressed"),
    R"(\Zentrel(_Total)\Responses Cacheable)", "",
    R"(\Zentrel(_Total)\% Responses Cacheable)", "",
    R"(\Zentrel(_Total)\% Responses From Cache)", "",
    R"(\Zentrel(_Total)\Responses Sent Total)", TRANSLATE_NOOP("Counters", "Responses Total"),
    R"(\Zentrel(_Total)\Cache Misses)", "",
    R"(\Zentrel(_Total)\Cache Hits)", "",
    R"(\Zentrel(_Total)\% Cache Hits)", "",
    // clang-format on
};

}  // namespace

CounterList PairRows(std::span<const std::string_view> texts)
{
    CounterList rows(texts.size() / 2);
    for (std::size_t i = 0; i < rows.size(); ++i)
        rows[i] = {std::string(texts[2 * i]), std::string(texts[2 * i + 1])};
    return rows;
}

std::string CounterWords(const std::string& english)
{
    return Translate("Counters", english.c_str());
}

CounterList MakeCounterList()
{
    return PairRows(kTexts);
}
