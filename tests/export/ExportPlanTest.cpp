#include "export/ExportPlan.h"
#include "export/ExportRows.h"
#include "base/FillIn.h"
#include "export/SecretText.h"

#include <gtest/gtest.h>

namespace {

TEST(ExportPlan, NamesOfTablesAreChecked)
{
    const struct {
        std::string name;
        const char* fault;  // a part of it
    } cases[] = {
        {"quillet_sites", ""},
        {std::string(63, 'x'), ""},
        {"a \"quoted\" \xC3\xA4", ""},
        {"", "needs a name"},
        {std::string(64, 'x'), "at most 63"},
        {std::string("a\0b", 3), "control"},
        {"a\nb", "control"},
        {"\xFF", "control"},
        {"QUILLET_runs", "of its own"},
    };
    for (const auto& [name, fault] : cases) {
        ExportPlan plan;
        plan.tables[ExportTable::Sites].name = name;
        const auto found = plan.Fault(ExportTable::Sites);
        EXPECT_EQ(found.empty(), *fault == '\0') << name;
        EXPECT_NE(found.find(fault), std::string::npos) << name << ": " << found;
    }
    ExportPlan plan;
    plan.tables[ExportTable::Sites] = {false, "quillet_runs"};
    EXPECT_EQ(plan.Fault(ExportTable::Runs), "") << "a table that is not written needs no name";
    EXPECT_EQ(plan.Wanted().size(), 5U);
}

TEST(ExportRows, TextsAndTimesAreFitForDatabases)
{
    EXPECT_EQ(DatabaseText("a\xFF\xC3\xA4\n"), "a\xEF\xBF\xBD\xC3\xA4\n");
    EXPECT_EQ(DatabaseText(std::string_view("a\0b", 3)), "a\xE2\x90\x80"
                                                         "b");
    const struct {
        double days;
        const char* text;
    } moments[] = {
        {-693'593, "0001-01-01 00:00:00"},
        {2 - 1e-7, "1900-01-01 00:00:00"},
        {2'958'465.99998, "9999-12-31 23:59:58"},
    };
    for (const auto& [days, text] : moments) EXPECT_EQ(std::get<std::string>(MomentValue({days})), text);
    for (const double days : {0.0, 2'958'466.0, -693'594.0, 1e300, std::numeric_limits<double>::quiet_NaN()})
        EXPECT_EQ(MomentValue({days}), OdbcValue()) << days;
    EXPECT_EQ(FillIn("%2: %1%3 %", {"%2", "b"}), "b: %2%3 %");
}

TEST(SecretText, LeavesNothingBehind)
{
    std::string secret = "a password that is long enough to be kept outside of the text object";
    const char* const place = secret.data();
    const auto size = secret.size();
    Wipe(secret);
    EXPECT_TRUE(secret.empty());
    EXPECT_EQ(std::string(place, size), std::string(size, '\0')) << "its memory is still the text's";

    std::string password = "secret";
    const auto login = ShareLogin("source", "user", std::move(password));
    EXPECT_EQ(login->password, "secret");
    EXPECT_EQ(password, "");
}

}  // namespace
