#include "stats/CounterList.h"

namespace {

constexpr std::string_view kTexts[] = {
    // clang-format off
    R"(\Zentrel(_Total)\% Compression Processor Time)", "Compression CPU Time",
    R"(\Zentrel(_Total)\Response Bytes Uncompressed)", "Bytes Uncompressed",
    R"(\Zentrel(_Total)\Response Bytes Compressed)", "Bytes Compressed",
    R"(\Zentrel(_Total)\Response Bytes Uncompressed Equivalent)", "Bytes Uncompressed Equiv",
    R"(\Zentrel(_Total)\Response Bytes Total Equivalent)", "Bytes Total Equiv",
    R"(\Zentrel(_Total)\Response Bytes Total)", "Bytes Total",
    R"(\Zentrel(_Total)\Bandwidth Savings)", "",
    R"(\Zentrel(_Total)\Average Compression Ratio)", "",
    R"(\Zentrel(_Total)\Average Reduction)", "",
    R"(\Zentrel(_Total)\Responses Sent Uncompressed)", "Responses Uncompressed",
    R"(\Zentrel(_Total)\Responses Sent Compressed)", "Responses Compressed",
    R"(\Zentrel(_Total)\% Responses Sent Compressed)", "% Responses Compressed",
    R"(\Zentrel(_Total)\Responses Cacheable)", "",
    R"(\Zentrel(_Total)\% Responses Cacheable)", "",
    R"(\Zentrel(_Total)\% Responses From Cache)", "",
    R"(\Zentrel(_Total)\Responses Sent Total)", "Responses Total",
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

CounterList MakeCounterList()
{
    return PairRows(kTexts);
}
