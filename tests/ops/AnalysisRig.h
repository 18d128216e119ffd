#pragma once

#include "contracts/MessageBoxes.h"
#include "ops/Analysis.h"
#include "shell/WindowRig.h"
#include "support/TestStore.h"
#include "zentrel/Compressor.h"
#include "zentrel/EmbeddedTransport.h"

#include <algorithm>
#include <fstream>

inline zentrel::Bytes BytesOf(const std::string& text)
{
    const auto* const first = reinterpret_cast<const std::byte*>(text.data());
    return {first, first + text.size()};
}

// A text of about `bytes` bytes that compresses well.
inline std::string PageText(std::size_t bytes)
{
    std::string text;
    for (unsigned line = 0; text.size() < bytes; ++line)
        text += "<p>" + std::to_string(line * 2654435761U % 99991) + " is a number</p>\n";
    return text;
}

inline zentrel::Bytes Compressed(const std::string& text,
                                 zentrel::CompressMode mode = zentrel::CompressMode::Gzip)
{
    zentrel::Compressor compressor;
    zentrel::Bytes all, last;
    EXPECT_TRUE(compressor.BeginCompress(static_cast<int>(mode), 6));
    EXPECT_TRUE(compressor.CompressBlock(BytesOf(text), 0, all));
    EXPECT_TRUE(compressor.EndCompress(last));
    all.insert(all.end(), last.begin(), last.end());
    return all;
}

// What an analysis works with: a real service whose cache folder a test fills to the byte, and a temporary
// folder of the test's own.
class AnalysisRig : public testing::Test {
public:
    AnalysisRig()
    {
        setenv("TMPDIR", temp.Path().c_str(), 1);
        EXPECT_TRUE(server.Connect(""));
        EXPECT_TRUE(cache.Connect(""));
    }
    ~AnalysisRig() override { unsetenv("TMPDIR"); }

    std::filesystem::path CacheFile() const { return store.Folder() / "cache" / "12" / "1234.gzip"; }
    std::string CacheFileText() const { return (store.Folder() / "cache").string() + "\\12\\1234.gzip"; }
    void PutCacheFile(const zentrel::Bytes& bytes) const
    {
        std::filesystem::create_directories(CacheFile().parent_path());
        std::ofstream(CacheFile(), std::ios::binary | std::ios::trunc)
            .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    }
    std::ptrdiff_t TempFilesLeft() const
    {
        return std::count_if(std::filesystem::directory_iterator(temp.Path()), {},
                             [](const auto& entry) { return entry.is_regular_file(); });
    }

    static FileDetails Details()
    {
        FileDetails file;
        file.FileName = "page.htm";
        file.FilePath = "/dir/page.htm";
        file.PhysycalPath = R"(D:\web\dir\page.htm)";
        file.CacheFilePath = R"(12\1234.gzip)";
        file.CompLevel = 6;
        file.CompressedSize = 1536;
        file.UncompressedSize = 1048576;
        file.Ratio = 0.25F;
        file.TotalHits = 12;
        file.CacheHits = 7;
        return file;
    }

    TestStore store;
    TempFolder temp = std::move(*TempFolder::Make("quillet-temp"));
    std::shared_ptr<zentrel::EmbeddedTransport> transport =
        std::make_shared<zentrel::EmbeddedTransport>(store.Folder(), "here");
    zentrel::ServerAdmin server{transport};
    zentrel::CacheAdmin cache{transport};
    ScriptedBoxes boxes;
    ScriptedPump pump;
    QtScreenPointer pointer;
    TempFiles tempFiles;
    AnalysisHost host{server, cache, boxes, pump, pointer, tempFiles};
};
