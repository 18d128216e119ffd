#include "cache/FileTypeTable.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

TEST(FileTypeTable, TypesKeepTheOrderOfTheirFirstMeetingWhateverTheirCase)
{
    FileTypeTable table;
    FileInfo file;
    file.Count = 1;
    for (const auto* extension : {"html", "CSS", "html", "", "css", "ÄÖ", "äö", "Html", ""})
        table.Find(extension).Add(file);

    std::vector<std::string> rows;
    for (const auto& type : table) rows.push_back(type.Extension + ":" + std::to_string(type.Count));
    EXPECT_EQ(rows, (std::vector<std::string>{"html:3", "css:2", ":2", "äö:2"}));
    EXPECT_EQ(table.size(), 4U);
}

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
