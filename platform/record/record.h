// A record: a whole session of the program as text, which is also a script of the pilot. It begins
// with comment lines for what the program finds at its start, then come the user's doings and the
// time between them; further comment lines say what the program was at, and check whoever plays it.
//
//     # record 1                         the number of this format
//     # program Glimra 1.10
//     # clock 1000                       the tick count at start, milliseconds
//     # landscape                        only when the display is turned
//     # store 10592                      the size of registry.reg in bytes; only when there is one
//     #: V2luZG93cyBSZWdpc3RyeSBFZGl0    its text, base64 in lines of 76
//     wait 1500
//     # game Marathon level 3            a chapter, in the program's words
//     # digest 8B1C... 02F4...           of the program's bytes and the clock; of the lines before
//     key 37 down
//     # closed                           the program ended, and the record is complete
//
// A record can come from a stranger, so it holds nothing but input, and there are limits to all of
// it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/host.h"
#include "host/problem.h"

namespace record {

constexpr int formatNumber = 1;
constexpr std::size_t largestSize = std::size_t{4} << 20U; ///< of a record's text, bytes
constexpr std::size_t longestLine = 200;                   ///< bytes, without the end of the line
constexpr std::uint64_t longestTime = 24ULL * 60 * 60 * 1000; ///< milliseconds

/// What a record knows of the program.
struct Subject
{
    /// The object whose bytes the digests are made from.
    std::span<const std::byte> image;
    /// The chapter that has begun since the last call, on one line, such as "game Marathon level
    /// 3"; none: still the same.
    std::function<std::optional<std::string>()> newChapter;
};

/// What the program finds at its start.
struct Beginning
{
    std::string program; ///< name and version; empty in old records
    std::uint32_t clock = 1000;
    bool landscape = false;
    std::optional<std::vector<std::byte>> store; ///< registry.reg
};

/// The lines for it, each with its end.
std::string write(const Beginning &beginning);
/// Reads such lines at the start of a text, and takes them off it; what is missing keeps its
/// default. `line` counts them.
host::Result<Beginning> takeBeginning(std::string_view &text, int &line);

/// What happens in a record, in order.
struct Step
{
    enum class Kind
    {
        Event,
        Jump,   ///< the clock goes on by `jump`, and what was due meanwhile is late
        Digest, ///< `state`; `linesHold`
        Chapter,
        Closed,
    };

    Kind kind{};
    int line = 0;         ///< of the text, from 1
    std::uint64_t at = 0; ///< milliseconds since the start
    host::Event event;
    std::uint32_t jump = 0;  ///< milliseconds
    std::uint64_t state = 0; ///< digestOf the program
    bool linesHold = true;   ///< the lines before are as they were written
    std::string chapter;     ///< what the program's `newChapter` said
};

struct Record
{
    Beginning beginning;
    std::vector<Step> steps;
    std::uint64_t length = 0; ///< milliseconds

    /// Whether it can be checked; the first versions wrote no digests.
    bool hasDigests() const;
};

constexpr std::string_view lastLine = "# closed\n";

/// The lines that were written completely. When the power goes, a file may end within a line, and
/// hold zeros where bytes had not reached the disk; what is behind those does not count.
std::string_view wholeLines(std::string_view text);
/// Reads a whole record. The problem says the line: "line 12: ...". With `cut`, only its whole
/// lines: it was being written when the process or the machine was stopped.
host::Result<Record> read(std::string_view text, bool cut = false);

/// The digest of the program and the clock.
std::uint64_t digestOf(const Subject &subject, std::uint32_t clock);
/// 16 hexadecimal digits.
std::string inHex(std::uint64_t number);
/// A moment of a record as a message says it: "0:41.200".
std::string momentText(std::uint64_t milliseconds);

} // namespace record
