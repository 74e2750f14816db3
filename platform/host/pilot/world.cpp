// Packing: numbers and quoted texts, one list after the other, each after its length.
#include "host/pilot/world.h"

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

std::string pack(const World &world)
{
    std::ostringstream out;
    out << world.clock << ' ' << world.orientation << ' ' << world.line << ' ' << world.checks
        << ' ' << std::quoted(world.traceFile);
    out << ' ' << world.held.size();
    for (const std::uint16_t key : world.held) {
        out << ' ' << key;
    }
    out << ' ' << world.traced.size();
    for (const std::string &file : world.traced) {
        out << ' ' << std::quoted(file);
    }
    out << ' ' << world.sounds.size();
    for (const Sound &sound : world.sounds) {
        out << ' ' << sound.start << ' ' << sound.samples << ' ' << sound.cut;
    }
    return out.str();
}

World unpack(const std::string &text)
{
    std::istringstream in(text);
    World world;
    in >> world.clock >> world.orientation >> world.line >> world.checks >>
        std::quoted(world.traceFile);
    readList(in, [&] {
        std::uint16_t key = 0;
        in >> key;
        world.held.insert(key);
    });
    readList(in, [&] {
        std::string file;
        in >> std::quoted(file);
        world.traced.insert(file);
    });
    readList(in, [&] {
        Sound &sound = world.sounds.emplace_back();
        in >> sound.start >> sound.samples >> sound.cut;
    });
    return world;
}

} // namespace pilot
