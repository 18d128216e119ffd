#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace zentrel {

// Writes rows with their columns aligned to the left, two spaces apart. Texts may come from the store.
void WriteTable(std::ostream& out, const std::vector<std::vector<std::string>>& rows);

}  // namespace zentrel
