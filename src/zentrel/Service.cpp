#include "zentrel/Service.h"

#include "zentrel/Commit.h"
#include "zentrel/Deletion.h"
#include "zentrel/KeyPath.h"

#include <chrono>
#include <future>
#include <system_error>
#include <thread>

namespace zentrel {

namespace {

constexpr std::string_view kSource = "Service";

// Fails where nobody may look.
Result<bool> HoldsStore(const std::filesystem::path& folder)
{
    std::error_code error;
    const bool holds = std::filesystem::exists(folder / "metabase.mdb", error);
    if (error) return FailErrno(error.value(), kSource, "Cannot look into \"" + folder.string() + '"');
    return holds;
}

std::filesystem::path LockFile(const std::filesystem::path& folder)
{
    return folder / "writer.lock";
}

// A path that deletions take: never the whole metabase by an empty text.
Result<std::string> CheckDeletion(std::string_view path)
{
    const auto checked = CheckPath(path);
    if (!checked) return Fail(checked.error());
    if (checked->empty()) return Fail(Code::InvalidName, kSource, "A path to delete must not be empty.");
    return std::string(*checked);
}

}  // namespace

// The right to change the store, for as long as this lives: the mutex, and for a viewer the writer's place.
class Service::Change {
public:
    explicit Change(Service& service) : m_service(service), m_guard(service.m_mutex) {}
    ~Change()
    {
        if (m_mark && !m_service.m_leavesFiles) m_mark->Clear();  // before the lock goes
    }
    Change(const Change&) = delete;
    Change& operator=(const Change&) = delete;

    Done TakeWritersPlace()
    {
        if (!m_service.m_store->IsWritable()) return Fail(Code::AccessDenied, kSource);
        auto lock = FileLock::Acquire(LockFile(m_service.m_folder));
        if (!lock) return Fail(lock.error());
        m_lock.emplace(std::move(*lock));
        bool wasThere = false;
        auto mark = UncleanMark::Set(m_service.m_folder, wasThere);
        if (!mark) return Fail(mark.error());
        if (!wasThere) m_mark.emplace(std::move(*mark));  // what a crash left is for the next writer
        return {};
    }

    // Does some work while others may use the service.
    template <class Work>
    auto Aside(Work work)
    {
        m_guard.unlock();
        auto outcome = work();
        m_guard.lock();
        return outcome;
    }

    Done RemoveFiles(std::vector<CachedFile> files)
    {
        auto removal =
            std::async(std::launch::deferred, [&] { return m_service.m_cache.Remove(std::move(files)); });
        return RemoveFiles(removal);
    }

    Done RemoveFiles(std::future<Done>& removal)
    {
        auto removed = Aside([&] { return removal.get(); });
        m_service.m_leavesFiles |= !removed;
        return removed;
    }

    // Long enough for somebody who waits to get the mutex, which who lets it go may well take again first.
    void GiveWay()
    {
        m_guard.unlock();
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
        m_guard.lock();
    }

private:
    Service& m_service;
    std::unique_lock<std::mutex> m_guard;
    std::optional<FileLock> m_lock;
    std::optional<UncleanMark> m_mark;
};

Service::Service(const std::filesystem::path& folder) : m_folder(folder), m_cache(folder / "cache") {}

Done Service::Init(const std::filesystem::path& folder)
{
    const auto holds = HoldsStore(folder);
    if (!holds) return Fail(holds.error());
    if (*holds)
        return Fail(Code::AlreadyExists, kSource,
                    "There is server data in \"" + folder.string() + "\" already.");
    std::error_code error;
    std::filesystem::create_directories(folder / "cache", error);
    if (error) return FailErrno(error.value(), kSource, "Cannot make the folder " + folder.string());
    const auto lock = FileLock::Acquire(LockFile(folder));
    if (!lock) return Fail(lock.error());
    if (auto made = Metabase::Create(folder); !made) return made;
    const auto store = Metabase::Open(folder, Metabase::Access::Write);
    if (!store) return Fail(store.error());
    auto txn = (*store)->BeginWrite();
    if (!txn) return Fail(txn.error());
    if (const auto made = txn->MakeKey(kServiceKey); !made) return Fail(made.error());
    CounterTotals counters;
    counters.sinceTicks = TicksNow();
    if (auto set = WriteCounters(*txn, counters); !set) return set;
    return CommitChange(*txn);
}

Result<std::shared_ptr<Service>> Service::Open(const std::filesystem::path& folder, Role role)
{
    const auto holds = HoldsStore(folder);
    if (!holds) return Fail(holds.error());
    if (!*holds)
        return Fail(Code::FileNotFound, kSource,
                    "There is no server data in \"" + folder.string() + "\"; zentrelctl init sets it up.");
    const std::shared_ptr<Service> service(new Service(folder));
    if (role == Role::Writer) {
        auto lock = FileLock::Acquire(LockFile(folder));
        if (!lock) return Fail(lock.error());
        service->m_lock.emplace(std::move(*lock));
    }
    auto store = Metabase::Open(folder, Metabase::Access::Write);
    if (!store && role == Role::Viewer && store.error().Is(Code::AccessDenied))
        store = Metabase::Open(folder, Metabase::Access::Read);
    if (!store) return Fail(store.error());
    service->m_store = std::move(*store);
    if (role == Role::Viewer) return service;
    if (auto begun = service->BeginWriting(); !begun) return Fail(begun.error());
    return service;
}

Done Service::BeginWriting()
{
    bool crashed = false;
    auto mark = UncleanMark::Set(m_folder, crashed);
    if (!mark) return Fail(mark.error());
    {
        Change change(*this);
        FreeWhatIsLeft(change);
    }
    if (crashed) {
        const auto recovered = Recover(*m_store, m_cache);
        if (!recovered) return Fail(recovered.error());
        m_leavesFiles |= !*recovered;
    }
    auto entries = EntryStore::Open(*m_store);
    if (!entries) return Fail(entries.error());
    m_entries = std::move(*entries);
    m_versions = std::make_unique<Versions>(*m_entries, m_cache);
    m_mark.emplace(std::move(*mark));
    return {};
}

Service::~Service()
{
    // What could not be stored leaves cached files without a record: the mark stays for the next writer.
    if (m_entries && m_entries->Flush() && !m_leavesFiles) m_mark->Clear();
}

Result<std::unique_ptr<Service::Change>> Service::BeginChange()
{
    auto change = std::make_unique<Change>(*this);
    auto ready = m_entries ? m_entries->Flush() : change->TakeWritersPlace();
    if (!ready) return Fail(ready.error());
    return change;
}

template <class Work>
Done Service::SetUp(Work work)
{
    const std::lock_guard setUp(m_setUp);
    const auto change = BeginChange();
    if (!change) return Fail(change.error());
    auto txn = m_store->BeginWrite();
    if (!txn) return Fail(txn.error());
    if (auto done = work(*txn); !done) return done;
    return CommitChange(*txn);
}

Done Service::AddSite(const SiteConfig& site)
{
    return SetUp([&](WriteTxn& txn) { return WriteSite(txn, site); });
}

Done Service::AddVirtualDir(std::uint32_t site, std::string_view urlPath, const std::filesystem::path& target)
{
    return SetUp([&](WriteTxn& txn) { return WriteVirtualDir(txn, site, {std::string(urlPath), target}); });
}

Result<std::vector<SiteConfig>> Service::Sites() const
{
    const auto txn = m_store->BeginRead();
    if (!txn) return Fail(txn.error());
    return ReadSites(*txn);
}

Result<std::vector<VirtualDir>> Service::VirtualDirs(std::uint32_t site) const
{
    const auto txn = m_store->BeginRead();
    if (!txn) return Fail(txn.error());
    return ReadVirtualDirs(*txn, site);
}

Done Service::DeleteEntry(std::string_view path, const std::function<void()>& gone)
{
    const auto checked = CheckDeletion(path);
    if (!checked) return Fail(checked.error());
    auto change = BeginChange();
    if (!change) return Fail(change.error());
    auto files = DeleteEntryKeys(*m_store, *checked);
    if (!files) return Fail(files.error());
    if (gone) gone();
    return (*change)->RemoveFiles(std::move(*files));
}

Result<std::uint64_t> Service::DeleteTree(std::string_view path,
                                          const std::function<bool(std::uint64_t)>& progress)
{
    const auto checked = CheckDeletion(path);
    if (!checked) return Fail(checked.error());
    std::unique_lock setUp(m_setUp);
    auto change = BeginChange();
    if (!change) return Fail(change.error());
    const auto deletion = Unlink(**change, *checked);
    if (!deletion) return Fail(deletion.error());
    setUp.unlock();
    bool isCancelled = false;
    auto count = Free(**change, *deletion, [&](std::uint64_t soFar) {
        isCancelled = progress && !progress(soFar);
        return !isCancelled;
    });
    if (count && !isCancelled) FreeWhatIsLeft(**change);
    return count;
}

// Takes the tree away from all readers.
Result<DeletionId> Service::Unlink(Change& change, std::string_view path)
{
    const auto plan = change.Aside([&] { return TreeDeletion::Plan(*m_store, path); });
    if (!plan) return Fail(plan.error());
    if (m_entries)
        if (auto flushed = m_entries->Flush(); !flushed) return Fail(flushed.error());
    return plan->Unlink(*m_store);
}

// Frees what a deletion took away: the files of one batch go while the keys of the next do. Cached files that
// cannot be removed keep nothing else from being freed.
Result<std::uint64_t> Service::Free(Change& change, DeletionId deletion,
                                    const std::function<bool(std::uint64_t)>& goesOn)
{
    m_beingFreed.insert(deletion);
    std::uint64_t count = 0;
    Done outcome;
    std::future<Done> removal;
    const auto awaitRemoval = [&] {
        if (!removal.valid()) return;
        if (auto removed = change.RemoveFiles(removal); !removed) outcome = removed;
    };
    for (bool more = true; more;) {
        auto freed = FreeBatch(*m_store, deletion);
        if (!freed) {
            outcome = Fail(freed.error());
            break;
        }
        count += freed->entryCount;
        more = goesOn(count) && !freed->isLast;
        awaitRemoval();
        // On this thread, when it is waited for, where the system has no other.
        removal = std::async(std::launch::async | std::launch::deferred,
                             [this, files = std::move(freed->files)] { return m_cache.Remove(files); });
        if (more) change.GiveWay();
    }
    awaitRemoval();
    m_beingFreed.erase(deletion);
    if (!outcome) return Fail(outcome.error());
    return count;
}

// What deletions left behind that came to no end; what cannot be freed now waits for another time.
void Service::FreeWhatIsLeft(Change& change)
{
    const auto left = ListTrash(*m_store);
    if (!left) return;
    for (const auto deletion : *left)
        if (!m_beingFreed.contains(deletion))
            static_cast<void>(Free(change, deletion, [](std::uint64_t) { return true; }));
}

Result<CounterTotals> Service::Counters() const
{
    CounterTotals totals;
    const std::lock_guard guard(m_mutex);
    if (m_entries) {
        totals = m_entries->Counters();
    } else {
        const auto txn = m_store->BeginRead();
        if (!txn) return Fail(txn.error());
        auto stored = ReadCounters(*txn);
        if (!stored) return Fail(stored.error());
        totals = *stored;
    }
    const auto now = TicksNow();
    totals.elapsedTicks = now > totals.sinceTicks ? now - totals.sinceTicks : 0;
    return totals;
}

Done Service::ResetCounters()
{
    const auto change = BeginChange();
    if (!change) return Fail(change.error());
    if (m_entries) {
        ResetTotals(m_entries->ChangeCounters(), TicksNow());
        return m_entries->Flush();
    }
    auto txn = m_store->BeginWrite();
    if (!txn) return Fail(txn.error());
    auto counters = ReadCounters(*txn);
    if (!counters) return Fail(counters.error());
    ResetTotals(*counters, TicksNow());
    if (auto set = WriteCounters(*txn, *counters); !set) return set;
    return CommitChange(*txn);
}

Done Service::Flush()
{
    const std::lock_guard guard(m_mutex);
    return m_entries ? Remember(m_entries->Flush()) : Done{};
}

std::optional<SystemError> Service::LastError() const
{
    const std::lock_guard guard(m_mutex);
    return m_lastError;
}

Done Service::Remember(Done outcome)
{
    if (outcome)
        m_lastError.reset();
    else
        m_lastError = outcome.error();
    return outcome;
}

Done Service::NeedWriter() const
{
    if (m_entries) return {};
    return Fail(Code::AccessDenied, kSource, "Only a writer can cache and count.");
}

Result<std::optional<UrlPlace>> Service::FindPlace(std::uint32_t site, std::string_view urlPath) const
{
    const auto txn = m_store->BeginRead();
    if (!txn) return Fail(txn.error());
    return FindUrlPlace(*txn, site, urlPath);
}

Result<std::optional<Versions::Good>> Service::FindGood(const VersionKey& key, const FileStamp& source) const
{
    const std::lock_guard guard(m_mutex);
    if (auto writer = NeedWriter(); !writer) return Fail(writer.error());
    return m_versions->FindGood(key, source);
}

Result<std::optional<Bytes>> Service::ReadVersion(const VersionKey& key, const FileStamp& source) const
{
    const auto good = FindGood(key, source);
    if (!good) return Fail(good.error());
    if (!*good) return std::nullopt;
    auto body = m_cache.Read((*good)->file);
    if (!body || body->size() != (*good)->size) return std::nullopt;  // lost or replaced: made anew
    return std::move(*body);
}

Result<bool> Service::HasVersion(const VersionKey& key, const FileStamp& source) const
{
    const auto good = FindGood(key, source);
    if (!good) return Fail(good.error());
    if (!*good) return false;
    const auto size = m_cache.Size((*good)->file);
    return size && *size == (*good)->size;
}

Done Service::KeepVersion(const VersionKey& key, const NewVersion& version)
{
    if (auto writer = NeedWriter(); !writer) return writer;
    auto staged = m_cache.Stage(version.body);
    const std::lock_guard guard(m_mutex);
    if (!staged) return Remember(Fail(staged.error()));
    auto kept = m_versions->Keep(key, version, std::move(*staged));
    return Remember(kept ? m_entries->FlushIfDue() : kept);
}

void Service::CountCompression(std::uint64_t cpuTicks)
{
    const std::lock_guard guard(m_mutex);
    if (m_entries) m_entries->ChangeCounters().compressionTicks += cpuTicks;
}

Done Service::CountResponse(const ResponseCount& response)
{
    const std::lock_guard guard(m_mutex);
    if (auto writer = NeedWriter(); !writer) return writer;
    auto& counters = m_entries->ChangeCounters();
    if (response.compressed) {
        ++counters.responsesCompressed;
        counters.bytesCompressed += response.bytesSent;
        counters.bytesEquivalent += response.bytesEquivalent;
    } else {
        ++counters.responsesUncompressed;
        counters.bytesUncompressed += response.bytesSent;
    }
    Done counted;
    if (response.version) {
        ++counters.responsesCacheable;
        ++(response.fromCache ? counters.cacheHits : counters.cacheMisses);
        counted = m_versions->CountRequest(*response.version, response.fromCache);
    }
    auto flushed = m_entries->FlushIfDue();
    if (!counted || !flushed) return Remember(counted ? flushed : counted);
    return {};
}

}  // namespace zentrel
