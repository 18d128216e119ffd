#include "zentrel/SiteNumber.h"

#include <gtest/gtest.h>

TEST(SiteNumbers, AreDigitsWithCommasBetweenThem)
{
    using Numbers = std::vector<std::int32_t>;
    EXPECT_EQ(*zentrel::ParseSiteNumbers("1"), Numbers{1});
    EXPECT_EQ(*zentrel::ParseSiteNumbers("3,1,2147483647"), (Numbers{3, 1, 2147483647}));
    for (const char* wrong :
         {"", "0", "-1", "01", "1,", ",1", "1;2", "1 ,2", "2147483648", "all", "1.5", "+1"})
        EXPECT_FALSE(zentrel::ParseSiteNumbers(wrong)) << wrong;
}
