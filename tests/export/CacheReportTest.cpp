#include "export/CacheReport.h"

#include "export/ReportCsv.h"
#include "export/ReportHtml.h"
#include "export/ReportSnapshot.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

std::string Paths(const ReportList& list)
{
    std::string paths;
    for (const auto& entry : list.top) paths += entry.path + ' ';
    return paths + std::to_string(list.all.count);
}

// The entries as they rank, and how many there are in all.
struct Ranked {
    const char* what;
    std::vector<SnapshotEntry> entries;
    ReportList CacheReport::*list;
    const char* paths;
};

CacheReport Made(const CacheSnapshot& snapshot, const ReportOptions& options = {})
{
    auto report = GenerateReport(snapshot, options);
    EXPECT_TRUE(report);
    return report ? std::move(*report) : CacheReport{};
}

TEST(CacheReport, RanksEachListAndCountsAllThatBelongToIt)
{
    constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
    const Ranked cases[] = {
        {"savings",
         {Saver("/1", 1), Saver("/0", 0), Saver("/9", 9), Saver("/-", -5), Saver("/5", 5)},
         &CacheReport::savers,
         "/9 /5 3"},
        {"no number", {Saver("/n", kNone), Saver("/1", 1)}, &CacheReport::savers, "/1 1"},
        {"never hit",
         {Hit("/1", 0, 10), Hit("/hit", 1, 99), Hit("/2", 0, 30), Hit("/3", 0, 20)},
         &CacheReport::neverHit,
         "/2 /3 3"},
        {"ratio",
         {Ratio("/even", 95, 100), Ratio("/96", 96, 100), Ratio("/120", 120, 100), Ratio("/empty", 20, 0)},
         &CacheReport::poorRatio,
         "/120 /96 2"},
        {"expired",
         {Expiring("/never", 0), Expiring("/now", kScanned), Expiring("/just", kScanned - 1e-6),
          Expiring("/later", kScanned + 1), Expiring("/old", 1), Expiring("/older", -1)},
         &CacheReport::expired,
         "/older /old 3"},
    };
    for (const auto& [what, entries, list, paths] : cases)
        EXPECT_EQ(Paths(Made(ReportSnapshot(entries), {2, 200, {}}).*list), paths) << what;
}

TEST(CacheReport, SumsLevelsAndNamesTheLargestTypes)
{
    std::vector<SnapshotEntry> entries;
    for (const int level : {0, 9, 9, 10, -1, 3}) {
        entries.push_back(Ratio("/x", 10, 100 + level));
        entries.back().level = level;
        entries.back().type = level == 3 ? "css" : std::to_string(level);
    }
    const auto report = Made(ReportSnapshot(entries), {25, 2, {}});
    std::string counts;
    for (const auto& level : report.levels) counts += std::to_string(level.count);
    EXPECT_EQ(counts, "10010000022");
    EXPECT_EQ(report.levels.back().uncompressedSize, 110 + 99);
    ASSERT_EQ(report.types.named.size(), 2U);
    EXPECT_EQ(report.types.named[0].name + ' ' + report.types.named[1].name, "9 10");
    EXPECT_EQ(report.types.others, 3);
    EXPECT_EQ(report.types.otherFigures.uncompressedSize, 100 + 99 + 103);
    EXPECT_EQ(report.totals.count, 6);
}

// A server with nothing good in mind.
CacheReport Hostile()
{
    auto entry = Ratio("/<script>alert(1)</script>\"'&\n\xE2\x80\xAE\xFF", 99, 100);
    entry.type = "=1+1,\"<b>";
    entry.queryHash = "0a";
    entry.figures.servedCompressed = 2e11;
    auto plain = Expiring("/plain", 0.5);
    plain.type = "";
    ReportSnapshot snapshot({entry, plain});
    snapshot.server = "</title><img src=x onerror=1>";
    return Made(snapshot);
}

TEST(ReportHtml, EscapesAllTextsAndLoadsNothing)
{
    const auto html = ReportHtml(Hostile(), {});
    for (const auto* bad : {"<script", "<img", "<b>,", "\"<b>", "onerror=1>", "http:", "https:", "\xFF",
                            "\xE2\x80\xAE", "url("})
        EXPECT_EQ(html.find(bad), std::string::npos) << bad;
    EXPECT_EQ(html.find("src="), html.find("src=x onerror=1&gt;"));
    EXPECT_NE(html.find("/&lt;script&gt;alert(1)&lt;/script&gt;&quot;&#39;&amp;\xE2\x90\x8A"),
              std::string::npos);
    EXPECT_NE(html.find("<td class=\"n\">99.00%</td>"), std::string::npos);
    const auto mirrored = ReportHtml(Hostile(), {}, true);
    for (const auto* part : {"<html dir=\"rtl\">", "<td><bdi dir=\"ltr\">/plain</bdi></td>",
                             "<td class=\"n\"><bdi>99.00%</bdi></td>"})
        EXPECT_NE(mirrored.find(part), std::string::npos) << part;
    EXPECT_NE(html.find("prefers-color-scheme: dark"), std::string::npos);
    EXPECT_NE(html.find("<svg"), std::string::npos);
    EXPECT_NE(html.find("(none)"), std::string::npos);
    EXPECT_EQ(ReportHtml(CacheReport{}, {}).find("<svg"), std::string::npos) << "nothing to draw";
}

TEST(ReportCsv, ReadsBackWithoutFormulas)
{
    const auto csv = ReportCsv(Hostile());
    for (const auto* line : {
             "Scanned,2023-03-15 18:00:00,,,,,,,,,",
             "2,100,99,0.99,-200000000000,200000000000,0,1,0,0,0",
             R"("'=1+1,""<b>",1,100,99,0.99,-200000000000,1,,,,)",
             "\"/<script>alert(1)</script>\"\"'&\xE2\x90\x8A\xEF\xBF\xBD\xEF\xBF\xBD\",0a,"
             "Default Web Site,100,99,0.99,1,,,,",
         })
        EXPECT_NE(csv.find("\r\n" + std::string(line) + "\r\n"), std::string::npos) << line << '\n' << csv;
}

}  // namespace
