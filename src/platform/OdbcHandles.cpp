#include "platform/OdbcHandles.h"

#include "base/SystemError.h"
#include "base/Translate.h"
#include "platform/BackgroundJob.h"
#include "platform/OdbcText.h"

#include <array>
#include <cstring>

namespace odbc {
namespace {

constexpr std::size_t kMostMessage = 1000;  // bytes

struct StateCode {
    std::string_view beginning;  // of the SQLSTATE
    std::uint32_t code;
};

constexpr std::array kStateCodes{
    StateCode{"HYT", Code::Timeout},           StateCode{"57014", Code::Timeout},
    StateCode{"HY008", Code::Cancelled},       StateCode{"08", Code::ServerUnavailable},
    StateCode{"28", Code::AccessDenied},       StateCode{"42501", Code::AccessDenied},
    StateCode{"25006", Code::AccessDenied},    StateCode{"53100", Code::DiskFull},
    StateCode{"HY001", Code::OutOfMemory},     StateCode{"IM002", Code::FileNotFound},
    StateCode{"42S02", Code::FileNotFound},    StateCode{"42P01", Code::FileNotFound},
    StateCode{"57P", Code::ServerUnavailable},
};

std::uint32_t CodeOf(std::string_view state)
{
    for (const auto& row : kStateCodes)
        if (state.starts_with(row.beginning)) return row.code;
    return Code::IoError;
}

bool IsLost(const Session& session)
{
    SQLULEN dead = SQL_CD_FALSE;  // drivers fill it to different widths
    SQLGetConnectAttr(session.connection.Get(), SQL_ATTR_CONNECTION_DEAD, &dead, sizeof dead, nullptr);
    return dead == SQL_CD_TRUE;
}

}  // namespace

SystemError Diagnostic(SQLSMALLINT kind, SQLHANDLE handle, std::string_view secret)
{
    std::array<char, SQL_SQLSTATE_SIZE + 1> state{};
    std::array<char, 8192> message{};
    SQLINTEGER native = 0;
    SQLSMALLINT claimed = 0;  // not to be relied on
    const auto answer = SQLGetDiagRec(kind, handle, 1, reinterpret_cast<SQLCHAR*>(state.data()), &native,
                                      reinterpret_cast<SQLCHAR*>(message.data()),
                                      static_cast<SQLSMALLINT>(message.size()), &claimed);
    if (!SQL_SUCCEEDED(answer))
        return {Code::IoError, "ODBC", Translate("Odbc", "The driver failed without a reason.")};
    const std::string stateText = CleanLine({state.data(), strnlen(state.data(), SQL_SQLSTATE_SIZE)}, 20);
    const auto text = UndoTwiceEncoded({message.data(), strnlen(message.data(), message.size())});
    const auto shown = WithoutSecret(text, secret);
    return {CodeOf(stateText), "ODBC", stateText + ": " + CleanLine(shown, kMostMessage)};
}

SystemError Failure(const Session& session, SQLSMALLINT kind, SQLHANDLE handle)
{
    auto error = Diagnostic(kind, handle);
    if (IsLost(session))
        error.code = Code::ServerUnavailable;  // some drivers give the state of a later fault
    return error;
}

Session::~Session()
{
    if (!isConnected) return;
    const PlainLocale locale;
    SQLEndTran(SQL_HANDLE_DBC, connection.Get(), SQL_ROLLBACK);
    SQLDisconnect(connection.Get());
}

void CancelCall(const SessionPtr& session)
{
    session->unwanted = session->calls.load();
    if (session->isCancelling.exchange(true)) return;
    const auto cancel = [session] {
        const PlainLocale locale;
        const std::lock_guard lock(session->cancelMutex);
        session->isCancelling = false;
        if (session->running == SQL_NULL_HSTMT || session->calls != session->unwanted) return;
        session->isCancelled = true;
        SQLCancel(session->running);
    };
    if (!background::RunDetached(cancel)) session->isCancelling = false;
}

Done StatementHandle::Allocate()
{
    const PlainLocale locale;
    if (!m_handle.Allocate(m_session->connection.Get()))
        return Fail(Diagnostic(SQL_HANDLE_DBC, m_session->connection.Get()));
    const auto seconds = static_cast<SQLULEN>(m_session->patience.count());
    // Not every driver knows time limits; whoever waits has one of his own.
    SQLSetStmtAttr(Get(), SQL_ATTR_QUERY_TIMEOUT, Number(seconds), SQL_IS_UINTEGER);
    return {};
}

void StatementHandle::Enter()
{
    const std::lock_guard lock(m_session->cancelMutex);
    ++m_session->calls;
    m_session->running = Get();
    m_session->isCancelled = false;
}

Result<bool> StatementHandle::Leave(SQLRETURN answer)
{
    bool isCancelled = false;
    {
        // Waits for a cancel on its way, so that it cannot hit what comes next.
        const std::lock_guard lock(m_session->cancelMutex);
        ++m_session->calls;
        m_session->running = SQL_NULL_HSTMT;
        isCancelled = m_session->isCancelled;
    }
    if (SQL_SUCCEEDED(answer)) return true;
    if (answer == SQL_NO_DATA) return false;
    auto error = Failure(answer, isCancelled);
    if (!m_session->failure) m_session->failure = error;
    return Fail(std::move(error));
}

SystemError StatementHandle::Failure(SQLRETURN answer, bool isCancelled) const
{
    if (answer != SQL_ERROR) return {Code::InvalidData, "ODBC", SystemText(Code::InvalidData)};
    auto error = odbc::Failure(*m_session, SQL_HANDLE_STMT, Get());
    if (isCancelled) error.code = Code::Cancelled;
    return error;
}

}  // namespace odbc
