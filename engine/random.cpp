// The standard library's own generator with a separate state, or std::rand itself.
#include "engine/random.h"

#include <cstdint>
#include <cstdlib>

#if defined(__GLIBC__)

namespace {

/// A function, since the first numbers are drawn before main.
random_data &generator()
{
    static char state[128]; // as large as the state of std::rand
    static random_data data;
    [[maybe_unused]] static const int result = initstate_r(1, state, sizeof state, &data);
    return data;
}

} // namespace

void seedRandom(unsigned seed) { srandom_r(seed, &generator()); }

int drawRandom()
{
    std::int32_t number = 0;
    random_r(&generator(), &number);
    return number;
}

#else

void seedRandom(unsigned seed) { std::srand(seed); }

int drawRandom() { return std::rand(); }

#endif
