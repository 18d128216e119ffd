#pragma once

#include "platform/RegistryStore.h"
#include "platform/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

// A folder for hives, and stores on them.
class HiveRig {
public:
    HiveRig() : m_folder(std::move(*TempFolder::Make("quillet-test"))) {}

    std::filesystem::path Folder() const { return m_folder.Path(); }
    std::filesystem::path User() const { return Folder() / "settings.hive"; }
    std::filesystem::path Machine() const { return Folder() / "machine.hive"; }

    std::unique_ptr<RegistryStore> Open() { return RegistryStore::Open(User(), Machine(), trouble); }

    void Put(const std::filesystem::path& file, std::string_view bytes) const
    {
        std::ofstream(file, std::ios::binary) << bytes;
    }

    static std::string BytesIn(const std::filesystem::path& file)
    {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    // Files of the folder whose names begin so, without those that only accompany a database.
    std::vector<std::filesystem::path> Named(std::string_view begin) const
    {
        std::vector<std::filesystem::path> found;
        for (const auto& entry : std::filesystem::directory_iterator(Folder()))
            if (entry.path().filename().native().starts_with(begin) && !IsCompanion(entry.path().native()))
                found.push_back(entry.path());
        return found;
    }

    std::string trouble;  // of the last Open()

private:
    static bool IsCompanion(std::string_view name)
    {
        return name.ends_with("-wal") || name.ends_with("-shm") || name.ends_with("-journal");
    }

    TempFolder m_folder;
};

inline std::span<const std::uint8_t> AsBytes(std::string_view text)
{
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

inline std::uint32_t SetText(RegistryStore& store, RegistryKey key, std::string_view name,
                             std::string_view text)
{
    return store.SetValue(key, name, kRegSz, AsBytes(text));
}

// The bytes of a short value; "(code)" when there is none.
inline std::string TextAt(const RegistryStore& store, RegistryKey key, std::string_view name)
{
    std::array<std::uint8_t, 256> buffer{};
    const auto read = store.QueryValue(key, name, buffer);
    if (read.code != 0) return "(" + std::to_string(read.code) + ")";
    return {buffer.begin(), buffer.begin() + static_cast<std::ptrdiff_t>(read.size)};
}

// Runs it in another process. A store must not live across the fork: SQLite's locks are the process's own.
template <class Run>
pid_t StartChild(const Run& run)
{
    const pid_t child = fork();
    if (child != 0) return child;
    run();
    std::fflush(nullptr);
    _exit(testing::Test::HasFailure() ? 1 : 0);
}

// Did it end by itself, with no failed expectation?
inline bool EndsWell(pid_t child)
{
    int status = 0;
    return child > 0 && waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

// For a child: rights of files hold for it, whoever runs the tests.
inline void BecomeOrdinaryUser()
{
    constexpr uid_t kNobody = 65534;
    if (geteuid() == 0 && (setgid(kNobody) != 0 || setuid(kNobody) != 0)) ADD_FAILURE() << "still root";
}
