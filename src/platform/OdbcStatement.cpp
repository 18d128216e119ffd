#include "platform/OdbcStatement.h"

#include "base/SystemError.h"
#include "base/Translate.h"
#include "platform/OdbcText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <system_error>

namespace odbc {
namespace {

constexpr std::size_t kMostText = std::size_t{16} << 20U;  // bytes of one value, either way
constexpr SQLSMALLINT kMostColumns = 4096;

tl::unexpected<SystemError> TooLong()
{
    return Fail(Code::MoreData, "ODBC", Translate("Odbc", "A text is longer than 16 MB."));
}

// How a parameter of the kind goes: as which C type, and which SQL type it is.
struct Passing {
    SQLSMALLINT cType;
    SQLSMALLINT sqlType;
    SQLULEN size;
};

Passing PassingOf(const OdbcValue& value, std::size_t length)
{
    constexpr std::size_t kMostVarchar = 4000;  // beyond, some databases want the other type
    if (std::holds_alternative<std::int64_t>(value)) return {SQL_C_SBIGINT, SQL_BIGINT, 19};
    if (std::holds_alternative<double>(value)) return {SQL_C_DOUBLE, SQL_DOUBLE, 15};
    const auto size = std::max<std::size_t>(length, 1);
    if (length > kMostVarchar) return {SQL_C_CHAR, SQL_LONGVARCHAR, size};
    return {SQL_C_CHAR, SQL_VARCHAR, size};
}

bool IsInteger(SQLSMALLINT type)
{
    return type == SQL_BIGINT || type == SQL_INTEGER || type == SQL_SMALLINT || type == SQL_TINYINT;
}

bool IsDecimal(SQLSMALLINT type)
{
    return type == SQL_NUMERIC || type == SQL_DECIMAL;
}

bool IsFloating(SQLSMALLINT type)
{
    return type == SQL_DOUBLE || type == SQL_FLOAT || type == SQL_REAL;
}

// Sums arrive as decimal numbers: those that are whole and not too large as the integers that they are.
OdbcValue WholeNumber(OdbcValue value)
{
    const auto* const text = std::get_if<std::string>(&value);
    if (text == nullptr) return value;
    std::int64_t number = 0;
    const char* const end = text->data() + text->size();
    const auto [stop, error] = std::from_chars(text->data(), end, number);
    if (error != std::errc() || stop != end) return value;
    return number;
}

}  // namespace

std::int64_t ChangedRows(const StatementHandle& statement)
{
    SQLLEN rows = -1;
    if (!SQL_SUCCEEDED(SQLRowCount(statement.Get(), &rows))) return -1;
    return std::max<SQLLEN>(rows, -1);
}

Result<std::vector<OdbcColumn>> ResultColumns(StatementHandle& statement)
{
    SQLSMALLINT count = 0;
    const auto counted = statement.Make([&](SQLHSTMT handle) { return SQLNumResultCols(handle, &count); });
    if (!counted) return Fail(counted.error());
    if (count < 0 || count > kMostColumns) return Fail(Code::InvalidData, "ODBC");
    std::vector<OdbcColumn> columns;
    for (SQLUSMALLINT number = 1; number <= count; ++number) {
        std::array<char, 1024> name{};
        SQLSMALLINT claimed = 0;  // not to be relied on
        SQLSMALLINT type = SQL_VARCHAR;
        SQLSMALLINT digits = 0;
        SQLSMALLINT nullable = SQL_NULLABLE_UNKNOWN;
        SQLULEN size = 0;
        const auto described = statement.Make([&](SQLHSTMT handle) {
            return SQLDescribeCol(handle, number, reinterpret_cast<SQLCHAR*>(name.data()), name.size(),
                                  &claimed, &type, &size, &digits, &nullable);
        });
        if (!described) return Fail(described.error());
        const std::string_view text(name.data(), strnlen(name.data(), name.size()));
        columns.push_back({CleanText(text), type, nullable != SQL_NO_NULLS});
    }
    return columns;
}

Done Statement::Prepare(std::string_view sql)
{
    const PlainLocale locale;
    if (const auto allocated = m_handle.Allocate(); !allocated) return allocated;
    const auto prepared = m_handle.Make([&](SQLHSTMT handle) {
        return SQLPrepare(handle, TextOf(sql), static_cast<SQLINTEGER>(sql.size()));
    });
    if (!prepared) return Fail(prepared.error());
    SQLSMALLINT count = 0;
    const auto counted = m_handle.Make([&](SQLHSTMT handle) { return SQLNumParams(handle, &count); });
    if (!counted) return Fail(counted.error());
    m_parameters = static_cast<std::size_t>(std::max<SQLSMALLINT>(count, 0));
    return {};
}

Done Statement::Bind(SQLUSMALLINT number, const OdbcValue& value, Bound& bound)
{
    auto* data = const_cast<OdbcValue*>(&value);  // ODBC only reads input parameters
    SQLPOINTER bytes = nullptr;
    bound.length = SQL_NULL_DATA;
    std::size_t textLength = 0;
    if (auto* integer = std::get_if<std::int64_t>(data)) {
        bytes = integer;
        bound.length = sizeof *integer;
    } else if (auto* real = std::get_if<double>(data)) {
        bytes = real;
        bound.length = sizeof *real;
    } else if (auto* text = std::get_if<std::string>(data)) {
        if (!IsClean(*text)) bound.cleaned = CleanText(*text);
        auto& sent = bound.cleaned.empty() ? *text : bound.cleaned;
        if (sent.size() > kMostText) return TooLong();
        textLength = sent.size();
        bytes = sent.data();
        bound.length = static_cast<SQLLEN>(textLength);
    }
    const auto passing = PassingOf(value, textLength);
    const auto answer =
        SQLBindParameter(m_handle.Get(), number, SQL_PARAM_INPUT, passing.cType, passing.sqlType,
                         passing.size, 0, bytes, static_cast<SQLLEN>(textLength), &bound.length);
    if (!SQL_SUCCEEDED(answer)) return Fail(Diagnostic(SQL_HANDLE_STMT, m_handle.Get()));
    return {};
}

Result<std::int64_t> Statement::Execute(const std::vector<OdbcValue>& parameters)
{
    const PlainLocale locale;
    if (parameters.size() != m_parameters) return Fail(Code::InvalidParameter, "ODBC");
    SQLFreeStmt(m_handle.Get(), SQL_CLOSE);
    m_isDescribed = false;
    std::vector<Bound> bound(parameters.size());
    for (std::size_t i = 0; i < parameters.size(); ++i) {
        const auto done = Bind(static_cast<SQLUSMALLINT>(i + 1), parameters[i], bound[i]);
        if (!done) return Fail(done.error());
    }
    const auto made = m_handle.Make([](SQLHSTMT handle) { return SQLExecute(handle); });
    SQLFreeStmt(m_handle.Get(), SQL_RESET_PARAMS);
    if (!made) return Fail(made.error());
    return *made ? ChangedRows(m_handle) : 0;
}

Done Statement::Describe()
{
    const auto columns = ResultColumns(m_handle);
    if (!columns) return Fail(columns.error());
    m_types.clear();
    for (const auto& column : *columns) m_types.push_back(static_cast<SQLSMALLINT>(column.type));
    m_isDescribed = true;
    return {};
}

Result<bool> Statement::Fetch(std::vector<OdbcValue>& row)
{
    const PlainLocale locale;
    row.clear();
    if (!m_isDescribed)
        if (const auto described = Describe(); !described) return Fail(described.error());
    if (m_types.empty()) return false;
    const auto made = m_handle.Make([](SQLHSTMT handle) { return SQLFetch(handle); });
    if (!made || !*made) return made;
    for (std::size_t i = 0; i < m_types.size(); ++i) {
        auto value = Read(static_cast<SQLUSMALLINT>(i + 1), m_types[i]);
        if (!value) return Fail(value.error());
        row.push_back(std::move(*value));
    }
    return true;
}

Result<OdbcValue> Statement::Read(SQLUSMALLINT column, SQLSMALLINT type)
{
    if (IsInteger(type)) return ReadNumber<std::int64_t>(column, SQL_C_SBIGINT);
    if (IsFloating(type)) return ReadNumber<double>(column, SQL_C_DOUBLE);
    auto text = ReadText(column);
    return text && IsDecimal(type) ? WholeNumber(std::move(*text)) : text;
}

template <class Number>
Result<OdbcValue> Statement::ReadNumber(SQLUSMALLINT column, SQLSMALLINT type)
{
    Number number{};
    SQLLEN length = 0;
    const auto made = m_handle.Make(
        [&](SQLHSTMT handle) { return SQLGetData(handle, column, type, &number, sizeof number, &length); });
    if (!made) return Fail(made.error());
    if (!*made || length == SQL_NULL_DATA) return OdbcValue();
    return OdbcValue(number);
}

Result<OdbcValue> Statement::ReadText(SQLUSMALLINT column)
{
    std::string text;
    std::array<char, 16384> piece{};
    for (bool isFirst = true;; isFirst = false) {
        piece.fill('\0');
        SQLLEN length = 0;  // of what is left, or unknown; not to be relied on
        SQLRETURN answer = SQL_ERROR;
        const auto made = m_handle.Make([&](SQLHSTMT handle) {
            return answer = SQLGetData(handle, column, SQL_C_CHAR, piece.data(), piece.size(), &length);
        });
        if (!made) return Fail(made.error());
        if (*made && length == SQL_NULL_DATA && isFirst) return OdbcValue();
        const auto got = strnlen(piece.data(), piece.size() - 1);
        text.append(piece.data(), got);
        if (text.size() > kMostText) return TooLong();
        // A piece that fills its place, or comes with a warning, is not the last; an empty one is.
        if (answer != SQL_SUCCESS_WITH_INFO || got == 0)
            return OdbcValue(IsClean(text) ? text : CleanText(text));
    }
}

}  // namespace odbc
