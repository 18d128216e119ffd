#include "Benches.h"

#include "ops/frmFileInfo.h"
#include "shell/QtMessagePump.h"
#include "shell/QtScreenPointer.h"
#include "zentrel/EmbeddedTransport.h"

#include <QTimer>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sys/resource.h>

namespace {

using std::filesystem::path;

constexpr std::size_t kTextSize = std::size_t{16} << 20U;
constexpr const char* kCachedFile = "12/1234.gzip";

// Real source texts of this machine, one after the other, as often as it takes.
bool WriteText(const path& file)
{
    std::ofstream out(file, std::ios::binary);
    std::size_t size = 0;
    for (std::size_t before = SIZE_MAX; size < kTextSize && size != before;) {
        before = size;
        std::error_code error;
        using Walk = std::filesystem::recursive_directory_iterator;
        for (Walk at("/usr/include", error), end; !error && at != end && size < kTextSize;
             at.increment(error)) {
            if (at->path().extension() != ".h" || !at->is_regular_file(error)) continue;
            std::ifstream in(at->path(), std::ios::binary);
            std::string text{std::istreambuf_iterator<char>(in), {}};
            text.resize(std::min(text.size(), kTextSize - size));
            out.write(text.data(), static_cast<std::streamsize>(text.size()));
            size += text.size();
        }
    }
    return size == kTextSize && out.flush();
}

// A data folder whose cache holds the text, compressed.
bool MakeService(const path& data, const path& text)
{
    const auto cached = data / "cache" / kCachedFile;
    if (!zentrel::Service::Init(data)) return false;
    std::filesystem::create_directories(cached.parent_path());
    return std::system(("gzip -6 -c '" + text.string() + "' > '" + cached.string() + "'").c_str()) == 0;
}

double ProcessorSeconds(int who)
{
    rusage usage{};
    getrusage(who, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

void Levels(benchmark::State& state, const path& text)
{
    for ([[maybe_unused]] auto _ : state) {
        const auto start = ProcessorSeconds(RUSAGE_THREAD);
        zentrel::Compressor compressor;
        QtMessagePump pump;
        for (int level = kFirstLevel; level <= kLastLevel; ++level) {
            const auto figures = AnalyzeLevel(compressor, text.string(), level, [&pump](double) {
                pump.Run();
                return true;
            });
            if (!figures) return state.SkipWithError("a level failed");
            state.counters["bytes" + std::to_string(level)] = figures->OutputSize;
        }
        state.SetIterationTime(ProcessorSeconds(RUSAGE_THREAD) - start);
    }
}

void Gzip(benchmark::State& state, const path& text)
{
    for ([[maybe_unused]] auto _ : state) {
        const auto start = ProcessorSeconds(RUSAGE_CHILDREN);
        for (int level = kFirstLevel; level <= kLastLevel; ++level) {
            const auto command = "gzip -" + std::to_string(level) + " -c '" + text.string() + "' >/dev/null";
            if (std::system(command.c_str()) != 0) return state.SkipWithError("no gzip program");
        }
        state.SetIterationTime(ProcessorSeconds(RUSAGE_CHILDREN) - start);
    }
}

class TimedPump : public QtMessagePump {
public:
    void Visit() override
    {
        if (m_visits++ > 0) longest = std::max(longest, SecondsSince(m_last));
        QtMessagePump::Visit();
        m_last = std::chrono::steady_clock::now();
    }

    double longest = 0;

private:
    int m_visits = 0;
    std::chrono::steady_clock::time_point m_last;
};

struct NoBoxes : MessageBoxes {
    BoxAnswer Show(const std::string& text, BoxStyle, const std::string&) override
    {
        std::puts(text.c_str());
        return BoxAnswer::Ok;
    }
};

// The whole analysis in its dialog.
void Dialog(benchmark::State& state, const path& data)
{
    for ([[maybe_unused]] auto _ : state) {
        const auto transport = std::make_shared<zentrel::EmbeddedTransport>(data, "bench");
        zentrel::ServerAdmin server(transport);
        zentrel::CacheAdmin cache(transport);
        if (!server.Connect({}) || !cache.Connect({})) return state.SkipWithError("no service");
        NoBoxes boxes;
        TimedPump pump;
        QtScreenPointer pointer;
        TempFiles tempFiles;
        frmFileInfo dialog({server, cache, boxes, pump, pointer, tempFiles}, {});
        FileDetails file;
        file.CacheFilePath = kCachedFile;
        QTimer::singleShot(0, &dialog, [&dialog] {
            dialog.cmdCompr_Click();
            dialog.reject();
        });
        const auto start = std::chrono::steady_clock::now();
        dialog.ShowInfo(nullptr, file, false);
        state.SetIterationTime(SecondsSince(start));
        state.counters["longest"] = pump.longest;
    }
}

}  // namespace

void RegisterAnalysisBenches(const path& scratch)
{
    const auto text = scratch / "analysis.txt";
    const auto data = scratch / "analysis";
    if (!WriteText(text) || !MakeService(data, text)) return;
    Register("analysis/levels", [text](benchmark::State& state) { Levels(state, text); });
    Register("analysis/gzip", [text](benchmark::State& state) { Gzip(state, text); });
    Register("analysis/dialog", [data](benchmark::State& state) { Dialog(state, data); });
}
