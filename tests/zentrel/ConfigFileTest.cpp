#include "zentrel/ConfigFile.h"

#include "platform/TempFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>

namespace {

// "1:kind name" and "2:key=value", one a line.
std::string Shown(const std::vector<zentrel::ConfigSection>& sections)
{
    std::string text;
    for (const auto& section : sections) {
        text += std::to_string(section.line) + ":" + section.kind + " " + section.name + "\n";
        for (const auto& entry : section.entries)
            text += std::to_string(entry.line) + ":" + entry.key + "=" + entry.value + "\n";
    }
    return text;
}

}  // namespace

TEST(ConfigFile, SectionsAndEntriesKeepTheirLinesAndLoseTheirBlanks)
{
    const auto sections =
        zentrel::ParseConfig("\xEF\xBB\xBF# a comment \n\n  data-folder =\t/a b = c # d \r\n"
                             "empty=\n[ server\t web01 ]\nhost=\xC3\xA4\nhost=b\n[defaults]");
    ASSERT_TRUE(sections) << sections.error().description;
    EXPECT_EQ(Shown(*sections), "0: \n3:data-folder=/a b = c # d\n4:empty=\n5:server web01\n6:host=\xC3\xA4\n"
                                "7:host=b\n8:defaults \n");
    EXPECT_EQ(Shown(*zentrel::ParseConfig("")), "0: \n");
}

TEST(ConfigFile, WhatIsNeitherHeadingNorEntryIsRefusedWithItsLine)
{
    for (const char* const bad : {"word", "= value", "two words = 1", "[server", "[]", "[a b c]", "[a] # no",
                                  "a = \x1B[2J", "k\xFF = 1", "# \xFF"}) {
        const auto sections = zentrel::ParseConfig("good = 1\n\n" + std::string(bad) + "\nworse\n");
        ASSERT_FALSE(sections) << bad;
        EXPECT_EQ(sections.error().code, Code::InvalidData);
        EXPECT_EQ(sections.error().description.substr(0, 10), "line 3: it") << bad;
    }
    EXPECT_FALSE(zentrel::ParseConfig(std::string_view("a = \0", 5)));
}

TEST(ConfigFile, AFileIsReadWholeOrRefusedByName)
{
    const auto folder = std::move(TempFolder::Make("config-").value());
    const auto file = folder.Path() / "z.conf";
    const auto failure = [&] {
        const auto read = zentrel::ReadConfig(file);
        if (read) return SystemError{};
        EXPECT_NE(read.error().description.find(file.string()), std::string::npos)
            << read.error().description;
        return read.error();
    };
    std::ofstream(file) << "a = 1\n";
    EXPECT_EQ(Shown(*zentrel::ReadConfig(file)), "0: \n1:a=1\n");
    std::ofstream(file) << "b\n";
    EXPECT_NE(failure().description.find(": line 1: "), std::string::npos);
    std::filesystem::resize_file(file, (1 << 20) + 1);
    EXPECT_NE(failure().description.find("more than 1048576 bytes"), std::string::npos);
    std::filesystem::remove(file);
    ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
    EXPECT_EQ(failure().code, Code::InvalidData) << "a pipe is not waited for";
}
