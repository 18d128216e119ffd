#include "remote/AdminRig.h"
#include "zentrel/Admin.h"

#include <sys/stat.h>

namespace {

using namespace zentrel;
namespace fs = std::filesystem;

// Reads cached files of one server in its own process, as administrator and as viewer.
class CacheFiles : public AdminRig {
protected:
    void SetUp() override
    {
        Start();
        const std::shared_ptr<Transport> ways[] = {std::make_shared<EmbeddedTransport>(service, "HERE"),
                                                   std::make_shared<RemoteTransport>(TargetOf(kAdmins)),
                                                   std::make_shared<RemoteTransport>(TargetOf(kViewers))};
        for (const auto& way : ways) {
            admins.emplace_back(way);
            ASSERT_TRUE(admins.back().Connect(""));
        }
    }

    fs::path Put(const std::string& path, std::size_t size) const
    {
        const auto file = service->Cache().Root() / path;
        fs::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << Text(0, size);
        return file;
    }

    static std::string Text(std::size_t from, std::size_t size)
    {
        std::string text(size, '\0');
        for (auto& c : text) {
            c = static_cast<char>(from * 31 + from / 251);
            ++from;
        }
        return text;
    }

    static std::string ReadOn(CacheFileReader& file, std::size_t most)
    {
        std::string text;
        for (;;) {
            const auto bytes = file.Read(most);
            EXPECT_TRUE(bytes) << bytes.error().description;
            if (!bytes || bytes->empty()) return text;
            EXPECT_LE(bytes->size(), most);
            text.append(reinterpret_cast<const char*>(bytes->data()), bytes->size());
        }
    }

    std::vector<CacheAdmin> admins;
};

TEST_F(CacheFiles, AreReadWholeInPiecesOfAnySize)
{
    const auto kPart = std::size_t{256} << 10;
    const std::pair<const char*, std::size_t> files[] = {{"0/1.gzip", 0},
                                                         {"12/1234.gzip", kPart},
                                                         {"12/1234/00000000ABCD.gzip", 3 * kPart + 1},
                                                         {"7/700.gzip", 20 * kPart}};  // beyond every window
    for (const auto& [path, size] : files) Put(path, size);
    for (auto& admin : admins)
        for (const auto& [path, size] : files)
            for (const std::size_t most : {std::size_t{1000}, std::size_t{1} << 30}) {
                auto file = admin.OpenCacheFile(path);
                ASSERT_TRUE(file) << file.error().description;
                EXPECT_EQ((*file)->Size(), size);
                EXPECT_TRUE(ReadOn(**file, most) == Text(0, size)) << path;
            }
}

TEST_F(CacheFiles, NothingElseIsReached)
{
    const auto secret = Path("secret.gzip");
    std::ofstream(secret) << "secret";
    const auto root = service->Cache().Root();
    fs::create_directories(Path("outside"));
    std::ofstream(Path("outside") / "200.gzip") << "secret";
    Put("0/5.gzip", 10);
    fs::create_symlink(secret, root / "0" / "6.gzip");
    fs::create_symlink(root / "0" / "5.gzip", root / "0" / "7.gzip");  // also within the folder
    fs::create_directory(root / "0" / "8.gzip");
    ASSERT_EQ(mkfifo((root / "0" / "9.gzip").c_str(), 0600), 0);
    fs::create_directory_symlink(Path("outside"), root / "2");

    const auto kGone = Code::FileNotFound;
    const std::pair<std::string, std::uint32_t> cases[] = {
        {"0/3.gzip", kGone},
        {"0/6.gzip", kGone},
        {"0/7.gzip", kGone},
        {"0/8.gzip", kGone},
        {"0/9.gzip", kGone},
        {"2/200.gzip", Code::PathNotFound},
        {"", Code::InvalidName},
        {"../secret.gzip", Code::InvalidName},
        {"..\\secret.gzip", Code::InvalidName},
        {secret, Code::InvalidName},
        {std::string("0/5.gzip\0", 9), Code::InvalidName},
        {std::string(100'000, '0') + "/5.gzip", Code::InvalidName},
    };
    for (auto& admin : admins) {
        for (const auto& [path, code] : cases) {
            const auto file = admin.OpenCacheFile(path);
            ASSERT_FALSE(file) << path;
            EXPECT_TRUE(file.error().Is(code)) << path << ": " << file.error().code;
        }
        EXPECT_TRUE(admin.OpenCacheFile("0/5.gzip"));
    }
    // A client that does not look at names itself.
    const auto stub = Connect(kViewers);
    for (const auto& [path, code] : cases) {
        if (path.size() > 1000) continue;
        grpc::ClientContext context;
        v1::CacheFileRequest request;
        request.set_path(path);
        const auto stream = stub->ReadCacheFile(&context, request);
        v1::CacheFilePart part;
        EXPECT_FALSE(stream->Read(&part)) << path;
        EXPECT_EQ(CodeIn(stream->Finish()), code) << path;
    }
}

TEST_F(CacheFiles, EndWhereTheyEndedWhenTheyWereOpened)
{
    constexpr std::size_t kSize = 9 << 20;  // more than is on its way at once
    for (auto& admin : admins) {
        const auto path = Put("0/1.gzip", kSize);
        auto file = admin.OpenCacheFile("0/1.gzip");
        ASSERT_TRUE(file);
        std::ofstream(path, std::ios::binary | std::ios::app) << std::string(1000, 'x');
        EXPECT_TRUE(ReadOn(**file, 1 << 20) == Text(0, kSize));
        EXPECT_TRUE((*file)->Read(1)->empty());

        file = admin.OpenCacheFile("0/1.gzip");
        ASSERT_TRUE(file);
        fs::resize_file(path, 1000);
        const auto text = ReadOn(**file, 1 << 20);
        EXPECT_GE(text.size(), 1000U);
        EXPECT_LT(text.size(), kSize);
        EXPECT_TRUE(text == Text(0, text.size()));
        EXPECT_EQ((*file)->Size(), kSize + 1000);
    }
}

}  // namespace
