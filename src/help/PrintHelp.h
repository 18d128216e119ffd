#pragma once

#include <ostream>
#include <string>

// Prints a help page as it is written; with an empty name, the contents. Needs no display. The result is the
// program's exit code: 0, or 2 after a sentence to `errors` when there is no page of that name.
int PrintHelpPage(std::ostream& out, std::ostream& errors, const std::string& name);
