// Plays records to their end.
#include "launch/record_end.h"

#include <algorithm>

#include "launch/game_subject.h"

host::Result<std::string> playToEnd(const record::Record &record,
                                    const record::Playback::Store &present,
                                    const handheld::Program &program)
{
    GameLog games;
    record::Playback playback(record, gameSubject(games));
    handheld::run(playback, program, record.beginning.landscape ? 1 : 0);
    if (playback.difference()) {
        return {{}, playback.difference()};
    }
    const auto &ends = playback.storesAtEnd();
    const bool leadsThere = std::find(ends.begin(), ends.end(), present) != ends.end() ||
                            present == playback.store(); // it was recovered already
    if (!playback.store() || !leadsThere) {
        return {{}, "leads to another store"};
    }
    const auto &bytes = *playback.store();
    return {std::string(reinterpret_cast<const char *>(bytes.data()), bytes.size()), {}};
}

bool keepEnd(host::Host &host, const host::Result<std::string> &end)
{
    if (end.problem) {
        host.report("the game goes on from where it was stored last, not from where it ended: " +
                    *end.problem);
        return false;
    }
    return host.saveStore(std::as_bytes(std::span(end.value)));
}
