#pragma once

#include "platform/TempFolder.h"
#include "zentrel/Decompressor.h"
#include "zentrel/KeyWalk.h"
#include "zentrel/RecordLayout.h"
#include "zentrel/Responder.h"
#include "zentrel/Service.h"
#include "zentrel/Warm.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

// A data folder and a document root of its own, with site 1 set up, and a service on it.
class ServiceRig : public testing::Test {
protected:
    ServiceRig() { std::filesystem::create_directory(Root()); }

    std::filesystem::path Data() const { return m_folder.Path() / "data"; }
    std::filesystem::path Root() const { return m_folder.Path() / "www"; }

    void Start(zentrel::Encoding encoding = zentrel::Encoding::Gzip)
    {
        ASSERT_TRUE(zentrel::Service::Init(Data()));
        ASSERT_NO_FATAL_FAILURE(Reopen(zentrel::Service::Role::Writer));
        ASSERT_TRUE(service->AddSite({1, "site", {"*:80:"}, Root(), encoding, 6}));
    }

    void Reopen(zentrel::Service::Role role)
    {
        Close();
        auto opened = zentrel::Service::Open(Data(), role);
        ASSERT_TRUE(opened) << opened.error().description;
        service = *opened;
        responder = std::make_unique<zentrel::Responder>(service);
    }

    void Close()
    {
        responder.reset();
        service.reset();
    }

    // About `bytes` bytes that compress well, others for each seed.
    static std::string Page(std::size_t bytes, int seed = 0)
    {
        std::string text;
        for (int line = 0; text.size() < bytes; ++line)
            text += "<p>" + std::to_string(line * 7919 + seed) + " is a number</p>\n";
        return text;
    }

    void WriteFile(const std::string& relative, const std::string& text) const
    {
        std::filesystem::create_directories((Root() / relative).parent_path());
        std::ofstream(Root() / relative, std::ios::binary | std::ios::trunc) << text;
    }

    zentrel::Response Get(const std::string& url, bool gzip = true, bool deflate = true)
    {
        auto response = responder->Answer({1, url, gzip, deflate});
        EXPECT_TRUE(response);
        return response ? *response : zentrel::Response{0, {}, {}, false};
    }

    static std::string Text(const zentrel::Bytes& bytes)
    {
        return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
    }

    static std::string Unpacked(const zentrel::Response& response)
    {
        if (!response.encoding) return Text(response.body);
        zentrel::Decompressor decompressor;
        EXPECT_TRUE(decompressor.BeginDecompress(0));
        const auto plain = decompressor.DecompressBlock(response.body);
        EXPECT_TRUE(plain && decompressor.EndDecompress());
        return plain ? Text(*plain) : "";
    }

    // The path and packed properties of every key, once all is flushed.
    std::map<std::string, zentrel::PropertySet> Keys() const
    {
        std::map<std::string, zentrel::PropertySet> keys;
        EXPECT_TRUE(service->Flush());
        const auto txn = service->Store().BeginRead();
        auto walk = zentrel::KeyWalk::Begin(*txn, {});
        for (auto visit = walk->Next(*txn); visit && *visit; visit = walk->Next(*txn))
            keys.emplace((*visit)->path, zentrel::PropertySet((*visit)->row.properties));
        return keys;
    }

    zentrel::StatisticsRecord Statistics(const std::string& urlPath) const
    {
        const auto keys = Keys();
        const auto key = keys.find("LM/W3SVC/1/Root/" + urlPath);
        const auto property = key == keys.end() ? std::nullopt : key->second.Find(zentrel::Prop::Statistics);
        return property ? zentrel::ParseStatisticsRecord(property->bytes).value()
                        : zentrel::StatisticsRecord{-1};
    }

    // The number of cached files; every one must have its record and every record its file, size included.
    std::size_t CheckConsistency() const
    {
        std::size_t records = 0;
        const auto keys = Keys();
        for (const auto& [path, properties] : keys) {
            for (const auto encoding : zentrel::kEncodings) {
                const auto property = properties.Find(zentrel::RecordProperty(encoding));
                if (!property) continue;
                ++records;
                EXPECT_EQ(FileSize(keys, path, encoding),
                          zentrel::ParseCacheRecord(property->bytes)->compressedSize)
                    << path;
            }
        }
        EXPECT_EQ(CountFiles(), records);
        return records;
    }

    // All files in the cache folder, whatever they are.
    std::size_t CountFiles() const
    {
        std::size_t files = 0;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(Data() / "cache"))
            files += entry.is_regular_file() ? 1 : 0;
        return files;
    }

    // What may be written to any file from now on, in this process.
    static void LimitFileSize(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit limit{};
        ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &limit), 0);
        limit.rlim_cur = std::min(bytes, limit.rlim_max);
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    }

    // Runs `work` in a process of its own and answers how it ended; `work` answers the exit code.
    static int InChild(const std::function<int()>& work, const std::function<void(pid_t)>& meanwhile = {})
    {
        const auto child = fork();
        if (child == 0) _exit(work());
        if (meanwhile) meanwhile(child);
        int status = 0;
        EXPECT_EQ(waitpid(child, &status, 0), child);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    }

    std::shared_ptr<zentrel::Service> service;
    std::unique_ptr<zentrel::Responder> responder;

private:
    std::uint64_t FileSize(const std::map<std::string, zentrel::PropertySet>& keys, const std::string& path,
                           zentrel::Encoding encoding) const
    {
        zentrel::CachedFile file{0, encoding, 0};
        const bool isUrl = keys.at(path).Has(zentrel::Prop::CacheId);
        const auto slash = path.rfind('/');
        const auto& url = keys.at(isUrl ? path : path.substr(0, slash));
        file.id = zentrel::Record(*url.Find(zentrel::Prop::CacheId)).Number();
        if (!isUrl) file.query = *zentrel::ParseQueryHash(path.substr(slash + 1));
        const auto size = service->Cache().Size(file);
        EXPECT_TRUE(size) << path;
        return size ? *size : 0;
    }

    TempFolder m_folder = std::move(*TempFolder::Make("zentrel-test"));
};
