#pragma once

#include "platform/Odbc.h"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// Short ways to ask a database something.

using Rows = std::vector<std::vector<OdbcValue>>;

inline std::unique_ptr<OdbcConnection> Open(const std::string& source,
                                            std::chrono::seconds patience = std::chrono::seconds(20))
{
    auto opened = OpenOdbc({source, "", ""}, patience);
    EXPECT_TRUE(opened) << (opened ? "" : opened.error().description);
    return opened ? std::move(*opened) : nullptr;
}

inline Result<Rows> Ask(OdbcConnection& database, std::string_view sql,
                        const std::vector<OdbcValue>& values = {})
{
    const auto statement = database.Prepare(sql);
    if (!statement) return Fail(statement.error());
    const auto changed = (*statement)->Execute(values);
    if (!changed) return Fail(changed.error());
    Rows rows;
    for (std::vector<OdbcValue> row;;) {
        const auto fetched = (*statement)->Fetch(row);
        if (!fetched) return Fail(fetched.error());
        if (!*fetched) return rows;
        rows.push_back(row);
    }
}

// The one value of a query's one row; the failure's text when there is none.
inline OdbcValue One(OdbcConnection& database, std::string_view sql)
{
    const auto rows = Ask(database, sql);
    if (!rows) return rows.error().description;
    return rows->size() == 1 && rows->front().size() == 1 ? rows->front().front() : "(another number)";
}

// Its code and text; empty when there is none.
template <class T>
std::string Failure(const Result<T>& result)
{
    return result ? "" : std::to_string(result.error().code) + " " + result.error().description;
}
