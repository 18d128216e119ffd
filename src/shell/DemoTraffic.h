#pragma once

#include "zentrel/Responder.h"
#include "zentrel/StopSignals.h"

#include <functional>
#include <memory>
#include <random>
#include <thread>
#include <vector>

// Visitors of the demonstration's sites: about twenty requests a second from a thread of its own, most for
// what is cached, some for what is not yet, for variants, and from clients that take nothing compressed.
class DemoTraffic {
public:
    // The thread also watches for signals, since it wakes up anyway: at the first one it calls `onSignal` and
    // ends. `signals` is the thread's alone until then.
    DemoTraffic(std::shared_ptr<zentrel::Service> service, std::vector<zentrel::Request> requests,
                zentrel::StopSignals& signals, std::function<void()> onSignal);

private:
    void Run(const std::stop_token& stop);
    zentrel::Request NextRequest();

    zentrel::Responder m_responder;
    std::vector<zentrel::Request> m_requests;
    zentrel::StopSignals& m_signals;
    std::function<void()> m_onSignal;
    std::minstd_rand m_random;
    std::jthread m_thread;  // the last member: it uses the others
};
