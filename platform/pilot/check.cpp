// Plays a record at full speed in a process of its own.
#include "pilot/check.h"

#include "host/pilot/pilot_host.h"
#include "pilot/run_process.h"
#include "record/playback.h"
#include "record/read_file.h"

namespace pilot {

int check(const std::string &file, const handheld::Program &program, const Subject &subject)
{
    const auto read = record::readFile(file);
    const record::Record &record = read.value;
    if (read.problem) {
        return complain(*read.problem, 2);
    }
    if (!record.hasDigests()) {
        return complain(
            file + ": has nothing to compare with, as one of the first versions wrote it", 2);
    }
    return runUntilFinished({}, [&](RunState &, Outcome &outcome) {
        record::Playback playback(record, subject);
        handheld::run(playback, program, record.beginning.landscape ? 1 : 0);
        playback.programEnded();
        for (const std::string &line : subject.account()) {
            say(line);
        }
        say(playback.difference().value_or("holds"));
        outcome.finish(playback.difference() ? 1 : 0);
    });
}

} // namespace pilot
