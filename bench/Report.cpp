#include "Report.h"

#include <algorithm>
#include <cstdio>

namespace {

// A figure over its floor, both measured in this run, against the ratio that it must not pass. Where the
// floor is a plain number, the ratio is the figure itself.
struct Target {
    const char* figure;
    const char* unit;
    double scale;  // from seconds or bytes to the unit
    const char* value;
    const char* floor;  // name of the floor, or nullptr
    const char* floorText;
    double most;
    const char* mostText;
};

constexpr Target kTargets[] = {
    {"Scan of 1,000,000 URLs", "s", 1, "scan/1000000", "arena/1000000", "walk filling a bare arena", 2.5,
     "2.5x"},
    {"  the same, over the walk alone", "s", 1, "scan/1000000", "walk/1000000", "ordered walk", 0, "-"},
    {"  per entry, 1,000,000 against 100,000", "ns", 1e9, "scan/1000000:entry", "scan/100000:entry",
     "per entry at 100,000", 1.3, "1.3x"},
    {"Memory for each URL after the scan", "bytes", 1, "memory:url", nullptr, "135 in a trial", 200,
     "200 bytes"},
    {"Longest time between two visits", "ms", 1e3, "visits:longest", nullptr, "15 ms by design", 25, "25 ms"},
    {"Share of the scan spent in visits", "%", 1, "visits:share", nullptr, "1 to 3 % in a trial", 5, "5 %"},
    {"Expand all, first paint included", "s", 1, "expand/quillet", "expand/bare", "Qt on a bare arena", 2,
     "2x"},
    {"  memory it adds for each row", "bytes", 1, "expand-memory:quillet", "expand-memory:bare",
     "Qt on a bare arena", 2, "2x"},
    {"One frame while scrolling, 99th percentile", "ms", 1e3, "frames", nullptr, "4 ms in a trial", 8,
     "8 ms"},
    {"Emptying a tree of 1,000,000", "s", 1, "empty/1000000", nullptr, "", 0.3, "0.3 s"},
    {"10,000 file types in the list: filling it", "ms", 1e3, "types/fill", nullptr, "", 100, "100 ms"},
    {"  sorting it by type", "ms", 1e3, "types/sort0", nullptr, "", 100, "100 ms"},
    {"  sorting it by count", "ms", 1e3, "types/sort1", nullptr, "", 100, "100 ms"},
    {"  sorting it by compressed size", "ms", 1e3, "types/sort2", nullptr, "", 100, "100 ms"},
    {"  sorting it by uncompressed size", "ms", 1e3, "types/sort3", nullptr, "", 100, "100 ms"},
    {"  sorting it by ratio", "ms", 1e3, "types/sort4", nullptr, "", 100, "100 ms"},
    {"Start to first painted window", "ms", 1e3, "start/quillet", "start/minimal", "minimal Qt program", 2.5,
     "2.5x"},
    {"Nine levels over a 16 MiB text, processor time", "s", 1, "analysis/levels", "analysis/gzip",
     "the gzip program, -1 to -9", 0.85, "0.85x"},
    {"  longest time between two visits", "ms", 1e3, "analysis/dialog:longest", nullptr, "15 ms by design",
     100, "100 ms"},
    {"Warm: caching 10,000 files", "s", 1, "warm/quillet", "warm/zlib", "reading and zlib alone", 1.5,
     "1.5x"},
    {"Taking a folder of 100,000 URLs out of the tree", "ms", 1e3, "remove/collapsed", nullptr,
     "10 ms in a trial", 30, "30 ms"},
    {"  the same with 1,000,000 nodes expanded, until painted", "ms", 1e3, "remove/expanded", nullptr,
     "35 ms in a trial", 100, "100 ms"},
    {"  one file, likewise", "ms", 1e3, "remove/file", nullptr, "30 ms in a trial", 60, "60 ms"},
    {"DeleteTree of 100,000 entries with their files", "s", 1, "delete/tree", "delete/rm",
     "rm -r of the same files", 1.5, "1.5x"},
    {"  another client's longest read meanwhile", "ms", 1e3, "delete-wait:read", nullptr, "", 50, "50 ms"},
    {"  an answered request's longest wait", "ms", 1e3, "delete-wait:request", nullptr, "", 50, "50 ms"},
    {"Export of 1,000,000 URLs into SQLite through ODBC", "s", 1, "export/odbc", "export/sqlite",
     "the same rows with SQLite alone", 4, "4x"},
    {"  memory that it takes", "MiB", 1.0 / (1 << 20), "export/odbc:memory", nullptr, "", 16, "16 MiB"},
    {"Remote scan of 1,000,000 URLs, mutual TLS", "s", 1, "remote-scan/tls", "scan/1000000",
     "the embedded scan", 1.4, "1.4x"},
    {"  the same through the Unix socket", "s", 1, "remote-scan/unix", "scan/1000000", "the embedded scan",
     1.3, "1.3x"},
    {"  requests that it sends", "", 1, "remote-requests:requests", nullptr, "one for each entry", 2'000,
     "2,000"},
    {"  memory beyond the finished tree", "MiB", 1.0 / (1 << 20), "remote-memory:bytes", nullptr,
     "4 MiB of window", 32, "32 MiB"},
    {"Remote scan without read-ahead, 10,000 URLs", "s", 1, "no-read-ahead", nullptr, "", 0, "-"},
    {"GetData, median, mutual TLS", "us", 1e6, "get-data/tls", "echo/tls", "bare unary call", 1.5, "1.5x"},
    {"  the same through the Unix socket", "us", 1e6, "get-data/unix", "echo/unix", "bare unary call", 1.5,
     "1.5x"},
    {"8 clients scan 100,000 at once: the slowest", "s", 1, "crowd/8:each", "crowd/1",
     "one client (for each of the 8)", 1.2, "1.2x"},
};

void AppendNumber(std::string& out, double value, const char* unit)
{
    char text[48];
    std::snprintf(text, sizeof text,
                  value < 1     ? "%.3f %s"
                  : value < 100 ? "%.2f %s"
                                : "%.0f %s",
                  value, unit);
    out += text;
}

}  // namespace

void MedianReporter::ReportRuns(const std::vector<Run>& runs)
{
    for (const auto& run : runs) {
        if (run.run_type != Run::RT_Iteration || run.error_occurred) continue;
        const auto name =
            run.run_name.function_name + (run.run_name.args.empty() ? "" : "/" + run.run_name.args);
        m_values[name].push_back(run.real_accumulated_time / static_cast<double>(run.iterations));
        for (const auto& [counter, value] : run.counters)
            m_values[name + ":" + counter].push_back(value.value);
    }
    ConsoleReporter::ReportRuns(runs);
}

double MedianReporter::operator[](const std::string& name) const
{
    const auto found = m_values.find(name);
    if (found == m_values.end() || found->second.empty()) return 0;
    auto values = found->second;
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

int PrintTable(const MedianReporter& medians)
{
    int missed = 0;
    std::puts(
        "\n| figure | measured | floor in the same run | ratio | target | met |\n|---|---|---|---|---|---|");
    for (const auto& target : kTargets) {
        const auto value = medians[target.value];
        if (value == 0) continue;
        std::string line = std::string("| ") + target.figure + " | ";
        AppendNumber(line, value * target.scale, target.unit);
        line += " | ";
        auto compared = value * target.scale;
        std::string ratio = "-";
        if (target.floor != nullptr) {
            const auto floor = medians[target.floor];
            AppendNumber(line, floor * target.scale, target.unit);
            line += ", ";
            compared = value / floor;
            ratio.clear();
            AppendNumber(ratio, compared, "");
            ratio.back() = 'x';
        }
        const bool isMet = target.most == 0 || compared <= target.most;
        if (!isMet) ++missed;
        line += std::string(target.floorText) + " | " + ratio + " | " + target.mostText + " | " +
                (target.most == 0 ? "-"
                 : isMet          ? "yes"
                                  : "NO") +
                " |";
        std::puts(line.c_str());
    }
    return missed;
}
