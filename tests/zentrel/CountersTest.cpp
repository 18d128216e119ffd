#include "zentrel/Counters.h"

#include <gtest/gtest.h>

using namespace zentrel;

TEST(Counters, FollowFromTheTotals)
{
    CounterTotals totals;
    totals.responsesUncompressed = 30;
    totals.responsesCompressed = 90;
    totals.responsesCacheable = 96;
    totals.cacheHits = 72;
    totals.cacheMisses = 24;
    totals.bytesUncompressed = 1000;
    totals.bytesCompressed = 500;
    totals.bytesEquivalent = 2000;
    totals.compressionTicks = 5;
    totals.elapsedTicks = 40;
    const auto values = Derive(UnpackCounters(PackCounters(totals)));
    const double expected[] = {0,  1000, 500, 2000, 3000, 1500, 1500, 25, 75, 30,
                               90, 75,   96,  80,   60,   120,  24,   72, 75};
    for (std::size_t i = 0; i < values.size(); ++i) {
        EXPECT_DOUBLE_EQ(values[i].value, expected[i]) << values[i].name;
        const bool isShare = values[i].name.starts_with("%") || values[i].name.starts_with("Average");
        EXPECT_EQ(values[i].kind == CounterKind::Percent, isShare) << values[i].name;
    }
    EXPECT_DOUBLE_EQ(Derive(totals)[0].value, 12.5);  // elapsed time is not stored
    EXPECT_EQ(values[17].name, "Cache Hits");
    for (const auto& value : Derive({})) EXPECT_EQ(value.value, 0) << value.name;
}

TEST(Counters, AResetCarriesOnWhatTheLifetimeAddsUp)
{
    CounterTotals totals;
    for (std::uint64_t round = 1; round <= 3; ++round) {
        totals.responsesUncompressed += 10;
        totals.compressionTicks += 7;
        totals = UnpackCounters(PackCounters(totals));
        ResetTotals(totals, 100 * round);
        EXPECT_EQ(totals.responsesUncompressed, 0U);
        EXPECT_EQ(totals.sinceTicks, 100 * round);
        EXPECT_EQ(LifetimeTotals(totals).responsesUncompressed, 10 * round);
        EXPECT_EQ(LifetimeTotals(totals).compressionTicks, 7 * round);
    }
    totals.compressionTicks = 5;
    auto packed = PackCounters(totals);
    packed.resize(80);  // as programs stored it that carried nothing on
    EXPECT_EQ(LifetimeTotals(UnpackCounters(packed)).compressionTicks, 5U);
    EXPECT_EQ(LifetimeTotals(UnpackCounters(packed)).responsesUncompressed, 0U);
}

TEST(Counters, ShortOrForeignBytesReadAsZeros)
{
    CounterTotals totals;
    totals.responsesUncompressed = 7;
    totals.sinceTicks = 9;
    auto packed = PackCounters(totals);
    EXPECT_EQ(UnpackCounters(packed).sinceTicks, 9U);
    packed.resize(11);
    EXPECT_EQ(UnpackCounters(packed).responsesUncompressed, 7U);
    EXPECT_EQ(UnpackCounters(packed).responsesCompressed, 0U);
    EXPECT_EQ(UnpackCounters({}).responsesUncompressed, 0U);
}
