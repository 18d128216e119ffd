#pragma once

#include "platform/UserLocale.h"

// What formatting knows of the user. The program hands down what it read at its start, tests set their own.
using FormatLocale = UserLocale;
