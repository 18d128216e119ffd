#pragma once

#include "platform/Odbc.h"

#include <memory>
#include <string>

// Overwrites all memory that the text holds, then empties it.
void Wipe(std::string& text);

// A login in one place, shared by who uses it and wiped after the last; it is never copied.
using SharedLogin = std::shared_ptr<const OdbcLogin>;
SharedLogin ShareLogin(std::string source, std::string user, std::string&& password);  // wipes `password`
