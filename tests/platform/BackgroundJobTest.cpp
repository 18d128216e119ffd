#include "platform/BackgroundJob.h"

#include "base/SystemError.h"

#include <gtest/gtest.h>

#include <future>
#include <stdexcept>
#include <string>

namespace {

using namespace std::chrono_literals;

TEST(BackgroundJob, ResultsFailuresAndExceptionsComeToTheOwner)
{
    struct Row {
        std::function<Result<std::unique_ptr<int>>()> work;
        std::string expected;
    };
    const Row rows[] = {
        {[] { return std::make_unique<int>(7); }, "7"},
        {[]() -> Result<std::unique_ptr<int>> { return Fail(Code::AccessDenied, "Test", "no"); }, "5 no"},
        {[]() -> Result<std::unique_ptr<int>> { throw std::runtime_error("thrown"); }, "29 thrown"},
        {[]() -> Result<std::unique_ptr<int>> { throw std::bad_alloc(); },
         "14 " + SystemText(Code::OutOfMemory)},
        {[]() -> Result<std::unique_ptr<int>> { throw 1; }, "29 " + SystemText(Code::IoError)},
    };
    for (const auto& row : rows) {
        BackgroundJob<std::unique_ptr<int>> job(row.work);
        ASSERT_TRUE(job.Wait(60s));
        EXPECT_TRUE(job.IsDone());
        const auto result = job.Take();
        EXPECT_FALSE(job.IsDone());
        const auto seen = result ? std::to_string(**result)
                                 : std::to_string(result.error().code) + " " + result.error().description;
        EXPECT_EQ(seen, row.expected);
    }
}

TEST(BackgroundJob, AnAbandonedOneKeepsWhatItUsesUntilItReturns)
{
    const auto used = std::make_shared<std::string>("in use");
    const std::weak_ptr<std::string> watched = used;
    auto release = std::make_shared<std::promise<void>>();
    {
        BackgroundJob<std::string> job(
            [used = used, gate = release->get_future().share()]() -> Result<std::string> {
                gate.wait();
                return *used;
            });
        EXPECT_FALSE(job.Wait(20ms));
        job.Abandon();
        EXPECT_FALSE(job.IsDone());
    }
    EXPECT_EQ(watched.use_count(), 2);
    release->set_value();
    for (int i = 0; i < 6000 && watched.use_count() > 1; ++i) std::this_thread::sleep_for(10ms);
    EXPECT_EQ(watched.use_count(), 1);
}

}  // namespace
