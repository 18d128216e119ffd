#include "shell/DemoTraffic.h"

#include <algorithm>
#include <chrono>

namespace {

constexpr std::chrono::milliseconds kPause{50};
constexpr int kVariants = 3;

}  // namespace

DemoTraffic::DemoTraffic(std::shared_ptr<zentrel::Service> service, std::vector<zentrel::Request> requests,
                         zentrel::StopSignals& signals, std::function<void()> onSignal)
    : m_responder(std::move(service)),
      m_requests(std::move(requests)),
      m_signals(signals),
      m_onSignal(std::move(onSignal)),
      m_thread([this](const std::stop_token& stop) { Run(stop); })
{
}

// The front of the list is wanted most.
zentrel::Request DemoTraffic::NextRequest()
{
    std::uniform_real_distribution<double> part(0, 1);
    const double place = part(m_random) * part(m_random) * static_cast<double>(m_requests.size());
    auto request = m_requests[std::min(static_cast<std::size_t>(place), m_requests.size() - 1)];
    const double kind = part(m_random);
    if (kind < 0.1) {
        request.url += "?page=" + std::to_string(1 + static_cast<int>(part(m_random) * kVariants));
    } else if (kind < 0.2) {
        request.acceptsGzip = false;
        request.acceptsDeflate = false;
    }
    return request;
}

void DemoTraffic::Run(const std::stop_token& stop)
{
    while (!stop.stop_requested()) {
        if (m_signals.WaitFor(kPause)) return m_onSignal();
        // What fails here (a full disk, a file that went) is the visitor's loss; the service keeps count.
        if (!m_requests.empty()) static_cast<void>(m_responder.Answer(NextRequest()));
    }
}
