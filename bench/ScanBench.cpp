#include "Benches.h"

#include "Dataset.h"
#include "Floors.h"
#include "BenchWindow.h"

#include <algorithm>

namespace {

using std::filesystem::path;

void Walk(benchmark::State& state, const path& data, bool fillArena)
{
    const auto store = zentrel::Metabase::Open(data, zentrel::Metabase::Access::Read);
    if (!store) return state.SkipWithError("no store");
    for ([[maybe_unused]] auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        if (fillArena) {
            const auto arena = FillBareArena(**store);
            state.SetIterationTime(SecondsSince(start));
            benchmark::DoNotOptimize(arena.hits);
        } else {
            benchmark::DoNotOptimize(OrderedWalk(**store));
            state.SetIterationTime(SecondsSince(start));
        }
    }
}

void Scan(benchmark::State& state, const path& data, std::uint32_t urls)
{
    BenchWindow box(data);
    for ([[maybe_unused]] auto _ : state) {
        box.Empty();
        const auto start = std::chrono::steady_clock::now();
        box.Rescan();
        const auto seconds = SecondsSince(start);
        state.SetIterationTime(seconds);
        state.counters["entry"] = seconds / urls;
        if (box.Urls() != static_cast<std::int32_t>(urls)) state.SkipWithError("URLs are missing");
    }
}

void Empty(benchmark::State& state, const path& data)
{
    BenchWindow box(data);
    for ([[maybe_unused]] auto _ : state) {
        box.Rescan();
        box.window.ExpandAll();
        box.Paint();
        const auto start = std::chrono::steady_clock::now();
        box.Empty();
        box.Paint();
        state.SetIterationTime(SecondsSince(start));
    }
}

// Notes every visit of the real pump to the event loop. The extra looks at the clock make the scan slower,
// so its time is not used.
class WatchedPump : public MessagePump {
public:
    explicit WatchedPump(MessagePump& real) : m_real(real) {}
    void Run() override
    {
        const auto before = std::chrono::steady_clock::now();
        m_real.Run();
        const auto inside = SecondsSince(before);
        if (inside < kVisit) return;
        spent += inside;
        longest = std::max(longest, std::chrono::duration<double>(before - m_last).count());
        m_last = std::chrono::steady_clock::now();
    }
    void Start()
    {
        longest = spent = 0;
        m_last = std::chrono::steady_clock::now();
    }
    void Finish() { longest = std::max(longest, SecondsSince(m_last)); }  // from the last visit to the end

    double longest = 0;
    double spent = 0;

private:
    static constexpr double kVisit = 3e-6;  // a look at the clock alone takes far less
    MessagePump& m_real;
    std::chrono::steady_clock::time_point m_last;
};

void Visits(benchmark::State& state, const path& data)
{
    for ([[maybe_unused]] auto _ : state) {
        QtMessagePump pump;
        WatchedPump watched(pump);
        BenchWindow box(data, watched);
        watched.Start();
        const auto start = std::chrono::steady_clock::now();
        box.Rescan();
        const auto seconds = SecondsSince(start);
        state.SetIterationTime(seconds);
        watched.Finish();
        state.counters["longest"] = watched.longest;
        state.counters["share"] = 100 * watched.spent / seconds;
    }
}

void Memory(benchmark::State& state, const path& data, std::uint32_t urls)
{
    for ([[maybe_unused]] auto _ : state) {
        const auto bytes = RunProbe("scan-memory", data);
        if (bytes < 0) return state.SkipWithError("the probe failed");
        state.SetIterationTime(1e-9);
        state.counters["url"] = bytes / urls;
    }
}

}  // namespace

int ProbeScanMemory(const path& data)
{
    BenchWindow box(data);
    const auto before = PrivateMemory();
    box.Rescan();
    std::printf("%.0f\n", PrivateMemory() - before);
    return 0;
}

void RegisterScanBenches(const path& scratch)
{
    for (const std::uint32_t urls : {100'000U, 1'000'000U}) {
        const auto data = scratch / std::to_string(urls);
        if (!zentrel::Service::Init(data) || !MakeDataset(data, urls)) {
            std::puts("The data set cannot be made.");
            return;
        }
        Register("scan/" + std::to_string(urls), [=](benchmark::State& state) { Scan(state, data, urls); });
        if (urls != 1'000'000) continue;
        Register("walk/1000000", [=](benchmark::State& state) { Walk(state, data, false); });
        Register("arena/1000000", [=](benchmark::State& state) { Walk(state, data, true); });
        Register("empty/1000000", [=](benchmark::State& state) { Empty(state, data); });
        Register("visits", [=](benchmark::State& state) { Visits(state, data); });
        Register("memory", [=](benchmark::State& state) { Memory(state, data, urls); });
    }
}
