#include "Benches.h"

#include "zentrel/Service.h"
#include "zentrel/Warm.h"

#include <array>
#include <chrono>
#include <fstream>
#include <zlib.h>

namespace {

using std::filesystem::path;

constexpr std::size_t kFiles = 10'000;
constexpr int kLevel = 6;

// Real files of this machine, copied below one document root.
std::size_t CopyRealFiles(const path& root)
{
    std::size_t copied = 0;
    std::error_code error;
    for (const char* source :
         {"/usr/include", "/usr/share/doc", "/usr/share/perl", "/usr/lib/python3", "/usr/share"}) {
        using Walk = std::filesystem::recursive_directory_iterator;
        for (Walk at(source, error), end; !error && at != end && copied < kFiles; at.increment(error)) {
            if (!at->is_regular_file(error) || at->is_symlink(error)) continue;
            const auto size = at->file_size(error);
            const auto extension = at->path().extension();
            const bool isText = extension == ".h" || extension == ".hpp" || extension == ".txt" ||
                                extension == ".html" || extension == ".js" || extension == ".css" ||
                                extension == ".xml" || extension == ".svg" || extension == ".json";
            if (!isText || size < 256 || size > (1U << 20U)) continue;
            const auto folder = root / std::to_string(copied / 100);
            std::filesystem::create_directories(folder, error);
            std::filesystem::copy_file(at->path(), folder / (std::to_string(copied) + extension.string()),
                                       error);
            if (!error) ++copied;
            error.clear();
        }
        error.clear();
    }
    return copied;
}

std::size_t CompressAlone(const path& file, z_stream& stream)
{
    std::ifstream in(file, std::ios::binary);
    std::array<char, 8192> block{};
    std::array<unsigned char, 16384> out{};
    std::size_t size = 0;
    deflateReset(&stream);
    for (bool last = false; !last;) {
        in.read(block.data(), block.size());
        last = in.eof();
        stream.next_in = reinterpret_cast<unsigned char*>(block.data());
        stream.avail_in = static_cast<unsigned>(in.gcount());
        do {
            stream.next_out = out.data();
            stream.avail_out = static_cast<unsigned>(out.size());
            deflate(&stream, last ? Z_FINISH : Z_NO_FLUSH);
            size += out.size() - stream.avail_out;
        } while (stream.avail_out == 0);
    }
    return size;
}

void WarmAlone(benchmark::State& state, const path& root)
{
    for ([[maybe_unused]] auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        z_stream stream{};
        deflateInit2(&stream, kLevel, Z_DEFLATED, 15 + 16, 8, Z_DEFAULT_STRATEGY);
        std::size_t sum = 0;
        std::error_code error;
        for (const auto& file : std::filesystem::recursive_directory_iterator(root, error))
            if (file.is_regular_file(error)) sum += CompressAlone(file.path(), stream);
        deflateEnd(&stream);
        benchmark::DoNotOptimize(sum);
        state.SetIterationTime(SecondsSince(start));
    }
}

// The folders are kept until the end: some file systems are slow to make files just after many were removed.
void WarmQuillet(benchmark::State& state, const path& scratch, const path& root)
{
    for ([[maybe_unused]] auto _ : state) {
        auto data = scratch / "warm";
        while (std::filesystem::exists(data)) data += '+';
        if (!zentrel::Service::Init(data)) return state.SkipWithError("no data folder");
        const auto start = std::chrono::steady_clock::now();
        auto service = zentrel::Service::Open(data, zentrel::Service::Role::Writer);
        if (!service) return state.SkipWithError("the service does not open");
        zentrel::SiteConfig site;
        site.number = 1;
        site.comment = "bench";
        site.documentRoot = root;
        site.level = kLevel;
        if (!(*service)->AddSite(site)) return state.SkipWithError("no site");
        zentrel::WarmOptions options;
        options.site = 1;
        const auto warmed = Warm(**service, options, [](auto, auto) { return true; });
        if (!warmed) return state.SkipWithError("warm failed");
        service->reset();  // everything is stored
        state.SetIterationTime(SecondsSince(start));
        state.counters["cached"] = static_cast<double>(warmed->cached);
    }
}

}  // namespace

void RegisterWarmBenches(const path& scratch)
{
    const auto root = scratch / "files";
    const auto copied = CopyRealFiles(root);
    std::printf("warm: %zu real files\n", copied);
    Register("warm/zlib", [root](benchmark::State& state) { WarmAlone(state, root); });
    Register("warm/quillet", [=](benchmark::State& state) { WarmQuillet(state, scratch, root); });
}
