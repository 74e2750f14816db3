// The standard library's own generator with a separate state, or std::rand itself.
#include "engine/random.h"

#include <cstdint>
#include <cstdlib>

#if defined(__GLIBC__)

namespace {

struct Generator
{
    char state[128]; // as large as the state of std::rand
    random_data data;

    explicit Generator(unsigned seed) : state{}, data{}
    {
        initstate_r(seed, state, sizeof state, &data);
    }
};

/// A function, since the first numbers are drawn before main.
Generator &generator()
{
    static Generator only(1);
    return only;
}

} // namespace

void seedRandom(unsigned seed) { srandom_r(seed, &generator().data); }

int drawRandom()
{
    std::int32_t number = 0;
    random_r(&generator().data, &number);
    return number;
}

#else

void seedRandom(unsigned seed) { std::srand(seed); }

int drawRandom() { return std::rand(); }

#endif
