#include "Benches.h"
#include "Dataset.h"

#include "zentrel/EmbeddedTransport.h"
#include "zentrel/RecordLayout.h"
#include "zentrel/Service.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <fstream>
#include <thread>

namespace {

using std::filesystem::path;
using Clock = std::chrono::steady_clock;

constexpr std::uint32_t kEntries = 100'000;
constexpr std::size_t kFileSize = 512;
constexpr auto kSite = "LM/W3SVC/1";

// A cached file for each entry of the dataset, or the same files where nobody keeps records of them.
bool MakeFiles(const path& cache, std::uint32_t count)
{
    const std::string body(kFileSize, 'x');
    std::error_code error;
    for (std::uint32_t id = 1; id <= count; ++id) {
        const auto file = cache / zentrel::CachedFile{id, zentrel::Encoding::Gzip, 0}.Path();
        if (id % 256 == 0 || id == 1) std::filesystem::create_directories(file.parent_path(), error);
        if (!std::ofstream(file, std::ios::binary).write(body.data(), kFileSize)) return false;
    }
    return true;
}

std::shared_ptr<zentrel::Service> MakeService(const path& data)
{
    std::error_code error;
    std::filesystem::remove_all(data, error);
    if (!zentrel::Service::Init(data)) return nullptr;
    {
        auto viewer = zentrel::Service::Open(data, zentrel::Service::Role::Viewer);
        zentrel::SiteConfig site;
        site.number = 1;
        site.documentRoot = data;
        if (!viewer || !(*viewer)->AddSite(site)) return nullptr;
    }
    if (!MakeDataset(data, kEntries) || !MakeFiles(data / "cache", kEntries)) return nullptr;
    auto service = zentrel::Service::Open(data, zentrel::Service::Role::Writer);
    return service ? *service : nullptr;
}

// Everything that was written before is on the disk, so that it is not waited for in the measured time.
void SettleDisk()
{
    sync();
}

void RemoveByProgram(benchmark::State& state, const path& scratch)
{
    for ([[maybe_unused]] auto _ : state) {
        const auto files = scratch / "removed";
        if (!MakeFiles(files, kEntries)) return state.SkipWithError("no files");
        SettleDisk();
        const auto start = Clock::now();
        if (std::system(("rm -r '" + files.string() + "'").c_str()) != 0) return state.SkipWithError("rm");
        state.SetIterationTime(SecondsSince(start));
    }
}

// Does one thing over and over beside a deletion, and answers the longest time that it took.
template <class Work>
class Meanwhile {
public:
    explicit Meanwhile(Work work)
        : m_thread([this, work] {
              while (!m_isOver) {
                  const auto start = Clock::now();
                  work();
                  m_longest = std::max(m_longest, SecondsSince(start));
                  std::this_thread::sleep_for(std::chrono::microseconds(500));
              }
          })
    {
    }
    double Longest()
    {
        m_isOver = true;
        m_thread.join();
        return m_longest;
    }

private:
    std::atomic<bool> m_isOver = false;
    double m_longest = 0;
    std::thread m_thread;
};

void DeleteTree(benchmark::State& state, const path& scratch)
{
    for ([[maybe_unused]] auto _ : state) {
        const auto service = MakeService(scratch / "deleted");
        if (service == nullptr) return state.SkipWithError("no service");
        SettleDisk();
        const auto start = Clock::now();
        const auto deleted = service->DeleteTree(kSite);
        if (!deleted || *deleted != kEntries) return state.SkipWithError("not deleted");
        state.SetIterationTime(SecondsSince(start));
    }
}

// A reader's single calls, and the work that each answered request brings along.
void WaitMeanwhile(benchmark::State& state, const path& scratch)
{
    for ([[maybe_unused]] auto _ : state) {
        const auto service = MakeService(scratch / "deleted");
        if (service == nullptr) return state.SkipWithError("no service");
        zentrel::EmbeddedTransport transport(service, "here");
        const auto session = transport.Connect({});
        if (!session) return state.SkipWithError("no session");
        SettleDisk();
        Meanwhile reader([&] { static_cast<void>((*session)->GetData(kSite, zentrel::Prop::KeyType)); });
        Meanwhile requests([&] { static_cast<void>(service->CountResponse({})); });
        const auto deleted = service->DeleteTree(kSite);
        state.counters["read"] = reader.Longest();
        state.counters["request"] = requests.Longest();
        if (!deleted) return state.SkipWithError("not deleted");
        state.SetIterationTime(state.counters["read"]);
    }
}

}  // namespace

void RegisterDeletionBenches(const path& scratch)
{
    Register("delete/rm", [=](benchmark::State& state) { RemoveByProgram(state, scratch); });
    Register("delete/tree", [=](benchmark::State& state) { DeleteTree(state, scratch); });
    Register("delete-wait", [=](benchmark::State& state) { WaitMeanwhile(state, scratch); });
}
