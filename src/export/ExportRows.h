#pragma once

#include "export/CacheSnapshot.h"
#include "export/ExportPlan.h"
#include "platform/Odbc.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

// A text from a server as a database takes it: bytes that are not UTF-8 become replacement characters, zero
// characters their pictures.
std::string DatabaseText(std::string_view text);

// "2024-01-31 23:59:59", to the nearest second; NULL for the empty date and for years beyond 1 to 9999.
OdbcValue MomentValue(DateTime moment);

// One value for each column of the table; the first, the run, is left to who writes it.
using ExportRow = std::vector<OdbcValue>;

// The rows of a table (not of the runs) in the snapshot's order: `row` is used again. False ends it.
void ForEachExportRow(ExportTable table, const CacheSnapshot& snapshot,
                      const std::function<bool(const ExportRow& row)>& take);

// How many there will be, as far as the snapshot knows; 1 for the runs.
std::int64_t RowCount(ExportTable table, const CacheSnapshot& snapshot);
