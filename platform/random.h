// Random numbers.
#pragma once

namespace platform {

/// Stirs the generator with the clock. The sequence goes on: it never starts over.
void Randomize();
/// At least 0 and below 1.
double Rnd();

} // namespace platform
