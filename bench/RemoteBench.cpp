#include "Benches.h"

#include "BenchWindow.h"
#include "Dataset.h"
#include "RemoteServer.h"

#include <administration.grpc.pb.h>

#include <grpcpp/create_channel.h>

#include <algorithm>
#include <atomic>
#include <future>
#include <malloc.h>
#include <thread>

namespace {

using std::filesystem::path;
using zentrel::RemoteTransport;
using zentrel::Session;

constexpr int kClients = 8;
constexpr int kCalls = 2'000;

const char* NameOf(Wire wire)
{
    return wire == Wire::Unix ? "unix" : "tls";
}

// Counts what a session asks for; may keep streams from it.
struct Traffic {
    bool streams = true;
    int requests = 0;
};

class CountedSession : public Session {
public:
    CountedSession(std::shared_ptr<Session> real, Traffic& traffic)
        : m_real(std::move(real)),
          m_traffic(traffic)
    {
    }
    std::string ServerName() const override { return m_real->ServerName(); }
    bool IsLocal() const override { return m_real->IsLocal(); }
    Done OpenKey(std::string_view key) override { return Real().OpenKey(key); }
    Result<std::uint32_t> CountKeys(std::string_view key, zentrel::View view) override
    {
        return Real().CountKeys(key, view);
    }
    Result<zentrel::KeyPage> ListKeys(std::string_view key, zentrel::View view, std::string_view after,
                                      std::uint32_t most) override
    {
        return Real().ListKeys(key, view, after, most);
    }
    Result<std::optional<zentrel::Record>> GetData(std::string_view key, zentrel::PropertyId id) override
    {
        return Real().GetData(key, id);
    }
    Result<std::unique_ptr<zentrel::SubtreeStream>> OpenSubtree(std::string_view key) override
    {
        if (!m_traffic.streams) return Fail(Code::NotSupported, "bench");
        return Real().OpenSubtree(key);
    }
    Done DeleteEntry(std::string_view key) override { return Real().DeleteEntry(key); }
    Done DeleteTree(std::string_view key) override { return Real().DeleteTree(key); }
    Result<std::string> GetCacheDir() override { return Real().GetCacheDir(); }
    Result<std::unique_ptr<zentrel::CacheFileReader>> OpenCacheFile(std::string_view path) override
    {
        return Real().OpenCacheFile(path);
    }
    Done ResetCounters() override { return Real().ResetCounters(); }
    Result<zentrel::CounterTotals> ReadCounters() override { return Real().ReadCounters(); }

private:
    Session& Real()
    {
        ++m_traffic.requests;
        return *m_real;
    }
    std::shared_ptr<Session> m_real;
    Traffic& m_traffic;
};

class CountedTransport : public RemoteTransport {
public:
    CountedTransport(zentrel::RemoteTarget target, Traffic& traffic)
        : RemoteTransport(std::move(target), PaintWhileWaiting),
          m_traffic(traffic)
    {
    }
    Result<std::shared_ptr<Session>> Connect(std::string_view server) override
    {
        auto session = RemoteTransport::Connect(server);
        if (!session) return session;
        return std::shared_ptr<Session>(std::make_shared<CountedSession>(std::move(*session), m_traffic));
    }

private:
    Traffic& m_traffic;
};

std::shared_ptr<zentrel::Transport> Remote(const path& data, Wire wire)
{
    return std::make_shared<RemoteTransport>(ServerTarget(data, wire), PaintWhileWaiting);
}

void Scan(benchmark::State& state, BenchWindow& box, std::uint32_t urls)
{
    for ([[maybe_unused]] auto _ : state) {
        box.Empty();
        const auto start = std::chrono::steady_clock::now();
        box.Rescan();
        state.SetIterationTime(SecondsSince(start));
        if (box.Urls() != static_cast<std::int32_t>(urls)) state.SkipWithError("URLs are missing");
    }
}

void RemoteScan(benchmark::State& state, const path& data, Wire wire, std::uint32_t urls)
{
    BenchWindow box(Remote(data, wire));
    Scan(state, box, urls);
}

void CountedScan(benchmark::State& state, const path& data, std::uint32_t urls, bool streams)
{
    Traffic traffic{streams};
    BenchWindow box(std::make_shared<CountedTransport>(ServerTarget(data, Wire::Tls), traffic));
    traffic.requests = 0;
    Scan(state, box, urls);
    state.counters["requests"] = traffic.requests;
}

// One call after the other; the time is the median.
template <class Call>
void Median(benchmark::State& state, Call&& call)
{
    for ([[maybe_unused]] auto _ : state) {
        std::vector<double> times(kCalls);
        for (auto& time : times) {
            const auto start = std::chrono::steady_clock::now();
            if (!call()) return state.SkipWithError("no answer");
            time = SecondsSince(start);
        }
        std::nth_element(times.begin(), times.begin() + kCalls / 2, times.end());
        state.SetIterationTime(times[kCalls / 2]);
    }
}

void GetData(benchmark::State& state, const path& data, Wire wire)
{
    RemoteTransport transport(ServerTarget(data, wire), PaintWhileWaiting);
    const auto session = transport.Connect("bench");
    if (!session) return state.SkipWithError("no server");
    Median(state, [&] { return (*session)->GetData("LM/W3SVC/1", zentrel::Prop::KeyType).has_value(); });
}

void BareEcho(benchmark::State& state, const path& data, Wire wire)
{
    const auto target = EchoTarget(data, wire);
    const auto channel =
        target.IsLocal()
            ? grpc::CreateChannel("unix:" + target.socket.string(), grpc::InsecureChannelCredentials())
            : grpc::CreateChannel(target.host + ':' + std::to_string(target.port),
                                  grpc::SslCredentials({target.authority, target.key, target.certificate}));
    const auto stub = zentrel::v1::Administration::NewStub(channel);
    zentrel::v1::GetDataRequest request;
    request.set_path("LM/W3SVC/1");
    request.set_property(zentrel::Prop::KeyType);
    Median(state, [&] {
        grpc::ClientContext context;
        zentrel::v1::GetDataReply reply;
        return stub->GetData(&context, request, &reply).ok();
    });
}

void Memory(benchmark::State& state, const path& data)
{
    for ([[maybe_unused]] auto _ : state) {
        const auto bytes = RunProbe("remote-memory", data);
        if (bytes < 0) return state.SkipWithError("the probe failed");
        state.SetIterationTime(1e-9);
        state.counters["bytes"] = std::max(bytes, 1.0);
    }
}

// So many clients at once, each a process of its own; the time is that of the slowest scan.
void Crowd(benchmark::State& state, const path& data, int clients)
{
    for ([[maybe_unused]] auto _ : state) {
        std::vector<std::future<double>> scans;
        for (int i = 0; i < clients; ++i)
            scans.push_back(std::async(std::launch::async, [&] { return RunProbe("remote-scan", data); }));
        double slowest = 0;
        for (auto& scan : scans) {
            const auto seconds = scan.get();
            if (seconds < 0) return state.SkipWithError("the probe failed");
            slowest = std::max(slowest, seconds);
        }
        state.SetIterationTime(slowest);
        state.counters["each"] = slowest / clients;
    }
}

}  // namespace

// The most that the process held during the scan, beyond what it holds after it.
int ProbeRemoteMemory(const path& dataFolder)
{
    BenchWindow box(Remote(dataFolder, Wire::Tls));
    std::atomic<bool> isOver = false;
    double most = 0;
    std::thread watch([&] {
        while (!isOver) {
            most = std::max(most, PrivateMemory());
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    });
    box.Rescan();
    isOver = true;
    watch.join();
    malloc_trim(0);
    std::printf("%.0f\n", most - PrivateMemory());
    return box.Urls() == 0 ? 1 : 0;
}

// Scans at the next full second that is at least one away, so that clients started together scan together.
int ProbeRemoteScan(const path& dataFolder)
{
    BenchWindow box(Remote(dataFolder, Wire::Tls));
    using Clock = std::chrono::system_clock;
    std::this_thread::sleep_until(std::chrono::ceil<std::chrono::seconds>(Clock::now()) +
                                  std::chrono::seconds(1));
    const auto start = std::chrono::steady_clock::now();
    box.Rescan();
    std::printf("%.6f\n", SecondsSince(start));
    return box.Urls() == 0 ? 1 : 0;
}

void RegisterRemoteBenches(const path& scratch, std::vector<std::unique_ptr<RemoteServer>>& servers)
{
    const auto large = scratch / "1000000";
    const auto middle = scratch / "100000";
    const auto small = scratch / "10000";
    if (!zentrel::Service::Init(small) || !MakeDataset(small, 10'000)) return;
    for (const auto& data : {large, middle, small})
        if (!servers.emplace_back(std::make_unique<RemoteServer>(data))->IsUp()) {
            std::puts("The server does not start.");
            return;
        }
    for (const auto wire : {Wire::Unix, Wire::Tls}) {
        const std::string name = NameOf(wire);
        Register("remote-scan/" + name, [=](auto& state) { RemoteScan(state, large, wire, 1'000'000); });
        Register("get-data/" + name, [=](auto& state) { GetData(state, large, wire); });
        Register("echo/" + name, [=](auto& state) { BareEcho(state, large, wire); });
    }
    Register("remote-requests", [=](auto& state) { CountedScan(state, large, 1'000'000, true); });
    Register("no-read-ahead", [=](auto& state) { CountedScan(state, small, 10'000, false); });
    Register("remote-memory", [=](auto& state) { Memory(state, large); });
    Register("crowd/1", [=](auto& state) { Crowd(state, middle, 1); });
    Register("crowd/8", [=](auto& state) { Crowd(state, middle, kClients); });
}
