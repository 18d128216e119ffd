#include "shell/Demo.h"
#include "shell/DemoTraffic.h"

#include <gtest/gtest.h>

#include <atomic>
#include <csignal>
#include <thread>

#include <unistd.h>

namespace {

TEST(Demo, IsALivingServerThatLeavesNothingBehind)
{
    std::filesystem::path folder;
    {
        auto demo = Demo::Make([] { return true; });
        ASSERT_TRUE(demo) << demo.error().description;
        folder = demo->Service()->Folder();
        const auto before = demo->Service()->Counters()->cacheHits;
        zentrel::StopSignals signals;
        std::atomic<bool> isTold = false;
        {
            DemoTraffic traffic(demo->Service(), demo->Requests(), signals, [&] { isTold = true; });
            for (int i = 0; i < 100 && demo->Service()->Counters()->cacheHits < before + 3; ++i)
                std::this_thread::sleep_for(std::chrono::milliseconds(50));
            kill(getpid(), SIGTERM);
            for (int i = 0; i < 100 && !isTold; ++i)
                std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        EXPECT_GE(demo->Service()->Counters()->cacheHits, before + 3);
        EXPECT_TRUE(isTold);
        EXPECT_TRUE(std::filesystem::exists(folder));
    }
    EXPECT_FALSE(std::filesystem::exists(folder.parent_path()));
    EXPECT_TRUE(Demo::Make([] { return false; }).error().Is(Code::Cancelled));
}

}  // namespace
