#include "zentrel/ServiceTable.h"

#include <gtest/gtest.h>

#include <future>
#include <map>
#include <thread>

using namespace std::chrono_literals;
using zentrel::ServiceStart;
using zentrel::ServiceState;
using zentrel::ServiceTable;

namespace {

// Services whose starts a test holds up or lets fail.
class ServiceTableTest : public testing::Test {
protected:
    struct Script {
        Done outcome;
        std::shared_future<void> beforeCheckIn, afterCheckIn;  // waited for when there are
        int starts = 0;
        int stops = 0;
    };

    ServiceTableTest()
    {
        for (const char* const name : {"A", "B", "C"}) {
            auto& script = scripts[name];
            table.Add(name, {[&script](const std::function<void()>& checkIn) {
                                 ++script.starts;
                                 if (script.beforeCheckIn.valid()) script.beforeCheckIn.wait();
                                 if (script.outcome) checkIn();
                                 if (script.afterCheckIn.valid()) script.afterCheckIn.wait();
                                 return script.outcome;
                             },
                             [&script] { ++script.stops; }});
        }
        table.Add("Fixed", {[](const std::function<void()>& checkIn) {
                                checkIn();
                                return Done();
                            },
                            {}});
    }

    std::uint32_t Start(std::string_view name) { return CodeOf(table.Start(name)); }
    std::uint32_t Stop(std::string_view name) { return CodeOf(table.Stop(name)); }
    static std::uint32_t CodeOf(const Done& done) { return done ? 0 : done.error().code; }

    ServiceState State(std::string_view name) const { return table.Query(name)->state; }
    void WaitFor(std::string_view name, ServiceState state) const
    {
        for (int i = 0; i < 500 && State(name) != state; ++i) std::this_thread::sleep_for(10ms);
        EXPECT_EQ(State(name), state);
    }

    // start, needs, account, check-in time
    void Configure(const ServiceTable::Setups& setups) { ASSERT_TRUE(table.Configure(setups)); }

    std::map<std::string, Script> scripts;  // outlive the table
    ServiceTable table;
};

}  // namespace

TEST_F(ServiceTableTest, StartsAndStopsWhateverTheNamesCase)
{
    EXPECT_EQ(Start("a"), 0U);
    WaitFor("A", ServiceState::Running);
    EXPECT_EQ(Start("A"), 1056U);
    EXPECT_EQ(Stop("a"), 0U);
    EXPECT_EQ(State("A"), ServiceState::Stopped);
    EXPECT_EQ(Stop("A"), 1062U);
    EXPECT_EQ(Start("A"), 0U) << "and again";
    EXPECT_EQ(table.Query("nobody").error().code, 1060U);
    EXPECT_EQ(Start("Fixed"), 0U);
    WaitFor("Fixed", ServiceState::Running);
    EXPECT_EQ(Stop("Fixed"), 5U);
}

TEST_F(ServiceTableTest, EveryReasonNotToStartHasItsCode)
{
    scripts["B"].outcome = Fail(Code::IoError, "test");
    Configure({{"A", {ServiceStart::Disabled, {}, {}, 5s}}, {"B", {ServiceStart::Automatic, {}, {}, 5s}}});
    EXPECT_EQ(Start("A"), 1058U);
    EXPECT_EQ(Start("B"), 29U) << "its own";
    EXPECT_EQ(table.StartAutomatic().size(), 1U);

    Configure({{"A", {ServiceStart::Manual, {"b"}, {}, 5s}},
               {"C", {ServiceStart::Manual, {"Nobody"}, {}, 5s}},
               {"Fixed", {ServiceStart::Manual, {}, "no such account", 5s}}});
    EXPECT_EQ(Start("A"), 1068U);
    EXPECT_EQ(Start("C"), 1075U);
    EXPECT_EQ(Start("Fixed"), 1069U);
    EXPECT_EQ(scripts["A"].starts + scripts["C"].starts, 0);
}

TEST_F(ServiceTableTest, AStartIsPendingUntilTheServiceRunsAndGivenUpWhenItDoesNotCheckIn)
{
    std::promise<void> runs;
    scripts["A"].afterCheckIn = runs.get_future().share();
    EXPECT_EQ(Start("A"), 0U) << "does not wait until it runs";
    EXPECT_EQ(State("A"), ServiceState::StartPending);
    EXPECT_EQ(Start("A"), 997U);
    EXPECT_EQ(Stop("A"), 1062U);
    runs.set_value();
    WaitFor("A", ServiceState::Running);

    std::promise<void> late;
    scripts["B"].beforeCheckIn = late.get_future().share();
    Configure({{"B", {ServiceStart::Manual, {}, {}, 50ms}}});
    EXPECT_EQ(Start("B"), 1053U);
    EXPECT_EQ(Start("B"), 997U) << "it may still come to an end";
    late.set_value();
    WaitFor("B", ServiceState::Stopped);
    EXPECT_EQ(scripts["B"].stops, 1) << "what came too late is stopped";
}

TEST_F(ServiceTableTest, NeedsStartFirstAndKeepWhatTheyNeedRunning)
{
    Configure(
        {{"A", {ServiceStart::Automatic, {"B", "C"}, {}, 5s}}, {"B", {ServiceStart::Manual, {"C"}, {}, 5s}}});
    EXPECT_TRUE(table.StartAutomatic().empty());
    WaitFor("A", ServiceState::Running);
    EXPECT_TRUE(table.IsRunning("b") && table.IsRunning("C"));
    EXPECT_EQ(scripts["C"].starts, 1);
    EXPECT_EQ(Stop("C"), 1051U);
    EXPECT_EQ(Stop("A") + Stop("B") + Stop("C"), 0U);

    EXPECT_FALSE(table.Configure(
        {{"A", {ServiceStart::Manual, {"B"}, {}, 5s}}, {"B", {ServiceStart::Manual, {"a"}, {}, 5s}}}))
        << "a circle";
    EXPECT_FALSE(table.Configure({{"Nobody", {}}}));
    EXPECT_TRUE(table.Configure({{"A", {ServiceStart::Disabled, {}, {}, 5s}}}, true));
    EXPECT_EQ(table.Query("A")->start, ServiceStart::Automatic) << "all stayed as it was";
}
