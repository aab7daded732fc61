// A moment by which the whole program is over.
#pragma once

#include <chrono>
#include <functional>
#include <spawn.h>
#include <sys/types.h>

namespace krt {

/// From its making on, the program has so much time, whatever it waits for. When that is over it
/// ends at once with the status `findings`, and what it has started goes with it. There is one at a
/// time.
class Deadline {
  public:
    explicit Deadline(std::chrono::milliseconds time);
    ~Deadline() { lift(); }
    Deadline(Deadline const&) = delete;
    Deadline& operator=(Deadline const&) = delete;

    /// No end any more.
    static void lift();
    /// Starts a process of that kind, which gives its number or 0. Under a deadline it is the head
    /// of a group of its own, so that also what it starts itself ends with it.
    static pid_t start_watched(posix_spawnattr_t& kind, std::function<pid_t()> const& start);
};

} // namespace krt
