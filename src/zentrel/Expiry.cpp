#include "zentrel/Expiry.h"

#include "zentrel/EntryKeys.h"
#include "zentrel/RecordLayout.h"
#include "zentrel/TopDownWalk.h"

#include <sys/stat.h>

#include <cerrno>

namespace zentrel {

namespace {

constexpr int kBatchKeys = 1000;

bool IsGone(const std::string& file)
{
    struct stat info {};
    return stat(file.c_str(), &info) != 0 && (errno == ENOENT || errno == ENOTDIR);
}

enum class VersionState { None, Expired, Good };

// Of a key's own versions, in whatever encoding.
VersionState LookAtVersions(const KeyRow& row, std::uint64_t now)
{
    auto state = VersionState::None;
    for (const auto encoding : kEncodings) {
        const auto property = FindProperty(row.properties, RecordProperty(encoding));
        if (!property) continue;
        const auto record = ParseCacheRecord(property->bytes);
        if (record && record->expiresTicks > now) return VersionState::Good;
        state = VersionState::Expired;
    }
    return state;
}

// Why an entry is to be removed, as the figure that counts it; null when it is not.
using Reason = std::uint64_t ExpiryResult::*;

struct StaleEntry {
    std::string path;
    Reason reason;
};

// Which of the keys on a walk are stale.
class StaleFinder {
public:
    StaleFinder(ExpiryResult& result, std::uint64_t now) : m_result(result), m_now(now) {}

    // depth, path: of the row, on a walk that shows each key before its children.
    // variants: a cursor for the finder's own use, in the row's transaction.
    Result<Reason> Judge(const KeyRow& row, std::size_t depth, const std::string& path,
                         ChildCursor& variants);

private:
    struct Root {
        std::size_t depth;
        std::size_t pathEnd;  // length of its key's path
        std::string folder;
        bool isMissing;
    };

    void FollowRoots(const KeyRow& row, std::size_t depth, const std::string& path);
    bool HasLostSource(const std::string& path) const;
    Result<bool> HasExpired(const KeyRow& row, ChildCursor& variants) const;

    ExpiryResult& m_result;
    std::uint64_t m_now;
    std::vector<Root> m_roots;  // from the site down to the row
};

void StaleFinder::FollowRoots(const KeyRow& row, std::size_t depth, const std::string& path)
{
    while (!m_roots.empty() && m_roots.back().depth >= depth) m_roots.pop_back();
    const auto target = FindProperty(row.properties, Prop::VirtualRoot);
    if (!target) return;
    std::string folder(Record(*target).Text());
    const bool isMissing = IsGone(folder);
    if (isMissing) m_result.missingRoots.push_back(folder);
    m_roots.push_back({depth, path.size(), std::move(folder), isMissing});
}

bool StaleFinder::HasLostSource(const std::string& path) const
{
    if (m_roots.empty() || m_roots.back().isMissing) return false;
    const auto& root = m_roots.back();
    return IsGone(root.folder + path.substr(root.pathEnd));
}

// An entry's versions are its own and those of its query-string variants.
Result<bool> StaleFinder::HasExpired(const KeyRow& row, ChildCursor& variants) const
{
    auto state = LookAtVersions(row, m_now);
    if (state == VersionState::Good || row.childCount == 0) return state == VersionState::Expired;
    for (auto child = variants.Seek(row.id);; child = variants.Next()) {
        if (!child) return Fail(child.error());
        if (!*child) return state == VersionState::Expired;
        if (!IsVariant(**child)) continue;
        state = LookAtVersions(**child, m_now);
        if (state == VersionState::Good) return false;
    }
}

Result<Reason> StaleFinder::Judge(const KeyRow& row, std::size_t depth, const std::string& path,
                                  ChildCursor& variants)
{
    FollowRoots(row, depth, path);
    if (!IsEntry(row)) return Reason{};
    ++m_result.entries;
    if (HasLostSource(path)) return &ExpiryResult::vanished;
    const auto expired = HasExpired(row, variants);
    if (!expired) return Fail(expired.error());
    return *expired ? &ExpiryResult::expired : Reason{};
}

// The walk in a new transaction: from the root, or behind the key that it stood on.
Done BeginOrResume(std::optional<TopDownWalk>& walk, const ReadTxn& txn)
{
    if (walk) return walk->Resume(txn);
    auto begun = TopDownWalk::Begin(txn, {});
    if (!begun) return Fail(begun.error());
    walk = std::move(*begun);
    return {};
}

// Walks on for at most one batch, in a transaction of its own. `isOver` is set when the walk has ended.
Result<std::vector<StaleEntry>> FindStale(const Metabase& store, std::optional<TopDownWalk>& walk,
                                          StaleFinder& finder, bool& isOver)
{
    const auto txn = store.BeginRead();
    if (!txn) return Fail(txn.error());
    if (auto ready = BeginOrResume(walk, *txn); !ready) return Fail(ready.error());
    auto variants = ChildCursor::Open(*txn);
    if (!variants) return Fail(variants.error());
    std::vector<StaleEntry> stale;
    for (int i = 0; i < kBatchKeys; ++i) {
        const auto row = walk->Next();
        if (!row) return Fail(row.error());
        if (!*row) {
            isOver = true;
            break;
        }
        const auto reason = finder.Judge(**row, walk->Depth(), walk->Path(), *variants);
        if (!reason) return Fail(reason.error());
        if (*reason != nullptr) stale.push_back({walk->Path(), *reason});
    }
    return stale;
}

void DeleteAll(Service& service, const std::vector<StaleEntry>& stale, const std::function<bool()>& stop,
               ExpiryResult& result)
{
    for (const auto& entry : stale) {
        if (stop()) return;
        auto done = service.DeleteEntry(entry.path);
        if (done) {
            ++(result.*entry.reason);
        } else if (!done.error().Is(Code::FileNotFound)) {
            ++result.failed;
            if (!result.firstFailure) result.firstFailure = std::move(done.error());
        }
    }
}

}  // namespace

Result<ExpiryResult> RemoveStaleEntries(Service& service, std::uint64_t now,
                                        const std::function<bool()>& stop)
{
    ExpiryResult result;
    StaleFinder finder(result, now);
    std::optional<TopDownWalk> walk;
    for (bool isOver = false; !isOver && !stop();) {
        const auto stale = FindStale(service.Store(), walk, finder, isOver);
        if (!stale) return Fail(stale.error());
        DeleteAll(service, *stale, stop, result);
    }
    return result;
}

}  // namespace zentrel
