#include "fuzz/Targets.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace {

struct Target {
    const char* corpus;
    void (*run)(fuzz::Input);
};

class FuzzCorpus : public testing::TestWithParam<Target> {};

}  // namespace

// A broken promise aborts the program.
TEST_P(FuzzCorpus, EverySeedKeepsItsPromises)
{
    int seeds = 0;
    for (const auto& file :
         std::filesystem::directory_iterator(std::filesystem::path(FUZZ_CORPUS) / GetParam().corpus)) {
        std::ifstream stream(file.path(), std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
        GetParam().run(std::as_bytes(std::span(bytes)));
        ++seeds;
    }
    EXPECT_GE(seeds, 5);
}

INSTANTIATE_TEST_SUITE_P(
    Targets, FuzzCorpus,
    testing::Values(Target{"cache_record", fuzz::CacheRecord},
                    Target{"statistics_record", fuzz::StatisticsRecord}, Target{"meta_path", fuzz::MetaPath},
                    Target{"property", fuzz::Property}, Target{"access_log", fuzz::AccessLog},
                    Target{"config", fuzz::Config}, Target{"client_certificate", fuzz::ClientCertificate},
                    Target{"server_reply", fuzz::ServerReply}, Target{"registry_bytes", fuzz::RegistryBytes},
                    Target{"toolbar_bytes", fuzz::ToolbarBytes}),
    [](const auto& target) { return std::string(target.param.corpus); });
