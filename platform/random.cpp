#include "platform/random.h"

#include <chrono>
#include <random>

namespace platform {

namespace {

std::mt19937_64& generator() {
    static std::mt19937_64 engine{std::random_device{}()};
    return engine;
}

} // namespace

void Randomize() {
    auto const now = std::chrono::steady_clock::now().time_since_epoch().count();
    generator().seed(generator()() ^ static_cast<std::uint64_t>(now));
}

double Rnd() {
    return std::uniform_real_distribution<double>(0, 1)(generator());
}

} // namespace platform
