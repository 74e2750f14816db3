// Takes any bytes as a record. It is refused, or its beginning and its events are written and read
// back the same, and it can be played to its end.
#include <cstdlib>
#include <string>
#include <tuple>

#include "record/input_command.h"
#include "record/playback.h"

namespace {

void require(bool holds)
{
    if (!holds) {
        std::abort();
    }
}

auto fields(const host::Event &event)
{
    return std::tuple(event.kind, event.key, event.control, event.shift, event.escape, event.text,
                      event.x, event.y, event.orientation);
}

auto fields(const record::Beginning &beginning)
{
    return std::tie(beginning.program, beginning.clock, beginning.landscape, beginning.store);
}

void writeAndRead(const record::Record &record)
{
    const std::string start = record::write(record.beginning);
    std::string_view rest = start;
    int lines = 0;
    const auto beginning = record::takeBeginning(rest, lines);
    require(!beginning.problem && rest.empty());
    require(fields(beginning.value) == fields(record.beginning));
    for (const record::Step &step : record.steps) {
        if (step.kind == record::Step::Kind::Event) {
            const auto again = record::read("# record 1\n" + record::lineFor(step.event) + '\n');
            require(!again.problem && again.value.steps.size() == 1);
            require(fields(again.value.steps[0].event) == fields(step.event));
        }
    }
}

/// Plays the record to its end. No program runs: its timers would need hours for a long record.
void play(const record::Record &record)
{
    record::Playback playback(record, {{}, [] { return std::nullopt; }});
    for (std::size_t i = 0; i <= record.steps.size(); ++i) {
        require(playback.wait(std::nullopt).has_value());
    }
    require(playback.ticks() == record.beginning.clock + static_cast<std::uint32_t>(record.length));
    playback.programEnded();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string text(data, data + size);
    for (const bool cut : {false, true}) {
        const auto result = record::read(text, cut);
        if (!result.problem) {
            writeAndRead(result.value);
            play(result.value);
        }
    }
    return 0;
}
