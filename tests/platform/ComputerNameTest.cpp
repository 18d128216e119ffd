#include "platform/ComputerName.h"

#include <gtest/gtest.h>

#include <sys/utsname.h>

namespace {

TEST(ComputerName, IsTheSystemsNameIn63Bytes)
{
    utsname system{};
    ASSERT_EQ(uname(&system), 0);
    const std::string name = ComputerName();
    const std::string node = std::string(system.nodename).substr(0, 63);
    EXPECT_EQ(name, node.empty() ? "localhost" : node);
}

}  // namespace
