// The desktop host: the handheld in a window.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>

#include "host/file_host.h"
#include "host/timeline.h"

namespace desktop {

struct Options
{
    std::filesystem::path storeFolder; ///< exists
    std::optional<int> scale;          ///< of the window; none: as it was last, or comfortable
    bool landscape = false;            ///< the handheld starts turned
    /// Whether the screen must not go dark now; asked whenever the process is about to sleep.
    std::function<bool()> needsScreen;
    /// How late the process may wake; none: for each moment.
    host::Latest latest = nullptr;
};

class Desktop : public host::FileHost
{
public:
    using FileHost::FileHost;
    /// Keeps the place of the window for the next run, as its end does.
    virtual void keepPlace() = 0;
};

/// Opens the window; null when there is no display for it.
std::unique_ptr<Desktop> open(const Options &options);

} // namespace desktop
