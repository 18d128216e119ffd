// An ODBC driver for tests that says what no driver should: what it does wrong is the text of the statement.
// Its statements are "lengths", "endless", "empty pieces", "columns", "minus", "needs" and "states".

#include <sql.h>
#include <sqlext.h>

#include <cstring>
#include <limits>
#include <string>
#include <utility>

namespace {

struct Statement {
    std::string sin;
    bool isFetched = false;
};

constexpr SQLSMALLINT kMostShort = std::numeric_limits<SQLSMALLINT>::max();

Statement& Of(SQLHSTMT handle)
{
    return *static_cast<Statement*>(handle);
}

// To the last byte, with no zero there.
void Fill(SQLPOINTER buffer, SQLLEN size)
{
    if (buffer != nullptr && size > 0) std::memset(buffer, 'x', static_cast<std::size_t>(size));
}

}  // namespace

extern "C" {

SQLRETURN SQLAllocHandle(SQLSMALLINT kind, SQLHANDLE, SQLHANDLE* made)
{
    *made =
        kind == SQL_HANDLE_STMT ? static_cast<SQLHANDLE>(new Statement) : static_cast<SQLHANDLE>(new char);
    return SQL_SUCCESS;
}

SQLRETURN SQLFreeHandle(SQLSMALLINT kind, SQLHANDLE handle)
{
    if (kind == SQL_HANDLE_STMT)
        delete static_cast<Statement*>(handle);
    else
        delete static_cast<char*>(handle);
    return SQL_SUCCESS;
}

SQLRETURN SQLConnect(SQLHDBC, SQLCHAR*, SQLSMALLINT, SQLCHAR*, SQLSMALLINT, SQLCHAR*, SQLSMALLINT)
{
    return SQL_SUCCESS;
}

SQLRETURN SQLDisconnect(SQLHDBC)
{
    return SQL_SUCCESS;
}

SQLRETURN SQLGetInfo(SQLHDBC, SQLUSMALLINT, SQLPOINTER value, SQLSMALLINT size, SQLSMALLINT* length)
{
    Fill(value, size);
    if (length != nullptr) *length = kMostShort;
    return SQL_SUCCESS_WITH_INFO;
}

SQLRETURN SQLPrepare(SQLHSTMT handle, SQLCHAR* sql, SQLINTEGER length)
{
    Of(handle).sin.assign(reinterpret_cast<const char*>(sql), static_cast<std::size_t>(length));
    return SQL_SUCCESS;
}

SQLRETURN SQLExecute(SQLHSTMT handle)
{
    if (Of(handle).sin == "states") return SQL_ERROR;
    return Of(handle).sin == "needs" ? SQL_NEED_DATA : SQL_SUCCESS;
}

SQLRETURN SQLNumParams(SQLHSTMT handle, SQLSMALLINT* count)
{
    *count = Of(handle).sin == "minus" ? SQLSMALLINT{-3} : SQLSMALLINT{0};
    return SQL_SUCCESS;
}

SQLRETURN SQLRowCount(SQLHSTMT, SQLLEN* count)
{
    *count = std::numeric_limits<SQLLEN>::min();
    return SQL_SUCCESS;
}

SQLRETURN SQLNumResultCols(SQLHSTMT handle, SQLSMALLINT* count)
{
    const auto& sin = Of(handle).sin;
    *count = sin == "columns" ? kMostShort : sin == "minus" ? SQLSMALLINT{-1} : SQLSMALLINT{1};
    return SQL_SUCCESS;
}

SQLRETURN SQLDescribeCol(SQLHSTMT, SQLUSMALLINT, SQLCHAR* name, SQLSMALLINT size, SQLSMALLINT* length,
                         SQLSMALLINT* type, SQLULEN* width, SQLSMALLINT* digits, SQLSMALLINT* nullable)
{
    Fill(name, size);
    *length = SQLSMALLINT{-7};
    *type = SQL_VARCHAR;
    *width = std::numeric_limits<SQLULEN>::max();
    *digits = *nullable = kMostShort;
    return SQL_SUCCESS;
}

SQLRETURN SQLFetch(SQLHSTMT handle)
{
    return std::exchange(Of(handle).isFetched, true) ? SQL_NO_DATA : SQL_SUCCESS;
}

SQLRETURN SQLGetData(SQLHSTMT handle, SQLUSMALLINT, SQLSMALLINT, SQLPOINTER buffer, SQLLEN size,
                     SQLLEN* length)
{
    *length = std::numeric_limits<SQLLEN>::max();
    if (Of(handle).sin == "empty pieces") return SQL_SUCCESS_WITH_INFO;
    Fill(buffer, size);
    return Of(handle).sin == "endless" ? SQL_SUCCESS_WITH_INFO : SQL_SUCCESS;
}

SQLRETURN SQLGetDiagRec(SQLSMALLINT, SQLHANDLE, SQLSMALLINT, SQLCHAR* state, SQLINTEGER* native,
                        SQLCHAR* message, SQLSMALLINT size, SQLSMALLINT* length)
{
    std::memcpy(state, "\xFF\xFE\n\t\x01", SQL_SQLSTATE_SIZE + 1);
    *native = -1;
    Fill(message, size);
    *length = kMostShort;
    return SQL_SUCCESS;
}

}  // extern "C"
