#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include <sqlite3.h>

// A thin layer over SQLite. Results are SQLite's own (extended) codes; SystemCodeOf() translates them.
namespace sqlite {

struct CloseConnection {
    void operator()(sqlite3* db) const { sqlite3_close_v2(db); }
};
using Connection = std::unique_ptr<sqlite3, CloseConnection>;

// The system's code for a result; 0 for the three that mean success.
std::uint32_t SystemCodeOf(int result);

// Runs statements that give no rows.
int Run(sqlite3* db, const char* sql);

// One prepared statement. A fault in its making shows at the first Step().
class Statement {
public:
    // Each value is bound to the next parameter. Bytes are not copied: they must outlive the statement.
    template <class... Values>
    Statement(sqlite3* db, const char* sql, const Values&... values) : Statement(db, sql)
    {
        (Bind(values), ...);
    }
    Statement(sqlite3* db, const char* sql);

    int Step();  // SQLITE_ROW, SQLITE_DONE or why not

    // Of the row that Step() reached; texts and bytes hold until the next Step().
    std::int64_t Number(int column) const { return sqlite3_column_int64(m_statement.get(), column); }
    std::string_view Text(int column) const;
    std::span<const std::uint8_t> Bytes(int column) const;

private:
    void Bind(std::int64_t value);
    void Bind(std::string_view text);
    void Bind(std::span<const std::uint8_t> bytes);

    struct Finalize {
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };
    std::unique_ptr<sqlite3_stmt, Finalize> m_statement;
    int m_result = SQLITE_OK;  // the first failure
    int m_bound = 0;
};

// The right to write from Begin() on; leaving scope without Commit() undoes.
class WriteTransaction {
public:
    explicit WriteTransaction(sqlite3* db) : m_db(db) {}
    ~WriteTransaction();
    WriteTransaction(const WriteTransaction&) = delete;
    WriteTransaction& operator=(const WriteTransaction&) = delete;

    int Begin() { return Run(m_db, "BEGIN IMMEDIATE"); }
    int Commit() { return Run(m_db, "COMMIT"); }

private:
    sqlite3* m_db;
};

}  // namespace sqlite
