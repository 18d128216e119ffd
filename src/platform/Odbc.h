#pragma once

#include "base/Result.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

// Databases behind ODBC drivers. Errors carry the driver's own message as description, SQLSTATE first, as in
// "08001: could not connect", and source "ODBC". Drivers are foreign code: any call may take as long as it
// likes, so a window makes them on another thread and gives up on one that hangs (BackgroundJob).

struct OdbcSource {
    std::string name;
    std::string driver;
};

// The user's data sources, then those of the machine that the user's do not hide, in the files' order. The
// files are $ODBCINI or ~/.odbc.ini, and odbc.ini in $ODBCSYSINI or /etc; 500 sources at most.
std::vector<OdbcSource> OdbcSources();

// Text, UTF-8; an integer; a floating point number; nothing (NULL). Bytes that are no UTF-8 and zero bytes of
// a text go, and arrive, as U+FFFD; a text has at most 16 MB. Decimal numbers arrive as integers where they
// are whole and fit, else as exact text; every other type as text.
using OdbcValue = std::variant<std::monostate, std::int64_t, double, std::string>;

struct OdbcColumn {
    std::string name;
    int type = 0;  // SQL data type code, as in SQL_BIGINT
    bool isNullable = true;
};

class OdbcStatement {
public:
    virtual ~OdbcStatement() = default;
    // Binds all parameters and runs it; how many rows were changed, or -1 where the driver does not say.
    virtual Result<std::int64_t> Execute(const std::vector<OdbcValue>& parameters) = 0;
    // The next row of a query's result; false at the end, and where there is no result.
    virtual Result<bool> Fetch(std::vector<OdbcValue>& row) = 0;
};

// One connection. Used by one thread at a time; Cancel by any.
class OdbcConnection {
public:
    virtual ~OdbcConnection() = default;  // rolls back what was not committed

    virtual std::string DriverName() const = 0;
    virtual std::string DatabaseName() const = 0;  // the product's, as in "PostgreSQL"
    virtual bool IsReadOnly() const = 0;
    // With the driver's quotes, doubled within. Empty for a name that cannot be written: an empty one, one
    // that is no text, an odd one where the driver has no quotes.
    virtual std::string Quote(std::string_view identifier) const = 0;

    // Empty when there is no such table. `table`: as it was created, not quoted. Not within a transaction,
    // which the look at a missing table would end in some databases.
    virtual Result<std::vector<OdbcColumn>> Columns(std::string_view table) = 0;
    virtual Result<std::int64_t> Execute(std::string_view sql) = 0;
    virtual Result<std::unique_ptr<OdbcStatement>> Prepare(std::string_view sql) = 0;
    virtual Done Begin() = 0;  // ends at Commit or Rollback, also when these fail
    // A transaction of which a call failed is not kept: this rolls it back, and fails as that call did.
    virtual Done Commit() = 0;
    virtual Done Rollback() = 0;

    // Asks the driver to give up the call in progress, which then fails with Code::Cancelled; does nothing
    // when there is none. Does not wait: the driver is asked on another thread.
    virtual void Cancel() = 0;
};

struct OdbcLogin {
    std::string source;
    std::string user;      // empty: as the data source says
    std::string password;  // never logged; its owner wipes it
};

// `patience`: after which the driver should give up connecting, and any single call later on; one second at
// the least. No copy of the password is made here, and no error names it.
Result<std::unique_ptr<OdbcConnection>> OpenOdbc(const OdbcLogin& login, std::chrono::seconds patience);
