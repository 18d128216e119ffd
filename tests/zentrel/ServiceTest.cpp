#include "zentrel/ServiceRig.h"

#include <fcntl.h>

using namespace zentrel;
namespace fs = std::filesystem;

namespace {

using Role = Service::Role;

using ServiceTest = ServiceRig;

std::uint32_t CodeOf(const Done& done)
{
    return done ? 0 : done.error().code;
}

}  // namespace

TEST_F(ServiceTest, ThereIsOneWriterAtATime)
{
    Start();
    EXPECT_TRUE(Service::Open(Data(), Role::Writer).error().Is(Code::SharingViolation));

    Close();
    int pipe[2];
    ASSERT_EQ(::pipe2(pipe, O_CLOEXEC), 0);
    const auto writer = [&] {
        const auto own = Service::Open(Data(), Role::Writer);
        const char ready = own ? 1 : 0;
        if (write(pipe[1], &ready, 1) == 1) pause();
        return 1;
    };
    InChild(writer, [&](pid_t child) {
        char ready = 0;
        ASSERT_EQ(read(pipe[0], &ready, 1), 1);
        EXPECT_EQ(ready, 1);
        ASSERT_NO_FATAL_FAILURE(Reopen(Role::Viewer));
        EXPECT_EQ(CodeOf(service->ResetCounters()), Code::SharingViolation);
        EXPECT_EQ(service->DeleteTree("LM/W3SVC").error().description,
                  "Another process (pid " + std::to_string(child) + ") is writing to this server's data.");
        EXPECT_EQ(service->Sites()->size(), 1U);
        kill(child, SIGKILL);
    });
    close(pipe[0]);
    close(pipe[1]);
    EXPECT_EQ(service->DeleteTree("LM/W3SVC").value(), 0U);  // the place is free again
    EXPECT_TRUE(fs::exists(Data() / "unclean"));             // and what was killed is still to be cleared up
    Reopen(Role::Writer);
    Reopen(Role::Viewer);
    EXPECT_FALSE(fs::exists(Data() / "unclean"));
}

TEST_F(ServiceTest, AReadOnlyStoreIsShownAndNotChanged)
{
    Start();
    WriteFile("page.html", Page(5000));
    Get("/page.html");
    Reopen(Role::Viewer);
    Close();
    const auto shut = Root() / "shut";
    fs::create_directory(shut);
    fs::permissions(shut, fs::perms::none);
    fs::permissions(Data() / "metabase.mdb", fs::perms(0444));
    fs::permissions(Data() / "metabase.mdb-lock", fs::perms(0666));  // readers sign in here
    for (fs::path folder = Data(); folder != "/" && folder != "/tmp"; folder = folder.parent_path())
        fs::permissions(folder, fs::perms(0555));
    const int failed = InChild([&] {
        if (getuid() == 0 && setuid(65534) != 0) return 2;  // the administrator may write anywhere
        Reopen(Role::Viewer);
        EXPECT_EQ(service->Sites()->size(), 1U);
        EXPECT_EQ(CodeOf(service->DeleteEntry("LM/W3SVC/1/Root/page.html")), Code::AccessDenied);
        EXPECT_TRUE(Service::Open(shut, Role::Viewer).error().Is(Code::AccessDenied)) << "not: no data";
        return HasFailure() ? 1 : 0;
    });
    EXPECT_EQ(failed, 0);
    fs::permissions(shut, fs::perms::owner_all);
    for (fs::path folder = Data(); folder != "/" && folder != "/tmp"; folder = folder.parent_path())
        fs::permissions(folder, fs::perms(0755));
}

TEST_F(ServiceTest, SitesAndVirtualDirectoriesAreCheckedAndKept)
{
    Start();
    const SiteConfig good{7, "second \xC3\xA4", {"*:81:", "10.0.0.1:443:host"}, Root(), Encoding::Deflate, 9};
    const auto with = [&](auto change) {
        auto site = good;
        change(site);
        return CodeOf(service->AddSite(site));
    };
    EXPECT_EQ(with([](SiteConfig& site) { site.number = 0x80000000; }), Code::InvalidParameter);
    EXPECT_EQ(with([](SiteConfig& site) { site.number = 1; }), Code::AlreadyExists);
    EXPECT_EQ(with([](SiteConfig& site) { site.comment = "\xFF"; }), Code::InvalidParameter);
    EXPECT_EQ(with([](SiteConfig& site) { site.documentRoot /= "none"; }), Code::PathNotFound);
    EXPECT_EQ(with([](SiteConfig& site) { site.level = 10; }), Code::InvalidParameter);
    EXPECT_EQ(with([](SiteConfig& site) { site.number = 0x7FFFFFFF; }), 0U);
    EXPECT_TRUE(service->AddSite(good));
    const auto sites = service->Sites();
    ASSERT_EQ(sites->size(), 3U);
    EXPECT_EQ((*sites)[1].comment, good.comment);
    EXPECT_EQ((*sites)[1].bindings, good.bindings);
    EXPECT_EQ((*sites)[1].encoding, Encoding::Deflate);

    const std::tuple<std::uint32_t, std::string, fs::path, std::uint32_t> cases[] = {
        {7, "a/b", Root(), 0},
        {7, "/a/b/", Root(), Code::AlreadyExists},
        {7, "a", Root() / "none", Code::PathNotFound},
        {7, "/", Root(), Code::InvalidName},
        {7, "a/../c", Root(), Code::InvalidName},
    };
    for (const auto& [site, path, target, code] : cases)
        EXPECT_EQ(CodeOf(service->AddVirtualDir(site, path, target)), code) << path;
    EXPECT_EQ(service->VirtualDirs(7)->back().urlPath, "a/b");
}

TEST_F(ServiceTest, DeletingAnEntryTakesItsVariantsAndEmptyFoldersAlong)
{
    Start();
    for (const char* file : {"a/b/page.html", "a/b/c/page.html", "index.html"}) WriteFile(file, Page(5000));
    for (const char* url : {"/a/b/page.html", "/a/b/page.html?x", "/a/b/c/page.html?y", "/"}) Get(url);
    Get("/a/b/page.html", false, true);
    ASSERT_EQ(CheckConsistency(), 5U);
    const auto folders = Keys().size();
    for (const char* bad : {"LM/W3SVC/1/Root/a/b", "LM/W3SVC/1/Root", "nowhere"})
        EXPECT_EQ(CodeOf(service->DeleteEntry(bad)), Code::FileNotFound) << bad;
    EXPECT_EQ(service->DeleteTree("").error().code, Code::InvalidName);

    EXPECT_TRUE(service->DeleteEntry("/LM/W3SVC/1/Root/a/b/page.html"));
    EXPECT_EQ(CheckConsistency(), 2U);
    EXPECT_EQ(Keys().size(), folders - 2);
    Reopen(Role::Viewer);
    EXPECT_TRUE(service->DeleteEntry("LM/W3SVC/1/Root/a/b/c/page.html"));
    EXPECT_TRUE(service->DeleteEntry("LM/W3SVC/1/Root/index.html/"));
    EXPECT_EQ(CheckConsistency(), 0U);
    const auto keys = Keys();
    EXPECT_EQ(keys.rbegin()->first, "LM/W3SVC/1/Root");
}

TEST_F(ServiceTest, CountersAndCacheIdsOutliveTheWriter)
{
    Start();
    for (const char* name : {"a", "b"}) WriteFile(std::string(name) + ".html", Page(5000));
    Get("/a.html");
    Reopen(Role::Viewer);
    EXPECT_EQ(service->Counters()->cacheMisses, 1U);
    EXPECT_TRUE(service->DeleteTree("LM/W3SVC"));
    Reopen(Role::Writer);
    EXPECT_EQ(service->Counters()->cacheMisses, 1U);
    Get("/b.html");
    EXPECT_EQ(Record(*Keys().at("LM/W3SVC/1/Root/b.html").Find(Prop::CacheId)).Number(), 2U);
}

TEST_F(ServiceTest, AFullDiskCostsNothingButWhatDoesNotFit)
{
    Start();
    std::string noise;
    for (unsigned seed = 1; noise.size() < 3'000'000; seed = seed * 1664525 + 1013904223)
        noise += "0123456789ABCDEF"[seed >> 28U];
    WriteFile("large.txt", noise);
    for (int i = 0; i < 600; ++i) WriteFile(std::to_string(i) + ".html", Page(300, i));
    Close();
    const int failed = InChild([&] {
        Reopen(Role::Writer);
        LimitFileSize(1 << 20);
        const auto large = Get("/large.txt");  // its cached file does not fit
        EXPECT_EQ(large.status, 200);
        EXPECT_EQ(large.encoding, Encoding::Gzip);
        EXPECT_GT(large.body.size(), 1U << 20U);
        EXPECT_TRUE(service->LastError() && service->LastError()->Is(Code::DiskFull));
        EXPECT_TRUE(fs::is_empty(service->Cache().Root() / "tmp"));
        Get("/0.html");
        EXPECT_FALSE(service->LastError());
        EXPECT_EQ(CheckConsistency(), 1U);

        LimitFileSize(fs::file_size(Data() / "metabase.mdb"));  // now the store cannot grow
        for (int i = 1; i < 600; ++i) EXPECT_EQ(Get("/" + std::to_string(i) + ".html").status, 200);
        EXPECT_EQ(CodeOf(service->Flush()), Code::DiskFull);
        EXPECT_TRUE(service->LastError());
        const auto count = CountFiles();
        const auto refused = Warm(*service, {1}, {});
        EXPECT_TRUE(!refused && refused.error().Is(Code::DiskFull));
        EXPECT_EQ(CountFiles(), count);  // no cached files that could get no record
        EXPECT_TRUE(Get("/0.html").fromCache);

        LimitFileSize(RLIM_INFINITY);
        EXPECT_TRUE(service->Flush());
        EXPECT_FALSE(service->LastError());
        EXPECT_EQ(CheckConsistency(), count);
        EXPECT_EQ(Warm(*service, {1}, {})->cached, 601U);
        return HasFailure() ? 1 : 0;
    });
    EXPECT_EQ(failed, 0);
    Reopen(Role::Writer);
    EXPECT_EQ(service->Counters()->responsesCompressed, 602U);
}
