// Keeps the program's record, 2,496 bytes, in the registry from one run to the next, with a format
// number beside it.
#pragma once

#include "app/app_record.h"

/// Stores the whole record; false when the registry key could not be opened or made.
bool saveSettings(const AppRecord &app);
/// Replaces the whole record by the stored one. False, and nothing changes, when there is none,
/// when it has another format, or when the game could not work with it; it is then kept under
/// another name, and a line on standard error says which field is wrong.
bool loadSettings(AppRecord &app);
