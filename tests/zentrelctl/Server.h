#pragma once

#include "platform/TempFolder.h"
#include "zentrelctl/Program.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

// A data folder and a document root of its own for one test.
class Server : public testing::Test {
protected:
    using Args = std::vector<std::string>;

    std::filesystem::path Data() const { return m_folder.Path() / "data"; }
    std::filesystem::path Root() const { return m_folder.Path() / "www"; }

    void Write(const std::filesystem::path& file, std::size_t lines = 200) const
    {
        std::filesystem::create_directories((Root() / file).parent_path());
        std::ofstream stream(Root() / file, std::ios::binary);
        for (std::size_t i = 0; i < lines; ++i) stream << "<p>line " << i << " of a page</p>\n";
    }

    // Runs zentrelctl on this data folder.
    Outcome Ctl(Args arguments, std::string_view text = {},
                Program::Input input = Program::Input::Given) const
    {
        return RunProgram(ZENTRELCTL, OnData(std::move(arguments)), text, input);
    }

    // The same where it must succeed; answers what it printed.
    std::string Do(Args arguments, std::string_view text = {}) const
    {
        const auto outcome = Ctl(std::move(arguments), text);
        EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
        EXPECT_EQ(outcome.err, "");
        return outcome.out;
    }

    Args OnData(Args arguments) const
    {
        arguments.insert(arguments.begin(), {"--data", Data().string()});
        return arguments;
    }

    // A site 1 with three pages in the cache, beside what is in its folder already.
    void MakeWarmSite(std::size_t pages = 3) const
    {
        for (const char* const file : {"index.html", "dir/a.css", "dir/b.svg"}) Write(file);
        Do({"init"});
        Do({"site", "add", "1", "--comment", "Main", "--root", Root().string()});
        EXPECT_EQ(Do({"warm", "1"}), "site 1: " + std::to_string(pages) + " files in the cache, 0 skipped\n");
    }

private:
    TempFolder m_folder = std::move(TempFolder::Make("zentrelctl-").value());
};

inline bool Contains(std::string_view text, std::string_view part)
{
    return text.find(part) != std::string_view::npos;
}
