#include "base/SystemError.h"
#include "platform/RegistryStore.h"
#include "support/HiveRig.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <random>

#include <sys/resource.h>

namespace {

using Group = std::array<int, 8>;  // the numbers in the values; 0 where there is none yet

std::string NameOf(std::size_t i)
{
    return "value" + std::to_string(i);
}

// The number with a length that depends on it.
std::string TextOf(int number)
{
    return std::to_string(number) + std::string(static_cast<std::size_t>(number % 200), ' ');
}

RegistryKey OpenGroup(RegistryStore& store)
{
    return store.CreateKey(kCurrentUser, "Group", kKeyAllAccess).key;
}

// Saves the group again and again, each time with the next number in all of its values.
void SaveForever(HiveRig& rig, int number)
{
    const auto store = rig.Open();
    const auto key = OpenGroup(*store);
    for (;; ++number)
        for (std::size_t i = 0; i < Group().size(); ++i) SetText(*store, key, NameOf(i), TextOf(number));
}

void KillAfter(pid_t child, useconds_t microseconds)
{
    usleep(microseconds);
    ASSERT_EQ(kill(child, SIGKILL), 0);
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status)) << "the child ended by itself";
}

Group ReadGroup(HiveRig& rig)
{
    const auto store = rig.Open();
    EXPECT_EQ(rig.trouble, "");
    const auto key = OpenGroup(*store);
    Group group{};
    for (std::size_t i = 0; i < group.size(); ++i) {
        const auto text = TextAt(*store, key, NameOf(i));
        group[i] = std::atoi(text.c_str());
        EXPECT_EQ(text, group[i] == 0 ? "(2)" : TextOf(group[i]));
    }
    return group;
}

}  // namespace

TEST(RegistryCrash, AKillLosesAtMostTheWriteInProgress)
{
    constexpr int kKills = 200;
    HiveRig rig;
    std::mt19937 random(20);
    Group before{};
    int cutShort = 0;
    double window = 10'000;  // microseconds; finds the pace of the disk, so that most children get to save
    for (int count = 0; count < kKills; ++count) {
        const int first = before[0] + 1;
        const pid_t child = StartChild([&] { SaveForever(rig, first); });
        ASSERT_GT(child, 0);
        const auto delay = std::uniform_real_distribution(0.0, window)(random);
        ASSERT_NO_FATAL_FAILURE(KillAfter(child, static_cast<useconds_t>(delay)));
        const Group after = ReadGroup(rig);
        // The values that the last save reached, then those of the save before it.
        std::size_t i = 0;
        while (i < after.size() && after[i] == after[0]) ++i;
        cutShort += after[0] >= first && i < after.size() ? 1 : 0;
        for (; i < after.size(); ++i) ASSERT_EQ(after[i], after[0] > first ? after[0] - 1 : before[i]);
        ASSERT_GE(after[0], before[0]);
        ASSERT_FALSE(HasFailure());
        window *= after == before ? 1.15 : 0.93;
        before = after;
    }
    EXPECT_GT(cutShort, kKills / 4) << "the kills came between the saves";
}

TEST(RegistryCrash, AFullDiskCostsWritesOnly)
{
    HiveRig rig;
    EXPECT_EQ(SetText(*rig.Open(), kCurrentUser, "v", "kept"), 0U);
    EXPECT_TRUE(EndsWell(StartChild([&] {
        const auto store = rig.Open();
        signal(SIGXFSZ, SIG_IGN);
        const rlimit before{RLIM_INFINITY, RLIM_INFINITY}, full{100'000, RLIM_INFINITY};
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &full), 0);
        std::uint32_t code = 0;
        for (int i = 0; code == 0 && i < 1000; ++i)
            code = SetText(*store, kCurrentUser, "big" + std::to_string(i), std::string(5000, 'x'));
        EXPECT_EQ(code, Code::RegistryIoFailed);
        EXPECT_EQ(TextAt(*store, kCurrentUser, "v"), "kept");
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
        EXPECT_EQ(SetText(*store, kCurrentUser, "v", "new"), 0U);
    })));
    EXPECT_EQ(TextAt(*rig.Open(), kCurrentUser, "v"), "new");
    EXPECT_EQ(rig.trouble, "");
}
