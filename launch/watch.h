// Shows a record in a window.
#pragma once

#include <optional>

#include "handheld.h"
#include "record/record.h"

/// Shows it until the viewer ends that. Nothing of his own store is read or written. It is a
/// problem when there is no display, or the system gives no process.
host::Problem watch(const record::Record &record, std::optional<int> scale,
                    const handheld::Program &program);
