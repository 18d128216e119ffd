#pragma once

#include "export/DatabaseAccess.h"
#include "export/ExportPlan.h"

#include <chrono>
#include <condition_variable>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

// What a scripted database does, and what it was told. Shared with connections that may outlive the test.
class DatabaseScript {
public:
    // Counts from 1 over all calls of all connections, opening included; 0 = never.
    int failAt = 0;
    int hangAt = 0;
    bool isDeaf = false;  // a hanging call does not hear that it is to stop
    std::string failure = "HY000: on purpose";
    std::uint32_t failureCode = Code::IoError;
    bool isReadOnly = false;
    bool undoesTables = true;
    OdbcValue nextRun = std::int64_t{7};
    std::map<std::string, std::vector<OdbcColumn>> tables;
    std::vector<std::string> told;

    Done Call(const std::string& what)
    {
        std::unique_lock lock(m_mutex);
        told.push_back(what);
        const int number = static_cast<int>(told.size());
        if (number == hangAt) {
            m_isHanging = true;
            m_changed.notify_all();
            m_changed.wait(lock, [this] { return m_isReleased; });
            return Fail(Code::Cancelled, "ODBC", "HY008: cancelled");
        }
        if (number == failAt) return Fail(failureCode, "ODBC", failure);
        return {};
    }
    void Cancel()
    {
        if (!isDeaf) Release();
    }
    void Release()
    {
        const std::lock_guard lock(m_mutex);
        m_isReleased = true;
        m_changed.notify_all();
    }
    bool AwaitHang()
    {
        std::unique_lock lock(m_mutex);
        return m_changed.wait_for(lock, std::chrono::seconds(20), [this] { return m_isHanging; });
    }
    std::vector<std::string> Told()
    {
        const std::lock_guard lock(m_mutex);
        return told;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_isReleased = false;
    bool m_isHanging = false;
};

using SharedScript = std::shared_ptr<DatabaseScript>;

class ScriptedStatement : public OdbcStatement {
public:
    ScriptedStatement(SharedScript script, std::string sql)
        : m_script(std::move(script)),
          m_sql(std::move(sql))
    {
    }

    Result<std::int64_t> Execute(const std::vector<OdbcValue>&) override
    {
        if (auto called = m_script->Call("run " + m_sql.substr(0, 6)); !called) return Fail(called.error());
        return 1;
    }
    Result<bool> Fetch(std::vector<OdbcValue>& row) override
    {
        if (auto called = m_script->Call("fetch"); !called) return Fail(called.error());
        row = {m_script->nextRun};
        return true;
    }

private:
    SharedScript m_script;
    std::string m_sql;
};

class ScriptedDatabase : public OdbcConnection {
public:
    explicit ScriptedDatabase(SharedScript script) : m_script(std::move(script)) {}

    std::string DriverName() const override { return "libscript.so"; }
    std::string DatabaseName() const override { return "Script"; }
    bool IsReadOnly() const override { return m_script->isReadOnly; }
    std::string Quote(std::string_view identifier) const override { return StandardQuote(identifier); }

    Result<std::vector<OdbcColumn>> Columns(std::string_view table) override
    {
        if (auto called = m_script->Call("columns " + std::string(table)); !called)
            return Fail(called.error());
        return m_script->tables[std::string(table)];
    }
    Result<std::int64_t> Execute(std::string_view sql) override
    {
        if (auto called = m_script->Call(std::string(sql)); !called) return Fail(called.error());
        const auto name = sql.substr(sql.find('"') + 1);
        if (!m_script->undoesTables)
            m_script->tables[std::string(name.substr(0, name.find('"')))] = {{"run", -5, true}};
        return 0;
    }
    Result<std::unique_ptr<OdbcStatement>> Prepare(std::string_view sql) override
    {
        if (auto called = m_script->Call("prepare " + std::string(sql)); !called) return Fail(called.error());
        return std::make_unique<ScriptedStatement>(m_script, std::string(sql));
    }
    Done Begin() override { return m_script->Call("begin"); }
    Done Commit() override { return m_script->Call("commit"); }
    Done Rollback() override { return m_script->Call("rollback"); }
    void Cancel() override { m_script->Cancel(); }

private:
    SharedScript m_script;
};

inline DatabaseAccess AccessTo(const SharedScript& script)
{
    DatabaseAccess access;
    access.open = [script](const OdbcLogin& login,
                           std::chrono::seconds) -> Result<std::unique_ptr<OdbcConnection>> {
        if (auto called = script->Call("open " + login.source + ' ' + login.user + ' ' + login.password);
            !called)
            return Fail(called.error());
        return std::make_unique<ScriptedDatabase>(script);
    };
    return access;
}
