// Packing: numbers and quoted texts, each list after its length.
#include "host/pilot/run_state.h"

#include <iomanip>
#include <sstream>

namespace pilot {
namespace {

/// Reads a length and then as many items, each by `read`.
template <class Read>
void readList(std::istream &in, Read read)
{
    std::size_t count = 0;
    for (in >> count; count > 0; --count) {
        read();
    }
}

} // namespace

std::string pack(const RunState &state)
{
    std::ostringstream out;
    out << state.clock << ' ' << state.orientation << ' ' << state.line << ' ' << state.checks
        << ' ' << std::quoted(state.traceFile);
    const FilmState &film = state.film;
    out << ' ' << std::quoted(film.file) << ' ' << film.framesPerSecond << ' ' << film.width << ' '
        << film.height << ' ' << film.elapsed;
    out << ' ' << state.held.size();
    for (const std::uint16_t key : state.held) {
        out << ' ' << key;
    }
    out << ' ' << state.traced.size();
    for (const std::string &file : state.traced) {
        out << ' ' << std::quoted(file);
    }
    out << ' ' << state.sounds.size();
    for (const Sound &sound : state.sounds) {
        out << ' ' << sound.start << ' ' << sound.samples << ' ' << sound.cut;
    }
    return out.str();
}

RunState unpack(const std::string &text)
{
    std::istringstream in(text);
    RunState state;
    in >> state.clock >> state.orientation >> state.line >> state.checks >>
        std::quoted(state.traceFile);
    FilmState &film = state.film;
    in >> std::quoted(film.file) >> film.framesPerSecond >> film.width >> film.height >>
        film.elapsed;
    readList(in, [&] {
        std::uint16_t key = 0;
        in >> key;
        state.held.insert(key);
    });
    readList(in, [&] {
        std::string file;
        in >> std::quoted(file);
        state.traced.insert(file);
    });
    readList(in, [&] {
        Sound &sound = state.sounds.emplace_back();
        in >> sound.start >> sound.samples >> sound.cut;
    });
    return state;
}

} // namespace pilot
