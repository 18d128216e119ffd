#pragma once

#include "zentrel/Session.h"

#include <functional>
#include <memory>
#include <vector>

// A server that says whatever a test wants: the rows of every subtree as they stand, and one error for each
// OpenKey if set. Reads that the stream does not answer find nothing.
class ScriptedTransport : public zentrel::Transport, public std::enable_shared_from_this<ScriptedTransport> {
public:
    struct Row {
        std::uint32_t depth;
        std::uint32_t childCount;
        std::string name;
        zentrel::PropertySet properties;
    };

    std::vector<Row> rows;
    std::size_t rowsInBatch = 3;
    std::uint32_t openError = 0;
    std::vector<std::uint32_t> connectErrors;  // of the next connections, in turn; 0 = it succeeds
    std::function<Result<zentrel::CounterTotals>()> counters = [] { return zentrel::CounterTotals{}; };

    std::string LocalName() const override { return "liar"; }
    Result<std::shared_ptr<zentrel::Session>> Connect(std::string_view) override
    {
        if (m_connections < connectErrors.size())
            if (const auto code = connectErrors[m_connections++]) return Fail(code, "test");
        return std::shared_ptr<zentrel::Session>(std::make_shared<ScriptedSession>(shared_from_this()));
    }
    Result<std::unique_ptr<zentrel::ServiceManager>> OpenServiceManager(std::string_view,
                                                                        std::uint32_t) override
    {
        return Fail(1722, "test");
    }

private:
    std::size_t m_connections = 0;

    class Stream : public zentrel::SubtreeStream {
    public:
        explicit Stream(std::shared_ptr<ScriptedTransport> script) : m_script(std::move(script)) {}
        Done Next(zentrel::RowBatch& batch) override
        {
            batch.Clear();
            for (std::size_t i = 0; i < m_script->rowsInBatch && m_at < m_script->rows.size(); ++i, ++m_at) {
                const auto& row = m_script->rows[m_at];
                batch.Add({row.depth, row.childCount, row.name, row.properties.Packed()});
            }
            return {};
        }

    private:
        std::shared_ptr<ScriptedTransport> m_script;
        std::size_t m_at = 0;
    };

public:
    // A session of a server that has nothing but its script; for tests to derive from.
    class ScriptedSession : public zentrel::Session {
    public:
        explicit ScriptedSession(std::shared_ptr<ScriptedTransport> script) : m_script(std::move(script)) {}
        std::string ServerName() const override { return "liar"; }
        bool IsLocal() const override { return false; }
        Done OpenKey(std::string_view) override
        {
            if (m_script->openError != 0) return Fail(m_script->openError, "test");
            return {};
        }
        Result<std::uint32_t> CountKeys(std::string_view, zentrel::View) override { return 0U; }
        Result<zentrel::KeyPage> ListKeys(std::string_view, zentrel::View, std::string_view,
                                          std::uint32_t) override
        {
            return zentrel::KeyPage{};
        }
        Result<std::optional<zentrel::Record>> GetData(std::string_view, zentrel::PropertyId) override
        {
            return std::nullopt;
        }
        Result<std::unique_ptr<zentrel::SubtreeStream>> OpenSubtree(std::string_view) override
        {
            return std::unique_ptr<zentrel::SubtreeStream>(std::make_unique<Stream>(m_script));
        }
        Done DeleteEntry(std::string_view) override { return {}; }
        Done DeleteTree(std::string_view) override { return {}; }
        Result<std::string> GetCacheDir() override { return std::string(); }
        Result<std::unique_ptr<zentrel::CacheFileReader>> OpenCacheFile(std::string_view) override
        {
            return Fail(Code::NotSupported, "test");
        }
        Done ResetCounters() override { return {}; }
        Result<zentrel::CounterTotals> ReadCounters() override { return m_script->counters(); }

    private:
        std::shared_ptr<ScriptedTransport> m_script;
    };
};
