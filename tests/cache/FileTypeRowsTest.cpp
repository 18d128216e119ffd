#include "cache/DateReading.h"
#include "cache/FileTypeRows.h"
#include "format/DateText.h"

#include <gtest/gtest.h>

namespace {

using modListView::SortMode;
using modListView::SortOrder;
using Cells = std::vector<std::string>;

const FormatLocale kLocale;

Cells Sort(const Cells& cells, SortMode mode, SortOrder order = SortOrder::Ascending)
{
    Cells sorted;
    for (const auto from : modListView::SortListView(cells, mode, order, kLocale))
        sorted.push_back(cells[from]);
    return sorted;
}

TEST(modListView, SortsByWhatTheTextsStandFor)
{
    EXPECT_EQ(Sort({"10.00%", "", "9.50%", "-1", "5%%", "2"}, SortMode::Number),
              (Cells{"-1", "", "5%%", "2", "9.50%", "10.00%"}));
    EXPECT_EQ(Sort({"1 KiB", "900", "1.50 MiB", "none", "1000"}, SortMode::Size),
              (Cells{"none", "900", "1000", "1 KiB", "1.50 MiB"}));
    EXPECT_EQ(Sort({"2001-02-03 04:05", "1999-12-31", "2001-02-03", "soon"}, SortMode::Date),
              (Cells{"soon", "1999-12-31", "2001-02-03", "2001-02-03 04:05"}));
    EXPECT_EQ(Sort({"1", "x", "2", "0"}, SortMode::Number, SortOrder::Descending),
              (Cells{"2", "1", "x", "0"}));
}

TEST(DateReading, ReadsWhatWasWritten)
{
    for (const auto* const pattern :
         {"%Y-%m-%d", "%d.%m.%y", "%-m/%-d/%Y", "%e %B %Y", "%a %d %b %Y", "%D", "%F", "%d%%%m%%%Y", "%x"}) {
        FormatLocale locale;
        locale.shortDate = pattern;
        locale.timeSeparator = ".";
        for (const double days : {36526.0, 36526.5, 38412.75, 44000 + 59 / 1440.0}) {
            const auto text = FormatDate({days}, locale);
            const auto read = ReadDate(text, locale);
            ASSERT_TRUE(read) << pattern << ' ' << text;
            EXPECT_NEAR(read->days, days, 1e-9) << pattern << ' ' << text;
        }
    }
}

class FileTypeRowsTest : public testing::Test {
protected:
    // Count, compressed and uncompressed size.
    void Add(const char* extension, int count, double compressed, double uncompressed)
    {
        auto& type = table.Find(extension);
        type.Count = count;
        type.CompressedSize = compressed;
        type.UncompressedSize = uncompressed;
    }

    void Fill()
    {
        rows.Clear();
        rows.Fill(table);
    }

    std::string Order() const
    {
        std::string order;
        for (std::size_t i = 0; i < rows.Size(); ++i) order += rows[i][0] + " ";
        return order;
    }

    FileTypeTable table;
    FileTypeRows rows{kLocale};
};

TEST_F(FileTypeRowsTest, SortsByClicksAndKeepsTheTextSortOnly)
{
    Add("Htm", 9, 900, 10'000);
    Add("", 10, 2048, 4096);
    Add("css", 100, 3 << 20, 0);
    Fill();
    EXPECT_EQ(Order(), "htm  css ");
    EXPECT_EQ(rows.SortedColumn(), -1);
    EXPECT_EQ(rows[0], (FileTypeRows::Row{"htm", "9", "900", "9.77 KiB", "9.00%"}));
    EXPECT_EQ(rows[2], (FileTypeRows::Row{"css", "100", "3 MiB", "0", ""}));

    using enum FileTypeColumn;
    const std::tuple<FileTypeColumn, const char*> kClicks[] = {
        {Count, "htm  css "}, {Count, "css  htm "}, {Compressed, "htm  css "}, {Uncompressed, "css  htm "},
        {Ratio, "css htm  "}, {Ratio, " htm css "}, {Extension, " css htm "},  {Extension, "htm css  "}};
    for (const auto& [column, order] : kClicks) {
        rows.Click(column);
        EXPECT_EQ(Order(), order) << static_cast<int>(column);
        EXPECT_EQ(rows.SortedColumn(), static_cast<int>(column));
    }

    Fill();
    EXPECT_EQ(Order(), "htm css  ") << "the list's own sort places new rows";
}

}  // namespace
