#include "zentrel/Warm.h"

#include "base/Text.h"
#include "zentrel/Crew.h"
#include "zentrel/FolderWalk.h"
#include "zentrel/KeyPath.h"
#include "zentrel/VersionMaker.h"

#include <algorithm>
#include <system_error>
#include <thread>
#include <vector>

namespace zentrel {

namespace {

constexpr std::string_view kSource = "Warm";
constexpr std::size_t kMostThreads = 8;
constexpr std::size_t kJobsAhead = 4;  // for each thread, so that none waits for the walk

bool IsFolder(const std::filesystem::path& path)
{
    std::error_code error;
    return std::filesystem::is_directory(path, error);
}

std::string Join(const std::string& urlPath, const std::string& relative)
{
    return urlPath.empty() ? relative : urlPath + '/' + relative;
}

// A folder to walk and the URL path that it stands at.
struct WarmRoot {
    std::filesystem::path folder;
    std::string start;  // relative to the folder
    std::string urlPath;
};

// One file on its way: what a thread is told, and what it answers.
struct WarmJob {
    const WarmRoot* root = nullptr;
    std::string relative;
};

struct WarmOutcome {
    bool isCached = false;
    Done stored;
};

using WarmCrew = Crew<WarmJob, WarmOutcome>;

class WarmRun {
public:
    WarmRun(Service& service, const WarmOptions& options, const WarmProgress& progress)
        : m_service(service),
          m_options(options),
          m_progress(progress)
    {
    }

    Result<WarmResult> Run();

private:
    Done FindRoots();
    template <class Take>
    void ForEachFile(Take take) const;
    void CacheFiles();
    void TakeOutcome(WarmCrew& crew);
    bool IsOver() const { return m_isStopped || !m_stored || m_result.cached >= m_options.mostFiles; }
    WarmOutcome CacheFile(VersionMaker& maker, const WarmJob& job) const;

    Service& m_service;
    const WarmOptions& m_options;
    const WarmProgress& m_progress;
    std::vector<WarmRoot> m_roots;
    std::vector<std::string> m_virtualDirs;  // URL paths, sorted
    UrlPlace m_place;                        // of `below`; tells how the site compresses
    std::uint64_t m_total = 0;
    std::uint64_t m_done = 0;
    bool m_isStopped = false;  // by whom the progress is told
    Done m_stored;             // the first error
    WarmResult m_result;
};

Result<WarmResult> WarmRun::Run()
{
    if (auto found = FindRoots(); !found) return Fail(found.error());
    ForEachFile([this](const WarmRoot&, const std::string&) { return ++m_total != 0; });
    CacheFiles();
    auto flushed = m_service.Flush();
    if (!m_stored || !flushed) return Fail(m_stored ? flushed.error() : m_stored.error());
    return m_result;
}

Done WarmRun::FindRoots()
{
    const auto below = CheckPath(m_options.below);
    if (!below) return Fail(below.error());
    const auto place = m_service.FindPlace(m_options.site, *below);
    if (!place) return Fail(place.error());
    if (!*place)
        return Fail(Code::PathNotFound, kSource, "There is no site " + std::to_string(m_options.site) + ".");
    m_place = **place;
    if (!IsFolder(m_place.folder / m_place.rest))
        return Fail(Code::PathNotFound, kSource,
                    "There is no folder \"" + (m_place.folder / m_place.rest).string() + "\".");
    const auto top = below->substr(0, below->size() - m_place.rest.size());
    m_roots.push_back({m_place.folder, m_place.rest, std::string(TrimSlashes(top))});

    const auto directories = m_service.VirtualDirs(m_options.site);
    if (!directories) return Fail(directories.error());
    const auto prefix = below->empty() ? std::string() : std::string(*below) + '/';
    for (const auto& directory : *directories) {
        m_virtualDirs.push_back(directory.urlPath);
        const bool isBelow =
            directory.urlPath.size() > prefix.size() && directory.urlPath.starts_with(prefix);
        if (isBelow) m_roots.push_back({directory.target, {}, directory.urlPath});
    }
    return {};
}

template <class Take>
void WarmRun::ForEachFile(Take take) const
{
    for (const auto& root : m_roots) {
        // Another virtual directory hides what lies at its URL.
        FolderWalk walk(root.folder, root.start, [&](const std::string& relative) {
            return std::binary_search(m_virtualDirs.begin(), m_virtualDirs.end(),
                                      Join(root.urlPath, relative));
        });
        while (const auto file = walk.Next())
            if (!take(root, *file)) return;
    }
}

// Compression takes most of the time, so as many files as there are processors are worked on at once.
void WarmRun::CacheFiles()
{
    const auto threads = std::clamp<std::size_t>(std::thread::hardware_concurrency(), 1, kMostThreads);
    std::vector<VersionMaker> makers;
    for (std::size_t i = 0; i < threads; ++i) makers.emplace_back(m_service);
    WarmCrew crew(threads,
                  [&](std::size_t thread, const WarmJob& job) { return CacheFile(makers[thread], job); });
    ForEachFile([&](const WarmRoot& root, const std::string& relative) {
        const auto isEnough = [&] {
            return crew.Out() >= threads * kJobsAhead || m_result.cached + crew.Out() >= m_options.mostFiles;
        };
        while (crew.Out() != 0 && (isEnough() || IsOver())) TakeOutcome(crew);
        if (IsOver()) return false;
        crew.Give({&root, relative});
        return true;
    });
    while (crew.Out() != 0) TakeOutcome(crew);
}

void WarmRun::TakeOutcome(WarmCrew& crew)
{
    const auto outcome = crew.Take();
    ++(outcome.isCached ? m_result.cached : m_result.skipped);
    if (m_stored) m_stored = outcome.stored;
    ++m_done;
    if (m_progress && !m_isStopped) m_isStopped = !m_progress(m_done, std::max(m_done, m_total));
}

WarmOutcome WarmRun::CacheFile(VersionMaker& maker, const WarmJob& job) const
{
    if (!CheckPath(job.relative)) return {};
    const auto source = SourceFile::Open(job.root->folder, job.relative);
    if (!source || !VersionMaker::Takes(LastSegment(job.relative), source->Stamp())) return {};
    const auto urlPath = Join(job.root->urlPath, job.relative);
    const VersionKey key{SiteRootKey(m_options.site) + '/' + urlPath, 0, m_place.encoding};
    const auto isThere = m_service.HasVersion(key, source->Stamp());
    if (!isThere) return {false, Fail(isThere.error())};
    if (*isThere) return {true, {}};
    const auto made = maker.Make(key, *source, m_place.level);
    if (!made) return {};
    return {made->isKept, made->kept};
}

}  // namespace

Result<WarmResult> Warm(Service& service, const WarmOptions& options, const WarmProgress& progress)
{
    return WarmRun(service, options, progress).Run();
}

}  // namespace zentrel
