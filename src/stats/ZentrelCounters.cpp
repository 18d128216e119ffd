#include "stats/ZentrelCounters.h"

#include "stats/CounterExplanations.h"

#include <utility>

namespace {

constexpr std::string_view kObject = "Zentrel";
constexpr std::string_view kInstance = "_Total";
constexpr auto kSlow = ZentrelCounters::kReading;

// Whether the failure means that there is no service which could publish counters. Nothing on this machine
// answers where no service is; elsewhere that may be the network.
bool IsNoService(const SystemError& error, bool isThisMachine)
{
    if (error.Is(Code::UnknownInterface) || error.Is(Code::InterfaceNotFound)) return true;
    return isThisMachine && (error.Is(Code::ServerUnavailable) || error.Is(Code::FileNotFound));
}

std::vector<PublishedCounter> Publish(const zentrel::CounterTotals& totals)
{
    const auto values = zentrel::Derive(totals);
    std::vector<PublishedCounter> published;
    published.reserve(values.size());
    for (const auto& value : values) {
        PublishedCounter counter{kObject, kInstance, value.name, PdhType::RawCount, value.value, {}};
        if (const auto explanation = ExplainCounter(value.name)) {
            counter.type = explanation->type;
            counter.explainText = explanation->text;
        }
        published.push_back(counter);
    }
    return published;
}

}  // namespace

ZentrelCounters::ZentrelCounters(std::shared_ptr<zentrel::Transport> transport,
                                 std::function<Clock::time_point()> now)
    : m_transport(std::move(transport)),
      m_now(std::move(now))
{
}

Result<std::vector<PublishedCounter>> ZentrelCounters::Read(const std::string& machine)
{
    auto& known = m_machines[machine];
    if (!known) known = std::make_shared<Machine>();
    const auto stays = known;  // messages that run while we wait may forget it
    const auto totals = ReadTotals(machine, *stays);
    if (totals) return Publish(*totals);
    if (IsNoService(totals.error(), machine.empty())) return std::vector<PublishedCounter>();
    return Fail(totals.error());
}

Result<zentrel::CounterTotals> ZentrelCounters::ReadTotals(const std::string& name, Machine& machine)
{
    const auto begun = m_now();
    if (machine.lastFailure && begun < machine.restsUntil) return Fail(*machine.lastFailure);
    if (!machine.session)
        if (const auto connected = Connect(name, machine); !connected)
            return Fail(Remember(machine, connected.error(), begun));
    const auto session = machine.session;
    auto totals = session->ReadCounters();
    if (totals) return totals;
    // The host is there and refuses: the session is as good as before.
    if (!totals.error().Is(Code::AccessDenied) && machine.session == session) machine.session.reset();
    return Fail(Remember(machine, totals.error(), begun));
}

// A connection that took long leaves no time for a reading, unless it is the first one: then nobody refreshes
// yet, and a counter that cannot be read now would not be shown at all.
Done ZentrelCounters::Connect(const std::string& name, Machine& machine)
{
    const auto begun = m_now();
    auto session = m_transport->Connect(name);
    if (!session) return Fail(session.error());
    machine.session = std::move(*session);
    const bool isFirst = !std::exchange(machine.wasConnected, true);
    if (isFirst || m_now() - begun <= kSlow) return {};
    return Fail(Code::IoPending, "Counters");
}

SystemError ZentrelCounters::Remember(Machine& machine, SystemError error, Clock::time_point begun) const
{
    machine.lastFailure = error;
    const auto now = m_now();
    const bool isInVain = !error.Is(Code::IoPending) && now - begun >= kReading;
    machine.restsUntil = isInVain ? now + kRest : now;
    return error;
}
