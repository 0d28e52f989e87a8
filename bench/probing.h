#pragma once

#include "row.h"

#include <string>

/// Has a contender's instructions or its heap counted by the program kelvorprobe, in a process of its own. Not a number
/// when that cannot be done, since valgrind is missing; the process ends when it fails. Plainly, the contender only
/// runs there, without valgrind around it, and the figure means nothing.
double probe(const std::string& rowName, const std::string& contenderName, quantity of, bool plainly);
