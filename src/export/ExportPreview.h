#pragma once

#include "export/DatabaseExport.h"
#include "export/ExportPlan.h"

#include <cstdint>
#include <string>
#include <vector>

class CacheSnapshot;

// What one table of an export will get.
struct ExportPreview {
    std::vector<std::string> columns;
    std::vector<std::vector<std::string>> rows;  // the first of them, as text; NULL is empty
    std::string sql;                             // the table's and its rows' statements, a line each
};

// most: rows. Values that only the database knows, like the number of the run, stand as "?".
ExportPreview PreviewOf(ExportTable table, const ExportPlan& plan, const ExportStamp& stamp,
                        const CacheSnapshot& snapshot, std::size_t most);
