// An additive lagged Fibonacci generator: each number is the sum of those 31 and 3 before it. The
// sequences are those of the GNU C library's rand, on every machine.
#include "engine/random.h"

#include <array>

namespace {

class Generator
{
public:
    explicit Generator(std::uint32_t seed);

    std::uint32_t draw()
    {
        sums_[oldest_] += sums_[(oldest_ + longLag - shortLag) % longLag];
        const std::uint32_t sum = sums_[oldest_];
        oldest_ = (oldest_ + 1) % longLag;
        return sum >> 1U; // the lowest bit has a short period
    }

private:
    static constexpr std::size_t longLag = 31;
    static constexpr std::size_t shortLag = 3;

    std::array<std::uint32_t, longLag> sums_{}; ///< the last ones, in a ring
    std::size_t oldest_ = shortLag;             ///< at first, the first three are the last
};

/// The first sums come from a multiplicative generator, and the seed shows in them: ten rounds mix
/// them well.
Generator::Generator(std::uint32_t seed)
{
    constexpr std::int64_t multiplier = 16807;
    constexpr std::int64_t modulus = 0x7FFFFFFF;
    auto number = static_cast<std::int32_t>(seed == 0 ? 1 : seed);
    for (std::uint32_t &sum : sums_) {
        sum = static_cast<std::uint32_t>(number);
        const std::int64_t next = number * multiplier % modulus;
        number = static_cast<std::int32_t>(next < 0 ? next + modulus : next);
    }
    for (std::size_t i = 0; i < 10 * longLag; ++i) {
        draw();
    }
}

/// Made when it is first wanted, which is before main.
Generator &generator()
{
    static Generator only(1);
    return only;
}

} // namespace

void seedRandom(std::uint32_t seed) { generator() = Generator(seed); }

std::uint32_t drawRandom() { return generator().draw(); }
