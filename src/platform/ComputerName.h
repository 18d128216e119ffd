#pragma once

#include <string>

// The name of this machine, at most 63 bytes; "localhost" when the system does not tell.
std::string ComputerName();
