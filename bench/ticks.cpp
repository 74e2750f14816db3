// The game's own work in nanoseconds. It is built for this machine and for the page, which
// bench/web.js compares.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <limits>

#include "game.h"

namespace {

constexpr int runs = 10;
constexpr int times = 20'000; ///< so that a run is long, by the coarse clock of a browser too

/// Prints how long `work` takes in the fastest run, which nothing else disturbed.
template <class Work>
void measure(const char *what, Work work)
{
    using Clock = std::chrono::steady_clock;
    double least = std::numeric_limits<double>::max();
    for (int run = 0; run < runs; ++run) {
        const auto start = Clock::now();
        for (int i = 0; i < times; ++i) {
            work();
        }
        least =
            std::min(least, std::chrono::duration<double, std::nano>(Clock::now() - start).count());
    }
    std::printf("%s %.1f\n", what, least / times);
}

} // namespace

int main()
{
    Game game;
    measure("tick", [&] { game.fall(); });
    measure("update", [&] { game.update(); });
    game.settle(100);
    measure("repaint", [&] { game.repaint(); });
}
