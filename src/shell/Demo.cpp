#include "shell/Demo.h"

#include "shell/DemoPages.h"
#include "zentrel/FolderWalk.h"
#include "zentrel/Warm.h"

#include <algorithm>
#include <array>
#include <string>
#include <system_error>

namespace fs = std::filesystem;

namespace {

constexpr std::uint32_t kOwnSite = 1;
constexpr std::uint32_t kEmptySite = 5;
constexpr std::uint32_t kFirstPort = 80;
constexpr std::uint64_t kMostWarmed = 480;   // files of one site
constexpr std::size_t kMostRequested = 640;  // the same; what was not warmed is cached when it is asked for
constexpr int kVariants = 3;

struct FoundSite {
    std::uint32_t number;
    const char* comment;
    zentrel::Encoding encoding;
    std::array<const char*, 2> folders;  // the first one that exists is the document root
};

constexpr std::array<FoundSite, 3> kFoundSites{{
    {2, "Documentation", zentrel::Encoding::Gzip, {"/usr/share/doc", "/usr/share/info"}},
    {3, "Developer headers", zentrel::Encoding::Deflate, {"/usr/include", "/usr/lib/gcc"}},
    {4, "Program sources", zentrel::Encoding::Gzip, {"/usr/lib/python3", "/usr/share/perl"}},
}};

constexpr std::array kVirtualDirTargets{"/usr/share/mime/text", "/usr/share/javascript", "/usr/share/i18n"};

bool IsFolder(const fs::path& path)
{
    std::error_code error;
    return fs::is_directory(path, error);
}

template <class Paths>
fs::path FirstFolder(const Paths& paths)
{
    const auto found = std::find_if(paths.begin(), paths.end(), IsFolder);
    return found == paths.end() ? fs::path() : fs::path(*found);
}

std::string PercentEncoded(std::string_view path)
{
    constexpr std::string_view kHex = "0123456789ABCDEF";
    constexpr std::string_view kPlain = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789/-._~";
    std::string url;
    for (const char c : path) {
        if (kPlain.find(c) != std::string_view::npos) {
            url += c;
        } else {
            const auto byte = static_cast<unsigned char>(c);
            url += '%';
            url += kHex[byte >> 4U];
            url += kHex[byte & 0xFU];
        }
    }
    return url;
}

Result<fs::path> MakeFolder(const fs::path& folder)
{
    std::error_code error;
    fs::create_directories(folder, error);
    if (error) return FailErrno(error.value(), "Demo", "Cannot make the folder " + folder.string());
    return folder;
}

}  // namespace

Result<Demo> Demo::Make(const std::function<bool()>& goesOn)
{
    auto folder = TempFolder::Make("quillet-demo-");
    if (!folder) return Fail(folder.error());
    Demo demo(std::move(*folder));
    const auto data = demo.m_folder.Path() / "data";
    if (auto made = zentrel::Service::Init(data); !made) return Fail(made.error());
    auto service = zentrel::Service::Open(data, zentrel::Service::Role::Writer);
    if (!service) return Fail(service.error());
    demo.m_service = std::move(*service);
    if (auto done = demo.AddSites(); !done) return Fail(done.error());
    if (auto done = demo.Warm(goesOn); !done) return Fail(done.error());
    if (auto done = demo.AnswerFirstVisitors(); !done) return Fail(done.error());
    return demo;
}

Done Demo::AddSites()
{
    const auto pages = MakeFolder(m_folder.Path() / "pages");
    const auto empty = MakeFolder(m_folder.Path() / "empty");
    if (!pages || !empty) return Fail(pages ? empty.error() : pages.error());
    if (auto written = WriteDemoPages(*pages); !written) return written;

    const auto add = [this](std::uint32_t number, const char* comment, const fs::path& root,
                            zentrel::Encoding encoding) {
        zentrel::SiteConfig site;
        site.number = number;
        site.comment = comment;
        site.bindings = {":" + std::to_string(kFirstPort + number - 1) + ":"};
        site.documentRoot = root;
        site.encoding = encoding;
        return m_service->AddSite(site);
    };
    if (auto done = add(kOwnSite, "Default Web Site", *pages, zentrel::Encoding::Gzip); !done) return done;
    for (const auto& site : kFoundSites) {
        const auto root = FirstFolder(site.folders);
        if (root.empty()) continue;
        if (auto done = add(site.number, site.comment, root, site.encoding); !done) return done;
    }
    const auto target = FirstFolder(kVirtualDirTargets);
    if (auto done = m_service->AddVirtualDir(kOwnSite, "xml", target.empty() ? *pages : target); !done)
        return done;
    return add(kEmptySite, "Intranet", *empty, zentrel::Encoding::Gzip);
}

Done Demo::Warm(const std::function<bool()>& goesOn)
{
    const auto sites = m_service->Sites();
    if (!sites) return Fail(sites.error());
    bool isStopped = false;
    for (const auto& site : *sites) {
        const auto warmed = zentrel::Warm(*m_service, {site.number, "/", kMostWarmed}, [&](auto, auto) {
            isStopped = isStopped || !goesOn();
            return !isStopped;
        });
        if (isStopped) return Fail(Code::Cancelled, "Demo");
        if (!warmed) return Fail(warmed.error());
        zentrel::FolderWalk walk(site.documentRoot, {}, [](const std::string&) { return false; });
        for (std::size_t i = 0; i < kMostRequested; ++i) {
            const auto file = walk.Next();
            if (!file) break;
            m_requests.push_back({site.number, "/" + PercentEncoded(*file)});
        }
    }
    return {};
}

// A few pages are cached in several variants before anybody looks.
Done Demo::AnswerFirstVisitors()
{
    zentrel::Responder responder(m_service);
    for (const auto& request : m_requests) {
        if (request.site != kOwnSite || !request.url.ends_with(".html")) continue;
        for (int variant = 1; variant <= kVariants; ++variant) {
            const auto response =
                responder.Answer({request.site, request.url + "?page=" + std::to_string(variant)});
            if (!response) return Fail(response.error());
        }
    }
    return m_service->Flush();
}
