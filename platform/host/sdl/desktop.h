// The desktop host: the handheld in a window.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>

#include "host/host.h"

namespace desktop {

struct Options
{
    std::filesystem::path storeFolder; ///< exists
    std::optional<int> scale;          ///< of the first window; none: as large as is comfortable
    bool landscape = false;            ///< the handheld starts turned
};

/// Opens the desktop; none when there is no display to open a window on.
std::unique_ptr<host::Host> open(const Options &options);

} // namespace desktop
