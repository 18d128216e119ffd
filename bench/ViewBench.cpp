#include "BareModel.h"
#include "BenchWindow.h"
#include "Benches.h"

#include <QElapsedTimer>
#include <QScrollBar>

#include <algorithm>

namespace {

using std::filesystem::path;

// Qt's own view on the bare arena, set up like ours.
class BareView {
public:
    explicit BareView(const path& data)
    {
        const auto store = zentrel::Metabase::Open(data, zentrel::Metabase::Access::Read);
        if (store) m_arena = FillBareArena(**store);
        m_model = std::make_unique<BareModel>(m_arena);
        view.setHeaderHidden(true);
        view.setUniformRowHeights(true);
        view.resize(1000, 700);
        view.setModel(m_model.get());
        view.show();
        view.viewport()->repaint();
    }

    void Expand()
    {
        view.expandAll();
        view.viewport()->repaint();
    }

private:
    BareArena m_arena;
    std::unique_ptr<BareModel> m_model;

public:
    QTreeView view;  // goes before its model
};

void ExpandBare(benchmark::State& state, const path& data)
{
    BareView bare(data);
    for ([[maybe_unused]] auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        bare.Expand();
        state.SetIterationTime(SecondsSince(start));
    }
}

void ExpandQuillet(benchmark::State& state, const path& data)
{
    BenchWindow box(data);
    box.Rescan();
    for ([[maybe_unused]] auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        box.window.ExpandAll();
        box.Paint();
        state.SetIterationTime(SecondsSince(start));
    }
}

// The 99th percentile over a ride through the whole tree, by pages, lines and jumps.
void Frames(benchmark::State& state, const path& data)
{
    BenchWindow box(data);
    box.Rescan();
    box.window.ExpandAll();
    box.Paint();
    auto* const bar = box.window.trvFiles->verticalScrollBar();
    for ([[maybe_unused]] auto _ : state) {
        std::vector<double> frames;
        for (int i = 0; i < 600; ++i) {
            const int jump = static_cast<int>(std::int64_t{bar->maximum()} * (i * 37 % 100) / 100);
            bar->setValue(i % 3 == 0 ? jump
                                     : bar->value() + (i % 3 == 1 ? bar->singleStep() : bar->pageStep()));
            const auto start = std::chrono::steady_clock::now();
            box.Paint();
            frames.push_back(SecondsSince(start));
        }
        std::sort(frames.begin(), frames.end());
        state.SetIterationTime(frames[frames.size() * 99 / 100]);
    }
}

void ExpandMemory(benchmark::State& state, const path& data, std::uint32_t urls)
{
    for ([[maybe_unused]] auto _ : state) {
        const auto quillet = RunProbe("expand-memory-quillet", data);
        const auto bare = RunProbe("expand-memory-bare", data);
        if (quillet < 0 || bare < 0) return state.SkipWithError("the probe failed");
        state.SetIterationTime(1e-9);
        state.counters["quillet"] = quillet / urls;
        state.counters["bare"] = bare / urls;
    }
}

}  // namespace

int ProbeExpandMemory(const path& data, bool isBare)
{
    double before = 0;
    double after = 0;
    if (isBare) {
        BareView bare(data);
        before = PrivateMemory();
        bare.Expand();
        after = PrivateMemory();
    } else {
        BenchWindow box(data);
        box.Rescan();
        before = PrivateMemory();
        box.window.ExpandAll();
        box.Paint();
        after = PrivateMemory();
    }
    std::printf("%.0f\n", after - before);
    return 0;
}

void RegisterViewBenches(const path& scratch)
{
    constexpr std::uint32_t kUrls = 1'000'000;
    const auto data = scratch / std::to_string(kUrls);
    Register("expand/bare", [=](benchmark::State& state) { ExpandBare(state, data); });
    Register("expand/quillet", [=](benchmark::State& state) { ExpandQuillet(state, data); });
    Register("expand-memory", [=](benchmark::State& state) { ExpandMemory(state, data, kUrls); });
    Register("frames", [=](benchmark::State& state) { Frames(state, data); });
}
