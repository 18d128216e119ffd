#include "ops/Analysis.h"

#include "AnalysisRig.h"
#include "ops/CachedFileName.h"
#include "ops/DecompressFile.h"

#include <csignal>
#include <fstream>
#include <sys/resource.h>
#include <sys/stat.h>

namespace {

using zentrel::Bytes;

TEST(CachedFileName, LeadsToTheServersShare)
{
    const struct {
        const char* dir;
        bool isLocal;
        const char* name;
    } cases[] = {
        {R"(E:\zcache)", false, R"(\\server\E$\zcache\12\1234.gzip)"},
        {"/var/zcache", false, R"(\\server\/var/zcache\12\1234.gzip)"},
        {"", false, R"(\\server\\12\1234.gzip)"},
    };
    for (const auto& each : cases)
        EXPECT_EQ(CachedFileName(CacheFolderName(each.dir, each.isLocal, "server"), R"(12\1234.gzip)"),
                  each.name);
}

TEST(LevelRow, TellsSecondsByTheirFractionOfADay)
{
    constexpr double kSecond = 0.00001157407;
    const struct {
        double processTime;
        const char* text;
    } cases[] = {{0, "< 10 ms"},
                 {0.01 * kSecond, "< 10 ms"},
                 {0.0101 * kSecond, "0.010"},
                 {12.3456 * kSecond, "12.346"}};
    for (const auto& each : cases)
        EXPECT_EQ(RowOfLevel(4, LevelFigures{1024, each.processTime}, {}).time, each.text);
    const auto known = RowOfLevel(4, LevelFigures{1536, 1}, {}), unknown = RowOfLevel(9, {}, {});
    EXPECT_EQ(known.key + " " + known.level + " " + known.size, "C4 4 1.50 KiB");
    EXPECT_EQ(unknown.key + " " + unknown.size + " " + unknown.time, "C9 ??? ???");
}

using TempFilesTest = AnalysisRig;

TEST_F(TempFilesTest, ArePrivateUniqueAndStayInTheFolderOfTheFirstOne)
{
    const auto first = tempFiles.GetTempFile();
    setenv("TMPDIR", "/", 1);
    const auto second = tempFiles.GetTempFile();
    ASSERT_TRUE(first && second);
    EXPECT_NE(*first, *second);
    for (const auto& name : {*first, *second}) {
        EXPECT_TRUE(name.starts_with((temp.Path() / "tmp").string())) << name;
        struct stat status {};
        ASSERT_EQ(stat(name.c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 0777U, 0600U);
        EXPECT_EQ(status.st_size, 0);
    }
    setenv("TMPDIR", "/nowhere", 1);
    EXPECT_FALSE(TempFiles().GetTempFile());
}

// A file that says one thing and holds another, and may break off with an error.
class ScriptedReader : public zentrel::CacheFileReader {
public:
    explicit ScriptedReader(Bytes bytes) : m_bytes(std::move(bytes)) {}
    std::uint64_t Size() const override { return m_bytes.size() / 2; }
    Result<Bytes> Read(std::size_t most) override
    {
        if (m_at >= failAt) return Fail(Code::ServerUnavailable, "test");
        const auto from = m_bytes.begin() + static_cast<std::ptrdiff_t>(m_at);
        const auto count = std::min({most, m_bytes.size() - m_at, std::size_t{1000}});
        m_at += count;
        return Bytes(from, from + static_cast<std::ptrdiff_t>(count));
    }

    std::size_t At() const { return m_at; }

    std::size_t failAt = SIZE_MAX;

private:
    Bytes m_bytes;
    std::size_t m_at = 0;
};

class DecompressFileTest : public AnalysisRig {
public:
    Done Decompress(
        zentrel::CacheFileReader& source, std::uint64_t most = kMostUnpackedBytes,
        const StepProgress& progress = [](double) { return true; })
    {
        return DecompressFile(decompressor, source, *target, most, progress);
    }
    std::string Written() const
    {
        std::ifstream in(*target, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

    zentrel::Decompressor decompressor;
    Result<std::string> target = tempFiles.GetTempFile();
};

TEST_F(DecompressFileTest, RestoresWhatEitherEncodingHolds)
{
    for (const auto mode : {zentrel::CompressMode::Gzip, zentrel::CompressMode::Deflate}) {
        for (const std::size_t size : {0, 1, 8192, 500'000}) {
            const auto text = PageText(size);
            ScriptedReader source(Compressed(text, mode));
            ASSERT_TRUE(Decompress(source, text.size()));
            EXPECT_TRUE(Written() == text) << size;
        }
    }
}

TEST_F(DecompressFileTest, RefusesBadInput)
{
    auto good = Compressed(PageText(2'000'000));
    auto corrupt = good;
    for (auto at = corrupt.size() / 2; at < corrupt.size() / 2 + 8; ++at) corrupt[at] ^= std::byte{0x55};
    const struct {
        const char* what;
        Bytes bytes;
        std::uint64_t most = SIZE_MAX;
        std::size_t failAt = SIZE_MAX;
        std::uint32_t code = Code::InvalidData;
        const char* told = "";
    } cases[] = {
        {"empty", {}},
        {"truncated", Bytes(good.begin(), good.begin() + 20'000)},
        {"corrupt", corrupt},
        {"no compressed file", BytesOf(PageText(9000))},
        {"too large", good, 1'999'999},
        {"bomb", Compressed(std::string(50'000'000, '\0')), 1U << 20U, SIZE_MAX, Code::InvalidData,
         "The file unpacks to more than 1 MiB."},
        {"server gone", good, SIZE_MAX, 20'000, Code::ServerUnavailable},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        ScriptedReader source(each.bytes);
        source.failAt = each.failAt;
        const auto done = Decompress(source, each.most);
        ASSERT_FALSE(done);
        EXPECT_TRUE(done.error().Is(each.code)) << done.error().description;
        EXPECT_TRUE(*each.told == '\0' || done.error().description == each.told) << done.error().description;
        EXPECT_LE(Written().size(), each.most);
    }
    ScriptedReader again(good), cancelled(good), homeless(good), slow(good);
    EXPECT_TRUE(Decompress(again));
    EXPECT_FALSE(Decompress(slow, SIZE_MAX, [](double) { return false; }));
    EXPECT_EQ(slow.At(), 1000U) << "one part of a block";
    EXPECT_TRUE(
        Decompress(cancelled, SIZE_MAX, [](double part) { return part < 0.5; }).error().Is(Code::Cancelled));
    std::filesystem::remove(*target);
    EXPECT_TRUE(Decompress(homeless).error().Is(Code::FileNotFound));
}

// Notes what an analysis shows, and when messages could run.
class ScreenNotes : public AnalysisScreen {
public:
    bool IsOpen() const override { return true; }
    void ShowStep(int step) override { notes += "step" + std::to_string(step) + " "; }
    void ShowPart(double part) override { EXPECT_TRUE(part >= 0 && part <= 1); }
    void ShowLevel(int level, const LevelFigures& figures) override
    {
        notes += "level" + std::to_string(level) + " ";
        shown.at(static_cast<std::size_t>(level)) = figures;
    }
    void ShowResults() override { notes += "results "; }
    void HideSteps() override { notes += "hide"; }

    std::string notes;
    FiguresByLevel shown;
};

class AnalysisTest : public AnalysisRig {
public:
    void Run(const FileDetails& file = Details())
    {
        screen = {};
        boxes.shown.clear();
        pump.runs = 0;
        analysis.Run(file, screen);
        EXPECT_EQ(TempFilesLeft(), 0);
        EXPECT_EQ(pointer.Get(), ScreenPointer::Default);
    }

    ScreenNotes screen;
    Analysis analysis{host};
};

TEST_F(AnalysisTest, CompressesTheUnpackedFileAtEachLevel)
{
    const auto text = PageText(300'000);
    PutCacheFile(Compressed(text));
    pump.onRun = [this](int) { EXPECT_EQ(pointer.Get(), ScreenPointer::Hourglass); };
    Run();
    EXPECT_EQ(screen.notes, "step1 step2 level1 step3 level2 step4 level3 step5 level4 step6 level5 step7 "
                            "level6 step8 level7 step9 level8 step10 level9 results hide");
    EXPECT_TRUE(boxes.shown.empty());
    // The last block is padded with zeros.
    constexpr std::size_t kBlock = 8096;
    auto padded = BytesOf(text);
    padded.resize((padded.size() + kBlock - 1) / kBlock * kBlock);
    for (int level = kFirstLevel; level <= kLastLevel; ++level) {
        zentrel::Compressor compressor;
        Bytes output;
        ASSERT_TRUE(compressor.BeginCompress(2, level) && compressor.CompressBlock(padded, 0, output) &&
                    compressor.EndCompress(output));
        const auto& figures = screen.shown.at(static_cast<std::size_t>(level));
        ASSERT_TRUE(figures);
        EXPECT_EQ(figures->OutputSize, compressor.OutputSize());
        EXPECT_GT(figures->ProcessTime, 0);
    }
}

TEST_F(AnalysisTest, TellsWhatItCannotReach)
{
    namespace fs = std::filesystem;
    auto file = Details();
    const struct {
        const char* what;
        std::function<void()> make;
        const char* message;
        const char* notes;
    } cases[] = {
        {"missing", [] {}, "Cannot open ", ""},
        {"a folder", [&] { fs::create_directories(CacheFile()); }, "Cannot open ", ""},
        {"a link", [&] { fs::create_symlink("/etc/passwd", CacheFile()); }, "Cannot open ", ""},
        {"no compressed file", [&] { PutCacheFile(BytesOf("x")); }, "Cannot decompress ", "step1 hide"},
        {"no temporary folder", [&] { tempFiles = {}, setenv("TMPDIR", "/nowhere", 1); },
         "Cannot decompress ", ""},
        {"outside", [&] { file.CacheFilePath = R"(..\config)"; }, "Cannot open ", ""},
        {"no connection", [&] { cache = zentrel::CacheAdmin(transport); },
         "Cannot retrieve Zentrel cache directory", ""},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        if (fs::is_directory(CacheFile()) || fs::is_symlink(CacheFile())) fs::remove(CacheFile());
        each.make();
        Run(file);
        const auto about = std::string(each.message).ends_with(' ')
                               ? (store.Folder() / "cache").string() + '\\' + file.CacheFilePath
                               : std::string();
        ASSERT_EQ(boxes.shown.size(), 1U);
        EXPECT_TRUE(boxes.shown[0].starts_with("Zentrel Quillet: " + (each.message + about) + "\r\n(Error "))
            << boxes.shown[0];
        EXPECT_EQ(screen.notes, each.notes);
    }
}

TEST_F(AnalysisTest, AFullDiskIsToldAndGivenBack)
{
    PutCacheFile(Compressed(PageText(3'000'000)));
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{1U << 20U, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    Run();
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    ASSERT_EQ(boxes.shown.size(), 1U);
    EXPECT_TRUE(boxes.shown[0].starts_with("Zentrel Quillet: Cannot decompress " + CacheFileText() +
                                           "\r\n(Error 112 - "))
        << boxes.shown[0];
}

}  // namespace

// One level that fails leaves the others alone.
TEST_F(AnalysisTest, ALostTemporaryFileIsToldLevelByLevel)
{
    PutCacheFile(Compressed(PageText(1000)));
    std::string name;
    pump.onRun = [&](int) {
        if (screen.notes.find("level3") == std::string::npos || TempFilesLeft() == 0) return;
        name = std::filesystem::directory_iterator(temp.Path())->path().string();
        std::filesystem::remove(name);
    };
    boxes.onShow = [this] { EXPECT_EQ(pointer.Get(), ScreenPointer::Default); };
    Run();
    ASSERT_EQ(boxes.shown.size(), 6U);
    for (const auto& box : boxes.shown)
        EXPECT_TRUE(box.starts_with("Zentrel Quillet: Cannot access " + name + "\r\n(Error 2 - ")) << box;
    EXPECT_EQ(screen.notes,
              "step1 step2 level1 step3 level2 step4 level3 step5 step6 step7 step8 step9 step10 "
              "results hide");
}
