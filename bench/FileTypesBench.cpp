#include "BenchWindow.h"
#include "Benches.h"

#include "cache/FileTypeList.h"
#include "zentrel/Service.h"

#include <random>

namespace {

constexpr int kTypes = 10'000;

// More types than any real cache has, in no order, with sums of every size.
void AddTypes(FileTypeTable& types)
{
    std::mt19937_64 random(1);
    for (int i = 0; i < kTypes; ++i) {
        auto& type = types.Find("ext" + std::to_string(random()));
        type.Count = static_cast<std::int32_t>(random() % 1'000'000);
        type.UncompressedSize = static_cast<double>(random() >> (random() % 60));
        type.CompressedSize = type.UncompressedSize / static_cast<double>(1 + random() % 100);
    }
}

// The real list of the real window, painted each time.
struct ListBox {
    explicit ListBox(const std::filesystem::path& data) : box(data) { AddTypes(types); }

    template <class Work>
    double Measure(Work&& work)
    {
        const auto start = std::chrono::steady_clock::now();
        work();
        List().viewport()->repaint();
        return SecondsSince(start);
    }
    FileTypeList& List() { return *box.window.findChild<FileTypeList*>(QStringLiteral("lstFileTypes")); }

    BenchWindow box;
    FileTypeTable types;
};

void Fill(benchmark::State& state, const std::filesystem::path& data)
{
    ListBox list(data);
    for ([[maybe_unused]] auto _ : state)
        state.SetIterationTime(list.Measure([&list] { list.List().FillFileTypes(list.types); }));
}

// Upwards and downwards by one column; the longer of the two counts.
void Sort(benchmark::State& state, const std::filesystem::path& data, int column)
{
    ListBox list(data);
    list.List().FillFileTypes(list.types);
    for ([[maybe_unused]] auto _ : state) {
        const auto click = [&] { list.List().ColumnClick(column); };
        const auto upwards = list.Measure(click);
        state.SetIterationTime(std::max(upwards, list.Measure(click)));
    }
}

}  // namespace

void RegisterFileTypesBenches(const std::filesystem::path& scratch)
{
    const auto data = scratch / "types";
    if (!zentrel::Service::Init(data)) return;
    Register("types/fill", [=](benchmark::State& state) { Fill(state, data); });
    for (int column = 0; column < kFileTypeColumns; ++column)
        Register("types/sort" + std::to_string(column),
                 [=](benchmark::State& state) { Sort(state, data, column); });
}
