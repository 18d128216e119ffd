#pragma once

#include "base/Result.h"
#include "zentrel/CacheFolder.h"
#include "zentrel/Counters.h"
#include "zentrel/FileLock.h"
#include "zentrel/Metabase.h"
#include "zentrel/Recovery.h"
#include "zentrel/Sites.h"
#include "zentrel/Trash.h"
#include "zentrel/Versions.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace zentrel {

// What one answered request adds to the counters.
struct ResponseCount {
    std::optional<VersionKey> version;  // what this client can be sent from the cache; empty: nothing
    bool fromCache = false;
    bool compressed = false;
    std::uint64_t bytesSent = 0;
    std::uint64_t bytesEquivalent = 0;  // the body's size uncompressed
};

// The compression service on one data folder: metabase, cache folder, counters. Data folder layout:
// metabase.mdb, cache/, writer.lock, and unclean while a writer has it open.
// Public operations may be called from any thread; one mutex guards them. A process opens a folder once and
// shares the service (the store must not be opened twice by one process).
class Service {
public:
    // Viewer reads and takes the writer's place only for the length of a change; Writer holds it.
    enum class Role { Viewer, Writer };

    // Makes a data folder (and its parents) with an empty store. AlreadyExists when it holds one.
    static Done Init(const std::filesystem::path& folder);

    // FileNotFound: no data folder there (none is made). SharingViolation: another process writes to it.
    // FileCorrupt: the store is truncated or foreign. A writer first clears up what a crash left behind.
    static Result<std::shared_ptr<Service>> Open(const std::filesystem::path& folder, Role role);
    ~Service();
    Service(const Service&) = delete;
    Service& operator=(const Service&) = delete;

    // Every change below may fail, for a viewer, with SharingViolation (somebody else is writing) and
    // AccessDenied (the store may not be written), and with DiskFull or IoError.

    // AlreadyExists; PathNotFound: no such document root; InvalidParameter: number, level, comment or
    // bindings out of range.
    Done AddSite(const SiteConfig& site);
    // urlPath: at least one segment. PathNotFound: no such site or target; AlreadyExists; InvalidName.
    Done AddVirtualDir(std::uint32_t site, std::string_view urlPath, const std::filesystem::path& target);
    Result<std::vector<SiteConfig>> Sites() const;  // by number
    // The site's root first, then in byte order of their paths; empty when there is no such site.
    Result<std::vector<VirtualDir>> VirtualDirs(std::uint32_t site) const;

    // Deletes one cached URL with all its variants. FileNotFound when the path is no entry. gone: told once
    // the entry went, which an error over its cached files no longer changes; with the service locked.
    Done DeleteEntry(std::string_view path, const std::function<void()>& gone = {});
    // Deletes every entry at and below a path, sites and virtual directories themselves stay. Readers see all
    // of them or none: they go in one step, and then their records and files are freed, other operations
    // getting their turn in between. What a request caches meanwhile stays.
    // Answers how many entries went. FileNotFound when there is no such key. progress: told after each batch
    // how many entries were freed so far, with the service locked; false ends the call there. What it leaves
    // behind, or an error in the midst of the freeing, no reader sees; the next deletion, or the next writer
    // when it opens the folder, frees the rest.
    Result<std::uint64_t> DeleteTree(std::string_view path,
                                     const std::function<bool(std::uint64_t)>& progress = {});

    Result<CounterTotals> Counters() const;  // of this process when it is the writer, else as last stored
    Done ResetCounters();                    // see ResetTotals

    // Writes everything that waits in memory to the store. A writer does so by itself with the requests it
    // answers, about five times a second, and when it closes; one that falls idle should be told to.
    Done Flush();

    // Why the newest cached file or change could not be stored; empty once storing works again.
    std::optional<SystemError> LastError() const;

    const std::filesystem::path& Folder() const { return m_folder; }
    const Metabase& Store() const { return *m_store; }
    const CacheFolder& Cache() const { return m_cache; }

    // ---- for those that answer requests; the service is a writer

    // Empty when there is no such site. urlPath: checked, without a slash at either end.
    Result<std::optional<UrlPlace>> FindPlace(std::uint32_t site, std::string_view urlPath) const;
    // The body of a version that still stands for this state of its source; empty when there is none.
    Result<std::optional<Bytes>> ReadVersion(const VersionKey& key, const FileStamp& source) const;
    Result<bool> HasVersion(const VersionKey& key, const FileStamp& source) const;
    Done KeepVersion(const VersionKey& key, const NewVersion& version);  // its error is LastError too
    void CountCompression(std::uint64_t cpuTicks);
    Done CountResponse(const ResponseCount& response);

private:
    class Change;

    explicit Service(const std::filesystem::path& folder);
    Done BeginWriting();
    Result<std::unique_ptr<Change>> BeginChange();
    template <class Work>
    Done SetUp(Work work);  // one transaction
    Result<DeletionId> Unlink(Change& change, std::string_view path);
    Result<std::uint64_t> Free(Change& change, DeletionId deletion,
                               const std::function<bool(std::uint64_t)>& goesOn);
    void FreeWhatIsLeft(Change& change);
    Done NeedWriter() const;
    Result<std::optional<Versions::Good>> FindGood(const VersionKey& key, const FileStamp& source) const;
    Done Remember(Done outcome);

    const std::filesystem::path m_folder;
    const CacheFolder m_cache;
    std::optional<FileLock> m_lock;  // this, the mark and what stands behind the mutex: a writer's
    std::optional<UncleanMark> m_mark;
    std::unique_ptr<Metabase> m_store;

    std::mutex m_setUp;  // held to set up keys, and while a tree is looked through; taken before the other
    mutable std::mutex m_mutex;  // guards what follows, and every change to store and cache folder
    std::unique_ptr<EntryStore> m_entries;
    std::unique_ptr<Versions> m_versions;
    std::optional<SystemError> m_lastError;
    std::set<DeletionId> m_beingFreed;
    bool m_leavesFiles = false;  // without a record, and not removable: the mark stays for the next writer
};

}  // namespace zentrel
