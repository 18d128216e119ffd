#include "zentrel/ConfigFile.h"

#include "platform/TempFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>

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
    std::ofstream(file) << "b\n";
    EXPECT_NE(failure().description.find(": line 1: "), std::string::npos);
    std::filesystem::resize_file(file, (1 << 20) + 1);
    EXPECT_NE(failure().description.find("more than 1048576 bytes"), std::string::npos);
    std::filesystem::remove(file);
    ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
    EXPECT_EQ(failure().code, Code::InvalidData) << "a pipe is not waited for";
}
