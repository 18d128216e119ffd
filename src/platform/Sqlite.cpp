#include "platform/Sqlite.h"

#include "base/SystemError.h"

namespace sqlite {

std::uint32_t SystemCodeOf(int result)
{
    if (result == SQLITE_CONSTRAINT_FOREIGNKEY) return Code::KeyDeleted;
    switch (result & 0xFF) {
    case SQLITE_OK:
    case SQLITE_ROW:
    case SQLITE_DONE: return 0;
    case SQLITE_PERM:
    case SQLITE_AUTH:
    case SQLITE_READONLY: return Code::AccessDenied;
    case SQLITE_BUSY:
    case SQLITE_LOCKED: return Code::SharingViolation;
    case SQLITE_NOMEM:
    case SQLITE_TOOBIG: return Code::OutOfMemory;
    case SQLITE_FULL: return Code::DiskFull;
    case SQLITE_CANTOPEN:
    case SQLITE_PROTOCOL:
    case SQLITE_IOERR: return Code::RegistryIoFailed;
    default: return Code::RegistryCorrupt;  // no statement of ours fails on a sound hive
    }
}

int Run(sqlite3* db, const char* sql)
{
    return sqlite3_exec(db, sql, nullptr, nullptr, nullptr);
}

Statement::Statement(sqlite3* db, const char* sql)
{
    sqlite3_stmt* statement = nullptr;
    m_result = sqlite3_prepare_v2(db, sql, -1, &statement, nullptr);
    m_statement.reset(statement);
}

int Statement::Step()
{
    return m_result != SQLITE_OK ? m_result : sqlite3_step(m_statement.get());
}

std::string_view Statement::Text(int column) const
{
    const auto* text = sqlite3_column_text(m_statement.get(), column);
    if (text == nullptr) return {};
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(m_statement.get(), column));
    return {reinterpret_cast<const char*>(text), size};
}

std::span<const std::uint8_t> Statement::Bytes(int column) const
{
    const auto* bytes = static_cast<const std::uint8_t*>(sqlite3_column_blob(m_statement.get(), column));
    if (bytes == nullptr) return {};
    return {bytes, static_cast<std::size_t>(sqlite3_column_bytes(m_statement.get(), column))};
}

void Statement::Bind(std::int64_t value)
{
    if (m_result == SQLITE_OK) m_result = sqlite3_bind_int64(m_statement.get(), ++m_bound, value);
}

void Statement::Bind(std::string_view text)
{
    if (m_result != SQLITE_OK) return;
    const char* data = text.empty() ? "" : text.data();  // a null pointer would be bound as NULL
    m_result =
        sqlite3_bind_text64(m_statement.get(), ++m_bound, data, text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

void Statement::Bind(std::span<const std::uint8_t> bytes)
{
    if (m_result != SQLITE_OK) return;
    const void* data = bytes.empty() ? static_cast<const void*>("") : bytes.data();
    m_result = sqlite3_bind_blob64(m_statement.get(), ++m_bound, data, bytes.size(), SQLITE_STATIC);
}

WriteTransaction::~WriteTransaction()
{
    if (sqlite3_get_autocommit(m_db) == 0) Run(m_db, "ROLLBACK");
}

}  // namespace sqlite
