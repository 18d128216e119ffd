#include "cache/FileTypeTable.h"

#include <gtest/gtest.h>

#include <string>

TEST(FileTypeTable, ANewTypeHasOnlyItsExtensionSetAndStaysInPlace)
{
    FileTypeTable table;
    auto* const first = &table.Find("GIF");
    FileInfo expected;
    expected.Extension = "gif";
    EXPECT_EQ(*first, expected);
    for (int i = 0; i < 5000; ++i) table.Find("x" + std::to_string(i));
    EXPECT_EQ(&table.Find("gif"), first);
    first->Count = 7;
    table.Clear();
    EXPECT_EQ(table.size(), 0U);
    EXPECT_EQ(table.Find("gif").Count, 0) << "also the type of the last lookup is forgotten";
}
