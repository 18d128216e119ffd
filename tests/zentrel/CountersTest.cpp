#include "zentrel/Counters.h"

#include <gtest/gtest.h>

using namespace zentrel;

TEST(Counters, ShortOrForeignBytesReadAsZeros)
{
    CounterTotals totals;
    totals.responsesUncompressed = 10;
    ResetTotals(totals, 9);
    totals.responsesUncompressed = 7;
    totals.responsesCompressed = 5;
    auto packed = PackCounters(totals);
    EXPECT_EQ(LifetimeTotals(UnpackCounters(packed)).responsesUncompressed, 17U);
    packed.resize(80);  // as programs stored it that carried nothing on
    EXPECT_EQ(UnpackCounters(packed).sinceTicks, 9U);
    EXPECT_EQ(LifetimeTotals(UnpackCounters(packed)).responsesUncompressed, 7U);
    packed.resize(11);
    EXPECT_EQ(UnpackCounters(packed).responsesCompressed, 0U);
    for (const auto& value : Derive(UnpackCounters({}))) EXPECT_EQ(value.value, 0) << value.name;
}
