// Films the screen: pictures at even intervals of virtual time, and the sounds beside them, in two
// files that any encoder takes: YUV4MPEG2 (4:4:4) and WAV (22,050 Hz, 8 bits, mono).
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "host/descriptor.h"
#include "host/host.h"
#include "host/pilot/run_state.h"
#include "host/problem.h"

namespace pilot {

class Film
{
public:
    /// `state` is kept there, and outlives a restart of the program.
    explicit Film(FilmState &state) : state_(state) {}

    /// Begins a film, and a WAV file of the same name beside it; replaces both. The film is as
    /// large as `frame`. A frame of the other shape, after the display was turned, is shown in it
    /// at three quarters of its size, between black bars.
    host::Problem begin(const std::string &file, int framesPerSecond, const host::Frame &frame);
    /// Goes on with the film that a restart interrupted, if there is one.
    host::Problem goOn() { return state_.file.empty() ? std::nullopt : open(0); }
    /// Some milliseconds pass in which the screen shows `frame`: from now until just before their
    /// end. A moment's picture is thus what the program has made of everything that happened in it.
    /// After a problem, such as a full disk, the film has ended with its last whole frame.
    host::Problem pass(std::uint32_t milliseconds, const host::Frame &frame);
    /// Ends the film, if there is one.
    host::Problem end();

    /// From now on these samples sound, behind those that still do.
    void play(std::span<const std::uint8_t> samples);
    /// No sound any more.
    void silence() { sound_.clear(); }

private:
    host::Problem open(int flags);
    host::Problem fail(std::uint64_t frames);
    bool finish(std::uint64_t frames);
    void forget();
    void draw(const host::Frame &frame);

    FilmState &state_;
    host::Descriptor pictures_;
    host::Descriptor sounds_;
    std::vector<std::uint8_t> sound_; ///< samples that are still to sound
    std::vector<std::uint8_t> picture_;
};

} // namespace pilot
