#include "zentrel/EmbeddedTransport.h"

#include "base/Text.h"
#include "zentrel/KeyPath.h"
#include "zentrel/StoreWalk.h"

#include <sys/stat.h>

namespace zentrel {

namespace {

std::uintmax_t FileNumber(const std::filesystem::path& file)
{
    struct stat status {};
    return ::stat(file.c_str(), &status) == 0 ? status.st_ino : 0;
}

// A walk that keeps the store open for as long as it lives, whatever becomes of its session.
class OwningWalk : public SubtreeStream {
public:
    OwningWalk(std::shared_ptr<Service> service, std::unique_ptr<SubtreeStream> walk)
        : m_service(std::move(service)),
          m_walk(std::move(walk))
    {
    }
    Done Next(RowBatch& batch) override { return m_walk->Next(batch); }

private:
    std::shared_ptr<Service> m_service;  // outlives the walk
    std::unique_ptr<SubtreeStream> m_walk;
};

class EmbeddedSession : public Session {
public:
    EmbeddedSession(std::shared_ptr<Service> service, std::string name)
        : m_service(std::move(service)),
          m_name(std::move(name))
    {
    }

    std::string ServerName() const override { return m_name; }
    bool IsLocal() const override { return true; }

    Done OpenKey(std::string_view path) override
    {
        return WithKey<void>(path, [](const ReadTxn&, const KeyRow&) { return Done(); });
    }

    Result<std::uint32_t> CountKeys(std::string_view path, View view) override
    {
        return WithKey<std::uint32_t>(path, [&](const ReadTxn& txn, const KeyRow& row) {
            if (view == View::Server) return Result<std::uint32_t>(row.childCount);
            auto shown = CacheView::Open(txn);
            if (!shown) return Result<std::uint32_t>(Fail(shown.error()));
            return shown->ChildCount(row);
        });
    }

    Result<KeyPage> ListKeys(std::string_view path, View view, std::string_view after,
                             std::uint32_t most) override
    {
        return WithKey<KeyPage>(path, [&](const ReadTxn& txn, const KeyRow& row) -> Result<KeyPage> {
            return List(txn, row, view, after, most);
        });
    }

    Result<std::optional<Record>> GetData(std::string_view path, PropertyId id) override
    {
        return WithKey<std::optional<Record>>(
            path, [id](const ReadTxn&, const KeyRow& row) -> Result<std::optional<Record>> {
                const auto property = FindProperty(row.properties, id);
                if (!property) return std::nullopt;
                return Record(*property);
            });
    }

    Result<std::unique_ptr<SubtreeStream>> OpenSubtree(std::string_view path) override
    {
        auto walk = StoreWalk::Begin(m_service->Store(), path);
        if (!walk) return walk;
        return std::unique_ptr<SubtreeStream>(std::make_unique<OwningWalk>(m_service, std::move(*walk)));
    }

    Done DeleteEntry(std::string_view path) override { return m_service->DeleteEntry(path); }

    Done DeleteTree(std::string_view path) override
    {
        auto deleted = m_service->DeleteTree(path);
        if (!deleted) return Fail(deleted.error());
        return {};
    }

    Result<std::string> GetCacheDir() override
    {
        return std::filesystem::absolute(m_service->Cache().Root()).string();
    }
    Result<std::unique_ptr<CacheFileReader>> OpenCacheFile(std::string_view path) override
    {
        const auto file = CachedFile::Parse(path);
        if (!file) return Fail(Code::InvalidName, "ZentrelAdmin");
        return m_service->Cache().Open(*file);
    }
    Done ResetCounters() override { return m_service->ResetCounters(); }
    Result<CounterTotals> ReadCounters() override { return m_service->Counters(); }

private:
    // Runs a read on the key at a path, inside one transaction.
    template <class Value, class Read>
    Result<Value> WithKey(std::string_view path, Read&& read)
    {
        const auto checked = CheckPath(path);
        if (!checked) return Fail(checked.error());
        const auto txn = m_service->Store().BeginRead();
        if (!txn) return Fail(txn.error());
        const auto row = txn->Find(*checked);
        if (!row) return Fail(row.error());
        if (!*row) return Fail(Code::FileNotFound, "Metabase");
        return read(*txn, **row);
    }

    static Result<KeyPage> List(const ReadTxn& txn, const KeyRow& row, View view, std::string_view after,
                                std::uint32_t most)
    {
        auto cursor = ChildCursor::Open(txn);
        if (!cursor) return Fail(cursor.error());
        auto shown = CacheView::Open(txn);
        if (!shown) return Fail(shown.error());
        KeyPage page;
        for (auto child = cursor->Seek(row.id, after, !after.empty());; child = cursor->Next()) {
            if (!child) return Fail(child.error());
            if (!*child) return page;
            const auto isShown = view == View::Server ? Result<bool>(true) : shown->Shows(**child);
            if (!isShown) return Fail(isShown.error());
            if (!*isShown) continue;
            if (page.names.size() == most) break;
            page.names.emplace_back((*child)->name);
        }
        page.isLast = false;
        return page;
    }

    std::shared_ptr<Service> m_service;
    std::string m_name;
};

}  // namespace

EmbeddedTransport::EmbeddedTransport(std::filesystem::path dataFolder, std::string localName)
    : m_dataFolder(std::move(dataFolder)),
      m_localName(std::move(localName))
{
}

EmbeddedTransport::EmbeddedTransport(std::shared_ptr<Service> service, std::string localName)
    : m_localName(std::move(localName)),
      m_given(std::move(service))
{
}

bool EmbeddedTransport::IsLocalName(std::string_view server) const
{
    return server.empty() || server == "." || CompareFolded(server, "localhost") == 0 ||
           CompareFolded(server, m_localName) == 0;
}

Result<std::shared_ptr<Service>> EmbeddedTransport::OpenService()
{
    if (m_given != nullptr) return m_given;
    const auto file = FileNumber(m_dataFolder / "metabase.mdb");
    if (auto open = m_opened.lock(); open != nullptr && file == m_openedFile) return open;
    auto opened = Service::Open(m_dataFolder, Service::Role::Viewer);
    if (!opened) return opened;
    m_opened = *opened;
    m_openedFile = file;
    return opened;
}

Result<std::unique_ptr<ServiceManager>> EmbeddedTransport::OpenServiceManager(std::string_view, std::uint32_t)
{
    return Fail(Code::ServerUnavailable & 0xFFFFU, "Services");
}

Result<std::shared_ptr<Session>> EmbeddedTransport::Connect(std::string_view server)
{
    if (!IsLocalName(server)) return Fail(Code::ServerUnavailable, "ZentrelAdmin");
    auto service = OpenService();
    if (!service && (service.error().Is(Code::FileNotFound) || service.error().Is(Code::PathNotFound)))
        return Fail(Code::ServerUnavailable, "ZentrelAdmin");
    if (!service) return Fail(service.error());
    return std::shared_ptr<Session>(std::make_shared<EmbeddedSession>(std::move(*service), m_localName));
}

}  // namespace zentrel
