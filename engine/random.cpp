// An additive feedback generator of degree 31: each number is the sum of the ones 31 and 3 steps
// before it, less its lowest bit, which is the least random. The first 31 come from a linear
// congruential generator, and 310 numbers are drawn before the first is given out. This is the
// sequence that `rand` of the GNU C library has, with which the game has always been played.
#include "engine/random.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace {

constexpr std::size_t degree = 31;
constexpr std::size_t separation = 3;

struct Generator
{
    std::array<std::uint32_t, degree> terms;
    std::size_t oldest = separation; ///< the term 31 steps back, which the next one replaces

    constexpr explicit Generator(unsigned seed) : terms{}
    {
        auto term = static_cast<std::int32_t>(seed == 0 ? 1 : seed);
        for (std::uint32_t &each : terms) {
            each = static_cast<std::uint32_t>(term);
            term = static_cast<std::int32_t>(std::int64_t{16807} * term % 2147483647);
            term += term < 0 ? 2147483647 : 0;
        }
        for (std::size_t i = 0; i < 10 * degree; ++i) {
            draw();
        }
    }

    constexpr std::uint32_t draw()
    {
        const std::size_t recent = (oldest + degree - separation) % degree;
        const std::uint32_t sum = terms[oldest] += terms[recent];
        oldest = (oldest + 1) % degree;
        return sum >> 1U;
    }
};

/// Ready before anything else: the game object draws from it in its constructor, before main.
constinit Generator generator(1);

} // namespace

void seedRandom(unsigned seed) { generator = Generator(seed); }

int drawRandom() { return static_cast<int>(generator.draw()); }
