#pragma once

#include "base/Result.h"
#include "zentrel/HostServices.h"

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace zentrel {

// The service that lets other machines read this host's counters while it runs.
inline constexpr std::string_view kRemoteReading = "RemoteRegistry";

// How the administrator wants a service.
struct ServiceSetup {
    ServiceStart start = ServiceStart::Manual;
    std::vector<std::string> needs;                // services that have to run before it
    std::string account;                           // must exist on this host; empty: none is needed
    std::chrono::milliseconds checkInTime{5'000};  // that its start may take until it checks in
};

// A service of this process.
struct ServiceProgram {
    // Called on a thread of the service's own. Calls checkIn once, as soon as it got hold of what it needs;
    // the service runs when this returns success. It has to return some time.
    std::function<Done(const std::function<void()>& checkIn)> start;
    std::function<void()> stop;  // none: the service cannot be stopped
};

// The services of this host and what state they are in. Names compare without regard to case (ASCII). Any
// thread may call; errors have the system's plain codes:
//   123   nobody can have this name: empty, longer than 256 bytes, or with a slash or backslash in it
//   1060  no service has it
class ServiceTable {
public:
    using Setups = std::vector<std::pair<std::string, ServiceSetup>>;

    ServiceTable() = default;
    ~ServiceTable();  // stops what runs
    ServiceTable(const ServiceTable&) = delete;
    ServiceTable& operator=(const ServiceTable&) = delete;

    // defaults: what it gets where the administrator does not say otherwise.
    void Add(std::string_view name, ServiceProgram program, ServiceSetup defaults = {});

    // What the administrator wants from now on; a service that is not named gets its defaults. What runs
    // goes on. InvalidData: a name that no service has, or services that need each other in a circle; then
    // all stays as it was. `dryRun` only looks.
    Done Configure(const Setups& setups, bool dryRun = false);

    // While one of these lives, starts fail with 1055.
    using DatabaseLock = std::shared_ptr<void>;
    [[nodiscard]] DatabaseLock LockDatabase();

    Result<ServiceInfo> Query(std::string_view name) const;
    std::vector<ServiceInfo> List() const;
    bool IsRunning(std::string_view name) const;

    // Starts what it needs first. Waits until it checks in, and hardly longer for it to run.
    //   997   a start is under way already    1053  did not check in in time   1054  no thread for it
    //   1055  locked                          1056  runs already               1058  disabled
    //   1068  what it needs did not start     1069  its account does not exist on this host
    //   1075  needs a service that there is none of; and whatever the program's start fails with
    Done Start(std::string_view name);
    // AccessDenied: cannot be stopped; 1051: what needs it runs; 1062: does not run.
    Done Stop(std::string_view name);

    // Starts every automatic service; answers what did not start, with its reason.
    std::vector<std::pair<std::string, SystemError>> StartAutomatic();

private:
    struct Entry {
        std::string name;
        ServiceProgram program;
        ServiceSetup defaults;
        ServiceSetup setup;
        ServiceState state = ServiceState::Stopped;
        bool hasCheckedIn = false;
        bool isGivenUp = false;  // the start took too long; what it still does counts no more
        bool isVisited = false;  // its start waits for what it needs
        Done outcome;            // of the last start
        std::thread thread;
    };
    using Guard = std::unique_lock<std::mutex>;

    Entry* Find(std::string_view name) const;
    Result<Entry*> Seek(std::string_view name) const;
    Done StartEntry(Guard& guard, Entry& entry);
    Done StartNeeds(Guard& guard, Entry& entry);
    Done Launch(Guard& guard, Entry& entry);
    void RunStart(Entry& entry);

    mutable std::mutex m_mutex;  // guards what follows
    std::condition_variable m_news;
    std::vector<std::unique_ptr<Entry>> m_entries;
    std::weak_ptr<void> m_lock;
};

}  // namespace zentrel
