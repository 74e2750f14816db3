// Checks a record: whether the program does again what the record says.
#pragma once

#include <string>

#include "handheld.h"
#include "pilot/subject.h"

namespace pilot {

/// Plays the record in `file` and prints the account of its games, then "holds", or where the
/// program does something else: "differs at 0:41.200, line 812". Returns the exit status: 0 when it
/// holds, 1 when it differs, 2 when the file is no record that can be checked, 3 when the program
/// crashed.
int check(const std::string &file, const handheld::Program &program, const Subject &subject);

} // namespace pilot
