#pragma once

#include "platform/Odbc.h"
#include "platform/OdbcHandles.h"

#include <string>
#include <string_view>
#include <vector>

namespace odbc {

// A prepared statement: of a session, and alive as long as it is needed.
class Statement : public OdbcStatement {
public:
    explicit Statement(const SessionPtr& session) : m_handle(session) {}

    Done Prepare(std::string_view sql);
    Result<std::int64_t> Execute(const std::vector<OdbcValue>& parameters) override;
    Result<bool> Fetch(std::vector<OdbcValue>& row) override;

private:
    // What the driver reads while the statement runs.
    struct Bound {
        std::string cleaned;  // in place of a text that is not clean
        SQLLEN length = 0;
    };

    Done Bind(SQLUSMALLINT number, const OdbcValue& value, Bound& bound);
    Done Describe();
    Result<OdbcValue> Read(SQLUSMALLINT column, SQLSMALLINT type);
    template <class Number>
    Result<OdbcValue> ReadNumber(SQLUSMALLINT column, SQLSMALLINT type);
    Result<OdbcValue> ReadText(SQLUSMALLINT column);

    StatementHandle m_handle;
    std::size_t m_parameters = 0;
    bool m_isDescribed = false;  // of the result
    std::vector<SQLSMALLINT> m_types;
};

// The columns of the result of a statement that was run.
Result<std::vector<OdbcColumn>> ResultColumns(StatementHandle& statement);

// How many rows it changed; -1 where the driver does not say.
std::int64_t ChangedRows(const StatementHandle& statement);

}  // namespace odbc
