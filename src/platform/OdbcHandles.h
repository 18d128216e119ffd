#pragma once

#include "base/Result.h"

#include <sql.h>
#include <sqlext.h>

#include <atomic>
#include <bit>
#include <chrono>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

// What the parts of the ODBC layer share: handles, diagnostics, and the call in progress.
namespace odbc {

// A handle of the driver manager, freed at the end.
template <SQLSMALLINT Kind>
class Handle {
public:
    Handle() = default;
    ~Handle()
    {
        if (m_handle != SQL_NULL_HANDLE) SQLFreeHandle(Kind, m_handle);
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    bool Allocate(SQLHANDLE parent) { return SQL_SUCCEEDED(SQLAllocHandle(Kind, parent, &m_handle)); }
    SQLHANDLE Get() const { return m_handle; }

private:
    SQLHANDLE m_handle = SQL_NULL_HANDLE;
};

// Why the last call on the handle failed: "SQLSTATE: message" as one line, the code after the state. The
// secret is cut out.
SystemError Diagnostic(SQLSMALLINT kind, SQLHANDLE handle, std::string_view secret = {});

// A connection, kept by all that needs it: the connection object, its statements, and a cancel on its way.
struct Session {
    Session() = default;
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    Handle<SQL_HANDLE_ENV> environment;
    Handle<SQL_HANDLE_DBC> connection;
    bool isConnected = false;
    std::chrono::seconds patience{};
    std::optional<SystemError> failure;  // the first one of the transaction

    std::atomic<std::uint64_t> calls = 0;     // begun and ended, so odd while one is in progress
    std::atomic<std::uint64_t> unwanted = 0;  // the call that is to be given up
    std::atomic<bool> isCancelling = false;   // a cancel is on its way, and will look for that call
    std::mutex cancelMutex;             // guards the two below; held while the driver is asked to cancel
    SQLHSTMT running = SQL_NULL_HSTMT;  // the statement of the call in progress
    bool isCancelled = false;           // that call
};

using SessionPtr = std::shared_ptr<Session>;

// Why the last call on the connection itself, or on one of its statements, failed.
SystemError Failure(const Session& session, SQLSMALLINT kind, SQLHANDLE handle);

// Asks the driver, on another thread, to give up the call in progress now; no later one.
void CancelCall(const SessionPtr& session);

// A statement handle that can be run, cancelled and asked why it failed.
class StatementHandle {
public:
    explicit StatementHandle(SessionPtr session) : m_session(std::move(session)) {}

    Done Allocate();  // with the session's patience as the time limit of its calls
    SQLHSTMT Get() const { return m_handle.Get(); }
    // Makes one call on it, which Cancel can reach. False: there was nothing (SQL_NO_DATA).
    template <class Call>
    Result<bool> Make(const Call& call);

private:
    void Enter();
    Result<bool> Leave(SQLRETURN answer);
    SystemError Failure(SQLRETURN answer, bool isCancelled) const;

    SessionPtr m_session;  // outlives the handle
    Handle<SQL_HANDLE_STMT> m_handle;
};

template <class Call>
Result<bool> StatementHandle::Make(const Call& call)
{
    Enter();
    return Leave(call(m_handle.Get()));
}

// A number for a call that takes a pointer in its place.
inline SQLPOINTER Number(SQLULEN number)
{
    return std::bit_cast<SQLPOINTER>(number);
}

// A text for a call that takes no const, and its length.
inline SQLCHAR* TextOf(std::string_view text)
{
    return const_cast<SQLCHAR*>(reinterpret_cast<const SQLCHAR*>(text.data()));  // ODBC only reads it
}

}  // namespace odbc
