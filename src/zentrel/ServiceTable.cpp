#include "zentrel/ServiceTable.h"

#include "base/Text.h"

#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <system_error>

namespace zentrel {

namespace {

constexpr std::string_view kSource = "Services";
constexpr std::size_t kLongestServiceName = 256;
// Who has checked in mostly runs at once; whoever started it may rely on it then.
constexpr std::chrono::milliseconds kSettleTime{100};

bool HasAccount(const std::string& name)
{
    std::vector<char> buffer(16U << 10U);
    passwd row{};
    passwd* found = nullptr;
    return getpwnam_r(name.c_str(), &row, buffer.data(), buffer.size(), &found) == 0 && found != nullptr;
}

bool SameName(std::string_view a, std::string_view b)
{
    return CompareFolded(a, b) == 0;
}

const ServiceSetup* SetupOf(const ServiceTable::Setups& setups, std::string_view name)
{
    const auto found = std::find_if(setups.begin(), setups.end(),
                                    [&](const auto& setup) { return SameName(setup.first, name); });
    return found == setups.end() ? nullptr : &found->second;
}

// Takes away, round by round, the services whose needs are all gone; in a circle some are left.
Done CheckCircles(const ServiceTable::Setups& setups)
{
    std::vector<const ServiceTable::Setups::value_type*> left;
    for (const auto& setup : setups) left.push_back(&setup);
    for (std::size_t before = 0; before != left.size();) {
        before = left.size();
        const auto isHeldBack = [&](const std::string& need) {
            return std::any_of(left.begin(), left.end(),
                               [&](const auto* other) { return SameName(other->first, need); });
        };
        std::erase_if(left, [&](const auto* setup) {
            const auto& needs = setup->second.needs;
            return std::none_of(needs.begin(), needs.end(), isHeldBack);
        });
    }
    if (left.empty()) return {};
    return Fail(Code::InvalidData, kSource,
                "The service \"" + left.front()->first + "\" needs itself, by way of what it needs.");
}

}  // namespace

ServiceTable::~ServiceTable()
{
    for (auto& entry : m_entries) {
        if (entry->thread.joinable()) entry->thread.join();
        if (entry->state == ServiceState::Running && entry->program.stop) entry->program.stop();
    }
}

void ServiceTable::Add(std::string_view name, ServiceProgram program, ServiceSetup defaults)
{
    auto entry = std::make_unique<Entry>();
    entry->name = name;
    entry->program = std::move(program);
    entry->setup = defaults;
    entry->defaults = std::move(defaults);
    const Guard guard(m_mutex);
    m_entries.push_back(std::move(entry));
}

Done ServiceTable::Configure(const Setups& setups, bool dryRun)
{
    const Guard guard(m_mutex);
    for (const auto& setup : setups)
        if (Find(setup.first) == nullptr)
            return Fail(Code::InvalidData, kSource, "There is no service \"" + setup.first + "\".");
    if (auto checked = CheckCircles(setups); !checked || dryRun) return checked;
    for (auto& entry : m_entries) {
        const auto* setup = SetupOf(setups, entry->name);
        entry->setup = setup == nullptr ? entry->defaults : *setup;
    }
    return {};
}

ServiceTable::DatabaseLock ServiceTable::LockDatabase()
{
    const Guard guard(m_mutex);
    auto lock = m_lock.lock();
    if (lock == nullptr) m_lock = lock = std::make_shared<int>();
    return lock;
}

ServiceTable::Entry* ServiceTable::Find(std::string_view name) const
{
    for (const auto& entry : m_entries)
        if (SameName(entry->name, name)) return entry.get();
    return nullptr;
}

Result<ServiceTable::Entry*> ServiceTable::Seek(std::string_view name) const
{
    const bool isName = !name.empty() && name.size() <= kLongestServiceName &&
                        name.find_first_of("/\\") == std::string_view::npos;
    if (!isName) return Fail(Code::InvalidName, kSource);
    if (auto* entry = Find(name); entry != nullptr) return entry;
    return Fail(Code::ServiceDoesNotExist, kSource);
}

Result<ServiceInfo> ServiceTable::Query(std::string_view name) const
{
    const Guard guard(m_mutex);
    const auto entry = Seek(name);
    if (!entry) return Fail(entry.error());
    return ServiceInfo{(*entry)->name, (*entry)->state, (*entry)->setup.start};
}

std::vector<ServiceInfo> ServiceTable::List() const
{
    const Guard guard(m_mutex);
    std::vector<ServiceInfo> all;
    for (const auto& entry : m_entries) all.push_back({entry->name, entry->state, entry->setup.start});
    return all;
}

bool ServiceTable::IsRunning(std::string_view name) const
{
    const auto info = Query(name);
    return info && info->state == ServiceState::Running;
}

Done ServiceTable::Start(std::string_view name)
{
    Guard guard(m_mutex);
    const auto entry = Seek(name);
    if (!entry) return Fail(entry.error());
    return StartEntry(guard, **entry);
}

Done ServiceTable::StartEntry(Guard& guard, Entry& entry)
{
    if (!m_lock.expired()) return Fail(Code::ServiceDatabaseLocked, kSource);
    if (entry.isVisited || entry.state == ServiceState::StartPending) return Fail(Code::IoPending, kSource);
    if (entry.state != ServiceState::Stopped) return Fail(Code::ServiceAlreadyRunning, kSource);
    if (entry.setup.start == ServiceStart::Disabled) return Fail(Code::ServiceDisabled, kSource);
    if (!entry.setup.account.empty() && !HasAccount(entry.setup.account))
        return Fail(Code::ServiceLogonFailed, kSource);
    entry.isVisited = true;  // nobody else starts it while the mutex is free
    auto started = StartNeeds(guard, entry);
    if (started) started = Launch(guard, entry);
    entry.isVisited = false;
    m_news.notify_all();
    return started;
}

Done ServiceTable::StartNeeds(Guard& guard, Entry& entry)
{
    const auto needs = entry.setup.needs;  // the setup may change while the mutex is free
    for (const auto& name : needs)
        if (Find(name) == nullptr) return Fail(Code::ServiceDependencyDeleted, kSource);
    for (const auto& name : needs) {
        auto& need = *Find(name);
        if (need.state == ServiceState::Running) continue;
        const auto started = StartEntry(guard, need);
        if (!started && !started.error().Is(Code::IoPending))
            return Fail(Code::ServiceDependencyFailed, kSource);
        m_news.wait_for(guard, need.setup.checkInTime,
                        [&] { return need.state != ServiceState::StartPending && !need.isVisited; });
        if (need.state != ServiceState::Running) return Fail(Code::ServiceDependencyFailed, kSource);
    }
    return {};
}

Done ServiceTable::Launch(Guard& guard, Entry& entry)
{
    if (entry.thread.joinable()) entry.thread.join();  // at its end: the state was Stopped
    entry.hasCheckedIn = entry.isGivenUp = false;
    entry.outcome = {};
    entry.state = ServiceState::StartPending;
    try {
        entry.thread = std::thread([this, &entry] { RunStart(entry); });
    } catch (const std::system_error&) {
        entry.state = ServiceState::Stopped;
        return Fail(Code::ServiceNoThread, kSource);
    }
    const auto hasNews = [&] { return entry.hasCheckedIn || entry.state != ServiceState::StartPending; };
    if (!m_news.wait_for(guard, entry.setup.checkInTime, hasNews)) {
        entry.isGivenUp = true;
        return Fail(Code::ServiceNoCheckIn, kSource);
    }
    m_news.wait_for(guard, kSettleTime, [&] { return entry.state != ServiceState::StartPending; });
    return entry.outcome;
}

void ServiceTable::RunStart(Entry& entry)
{
    auto outcome = entry.program.start([this, &entry] {
        const Guard guard(m_mutex);
        entry.hasCheckedIn = true;
        m_news.notify_all();
    });
    Guard guard(m_mutex);
    if (outcome && entry.isGivenUp && entry.program.stop) {
        guard.unlock();
        entry.program.stop();
        guard.lock();
    }
    const bool runs = outcome && !entry.isGivenUp;
    entry.outcome = std::move(outcome);
    entry.state = runs ? ServiceState::Running : ServiceState::Stopped;
    m_news.notify_all();
}

Done ServiceTable::Stop(std::string_view name)
{
    Guard guard(m_mutex);
    const auto found = Seek(name);
    if (!found) return Fail(found.error());
    auto& entry = **found;
    if (entry.state != ServiceState::Running) return Fail(Code::ServiceNotActive, kSource);
    if (!entry.program.stop) return Fail(Code::AccessDenied, kSource);
    for (const auto& other : m_entries) {
        const auto& needs = other->setup.needs;
        const bool isNeeded = std::any_of(needs.begin(), needs.end(),
                                          [&](const auto& need) { return SameName(need, entry.name); });
        if (isNeeded && other->state != ServiceState::Stopped) return Fail(Code::ServiceIsNeeded, kSource);
    }
    entry.state = ServiceState::StopPending;
    guard.unlock();
    entry.program.stop();
    guard.lock();
    entry.state = ServiceState::Stopped;
    m_news.notify_all();
    return {};
}

std::vector<std::pair<std::string, SystemError>> ServiceTable::StartAutomatic()
{
    std::vector<std::pair<std::string, SystemError>> failed;
    for (const auto& info : List()) {
        if (info.start != ServiceStart::Automatic || info.state != ServiceState::Stopped) continue;
        const auto started = Start(info.name);
        const bool runsAlready = !started && (started.error().Is(Code::ServiceAlreadyRunning) ||
                                              started.error().Is(Code::IoPending));
        if (!started && !runsAlready) failed.emplace_back(info.name, started.error());
    }
    return failed;
}

}  // namespace zentrel
