#include "platform/Odbc.h"

#include "base/SystemError.h"
#include "base/Translate.h"
#include "platform/OdbcHandles.h"
#include "platform/OdbcStatement.h"
#include "platform/OdbcText.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

namespace odbc {
namespace {

constexpr std::size_t kMostName = 1024;  // bytes of a name or a password
constexpr std::size_t kMostSql = std::size_t{16} << 20U;

std::string InfoText(const Session& session, SQLUSMALLINT what)
{
    std::array<char, 512> text{};
    SQLSMALLINT claimed = 0;  // not to be relied on
    SQLGetInfo(session.connection.Get(), what, text.data(), text.size(), &claimed);
    return CleanText({text.data(), strnlen(text.data(), text.size())});
}

bool IsPlainName(std::string_view name)
{
    const auto isPlain = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
    };
    return !name.empty() && !(name[0] >= '0' && name[0] <= '9') && std::ranges::all_of(name, isPlain);
}

class Connection : public OdbcConnection {
public:
    explicit Connection(SessionPtr session);
    ~Connection() override;
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    std::string DriverName() const override { return m_driver; }
    std::string DatabaseName() const override { return m_database; }
    bool IsReadOnly() const override { return m_isReadOnly; }
    std::string Quote(std::string_view identifier) const override;

    Result<std::vector<OdbcColumn>> Columns(std::string_view table) override;
    Result<std::int64_t> Execute(std::string_view sql) override;
    Result<std::unique_ptr<OdbcStatement>> Prepare(std::string_view sql) override;
    Done Begin() override;
    Done Commit() override;
    Done Rollback() override { return End(SQL_ROLLBACK); }
    void Cancel() override { CancelCall(m_session); }

private:
    Done Run(StatementHandle& statement, std::string_view sql);
    Result<bool> IsListed(std::string_view table);
    Done SetAutocommit(SQLULEN value);
    Done End(SQLSMALLINT how);
    tl::unexpected<SystemError> Failure() const
    {
        return Fail(odbc::Failure(*m_session, SQL_HANDLE_DBC, m_session->connection.Get()));
    }

    SessionPtr m_session;
    std::string m_driver;
    std::string m_database;
    std::string m_quote;  // empty: the driver has none
    bool m_isReadOnly = false;
};

Connection::Connection(SessionPtr session)
    : m_session(std::move(session)),
      m_driver(InfoText(*m_session, SQL_DRIVER_NAME)),
      m_database(InfoText(*m_session, SQL_DBMS_NAME)),
      m_quote(InfoText(*m_session, SQL_IDENTIFIER_QUOTE_CHAR)),
      m_isReadOnly(InfoText(*m_session, SQL_DATA_SOURCE_READ_ONLY) == "Y")
{
    if (m_quote == " ") m_quote.clear();
}

Connection::~Connection()
{
    // Statements may keep the session; what was begun ends here all the same.
    const PlainLocale locale;
    SQLEndTran(SQL_HANDLE_DBC, m_session->connection.Get(), SQL_ROLLBACK);
}

std::string Connection::Quote(std::string_view identifier) const
{
    if (m_quote.empty()) return std::string(IsPlainName(identifier) ? identifier : "");
    if (identifier.empty() || !IsClean(identifier)) return {};
    std::string quoted = m_quote;
    while (!identifier.empty()) {
        const bool isQuote = identifier.starts_with(m_quote);
        const auto length = isQuote ? m_quote.size() : 1;
        if (isQuote) quoted += m_quote;
        quoted += identifier.substr(0, length);
        identifier.remove_prefix(length);
    }
    return quoted + m_quote;
}

Done Connection::Run(StatementHandle& statement, std::string_view sql)
{
    if (sql.size() > kMostSql) return Fail(Code::InvalidParameter, "ODBC");
    if (const auto allocated = statement.Allocate(); !allocated) return allocated;
    const auto made = statement.Make([&](SQLHSTMT handle) {
        return SQLExecDirect(handle, TextOf(sql), static_cast<SQLINTEGER>(sql.size()));
    });
    if (!made) return Fail(made.error());
    return {};
}

// Is there a table of exactly that name, wherever it is?
Result<bool> Connection::IsListed(std::string_view table)
{
    constexpr int kMostTables = 100'000;
    constexpr SQLUSMALLINT kNameColumn = 3;
    StatementHandle statement(m_session);
    if (const auto allocated = statement.Allocate(); !allocated) return Fail(allocated.error());
    auto found = statement.Make(
        [](SQLHSTMT handle) { return SQLTables(handle, nullptr, 0, nullptr, 0, nullptr, 0, nullptr, 0); });
    for (int i = 0; found && i < kMostTables; ++i) {
        found = statement.Make([](SQLHSTMT handle) { return SQLFetch(handle); });
        if (!found || !*found) return found;
        std::array<char, kMostName> name{};
        SQLLEN claimed = 0;
        SQLGetData(statement.Get(), kNameColumn, SQL_C_CHAR, name.data(), name.size(), &claimed);
        if (table == std::string_view(name.data(), strnlen(name.data(), name.size()))) return true;
    }
    return found;
}

Result<std::vector<OdbcColumn>> Connection::Columns(std::string_view table)
{
    const PlainLocale locale;
    const auto quoted = Quote(table);
    if (quoted.empty()) return Fail(Code::InvalidName, "ODBC");
    // The database itself decides which table it is that the name means: of what schema, in what case.
    StatementHandle statement(m_session);
    const auto asked = Run(statement, "SELECT * FROM " + quoted + " WHERE 1 = 0");
    if (asked) return ResultColumns(statement);
    const auto listed = IsListed(table);
    if (!listed) return Fail(listed.error());
    if (*listed) return Fail(asked.error());
    return std::vector<OdbcColumn>();
}

Result<std::int64_t> Connection::Execute(std::string_view sql)
{
    const PlainLocale locale;
    StatementHandle statement(m_session);
    if (const auto done = Run(statement, sql); !done) return Fail(done.error());
    return ChangedRows(statement);
}

Result<std::unique_ptr<OdbcStatement>> Connection::Prepare(std::string_view sql)
{
    if (sql.size() > kMostSql) return Fail(Code::InvalidParameter, "ODBC");
    auto statement = std::make_unique<Statement>(m_session);
    if (const auto prepared = statement->Prepare(sql); !prepared) return Fail(prepared.error());
    return statement;
}

Done Connection::SetAutocommit(SQLULEN value)
{
    const PlainLocale locale;
    const auto answer = SQLSetConnectAttr(m_session->connection.Get(), SQL_ATTR_AUTOCOMMIT, Number(value), 0);
    if (!SQL_SUCCEEDED(answer)) return Failure();
    return {};
}

Done Connection::Begin()
{
    m_session->failure.reset();
    return SetAutocommit(SQL_AUTOCOMMIT_OFF);
}

Done Connection::Commit()
{
    if (!m_session->failure) return End(SQL_COMMIT);
    // Asked to commit what a fault ended, some databases undo it, and some drivers call that a success.
    const auto failure = *m_session->failure;
    if (const auto ended = End(SQL_ROLLBACK); !ended) return ended;
    return Fail(failure);
}

Done Connection::End(SQLSMALLINT how)
{
    const PlainLocale locale;
    auto* const handle = m_session->connection.Get();
    Done ended;
    if (!SQL_SUCCEEDED(SQLEndTran(SQL_HANDLE_DBC, handle, how))) {
        ended = Failure();
        // To go back to single statements would commit what is left of it.
        SQLEndTran(SQL_HANDLE_DBC, handle, SQL_ROLLBACK);
    }
    const auto single = SetAutocommit(SQL_AUTOCOMMIT_ON);
    return ended ? single : ended;
}

Done Connect(Session& session, const OdbcLogin& login)
{
    auto* const handle = session.connection.Get();
    const auto patience = static_cast<SQLULEN>(session.patience.count());
    // Drivers need not know these; whoever waits has a limit of his own.
    SQLSetConnectAttr(handle, SQL_ATTR_LOGIN_TIMEOUT, Number(patience), SQL_IS_UINTEGER);
    SQLSetConnectAttr(handle, SQL_ATTR_CONNECTION_TIMEOUT, Number(patience), SQL_IS_UINTEGER);
    // Nothing instead of an empty text: then the data source's own counts.
    const auto text = [](const std::string& part) { return part.empty() ? nullptr : TextOf(part); };
    const auto length = [](const std::string& part) { return static_cast<SQLSMALLINT>(part.size()); };
    const auto answer = SQLConnect(handle, text(login.source), length(login.source), text(login.user),
                                   length(login.user), text(login.password), length(login.password));
    if (!SQL_SUCCEEDED(answer)) return Fail(Diagnostic(SQL_HANDLE_DBC, handle, login.password));
    session.isConnected = true;
    return {};
}

}  // namespace
}  // namespace odbc

Result<std::unique_ptr<OdbcConnection>> OpenOdbc(const OdbcLogin& login, std::chrono::seconds patience)
{
    if (login.source.size() > SQL_MAX_DSN_LENGTH)
        return Fail(Code::InvalidName, "ODBC",
                    Translate("Odbc", "The name of a data source may have 32 bytes at the most."));
    for (const auto* part : {&login.source, &login.user, &login.password})
        if (part->size() > odbc::kMostName || part->find('\0') != std::string::npos)
            return Fail(Code::InvalidParameter, "ODBC");
    const odbc::PlainLocale locale;
    const auto session = std::make_shared<odbc::Session>();
    session->patience = std::max(patience, std::chrono::seconds(1));
    if (!session->environment.Allocate(SQL_NULL_HANDLE)) return Fail(Code::OutOfMemory, "ODBC");
    SQLSetEnvAttr(session->environment.Get(), SQL_ATTR_ODBC_VERSION, odbc::Number(SQL_OV_ODBC3), 0);
    if (!session->connection.Allocate(session->environment.Get()))
        return Fail(odbc::Diagnostic(SQL_HANDLE_ENV, session->environment.Get()));
    if (const auto connected = odbc::Connect(*session, login); !connected) return Fail(connected.error());
    return std::make_unique<odbc::Connection>(session);
}
