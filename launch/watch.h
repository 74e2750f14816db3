// Shows a record in a window.
#pragma once

#include <optional>

#include "handheld.h"
#include "record/record.h"

/// Shows it until the viewer ends that. Nothing of his own store is read or written. Returns the
/// exit status: 0, or 1 when there is no display.
int watch(const record::Record &record, std::optional<int> scale, const handheld::Program &program);
