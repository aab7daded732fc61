// A moment by which the whole program is over.
#pragma once

#include <chrono>

namespace krt {

/// From its making on, the program has so much time, whatever it waits for. When that is over it
/// ends at once with the status `findings`, and what it has run() goes with it. There is one at a
/// time.
class Deadline {
  public:
    explicit Deadline(std::chrono::milliseconds time);
    ~Deadline() { lift(); }
    Deadline(Deadline const&) = delete;
    Deadline& operator=(Deadline const&) = delete;

    /// No end any more.
    static void lift();
};

} // namespace krt
