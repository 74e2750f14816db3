// The web host: the handheld in a browser page.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "host/host.h"

namespace web {

/// What the program is doing: `kind` is a word that the page knows ("title", "game", "level",
/// "paused", "over"), `text` a sentence.
struct State
{
    const char *kind;
    std::string text;
};
/// What the host asks the program before it sleeps.
struct Program
{
    /// The state, when it has changed since the last call.
    std::function<std::optional<State>()> changedState;
    /// The program is to wake at `moment`. Until when may it be late, and catch up, without anyone
    /// noticing, if nothing happens in the page?
    std::function<std::uint32_t(std::uint32_t moment)> latest;
};

/// The one page there is. When the host goes, the page learns that the program has ended.
std::unique_ptr<host::Host> open(Program program);

/// The record that this instance of the program is to play.
std::string givenRecord();
/// Gives the page whole lines of the record of this instance.
void keepRecord(std::string_view lines);
/// Asks the page for a fresh instance that shows the record from there: milliseconds, quarters of
/// the ordinary speed. This one is not shown any more.
void restart(std::uint64_t position, int quarterSpeed, bool playing);

} // namespace web
