#include "krt/deadline.h"

#include "krt/commands.h"

#include <csignal>
#include <sys/time.h>
#include <unistd.h>

namespace krt {

namespace {

bool is_set = false;
volatile std::sig_atomic_t watched = 0; ///< head of the group that ends with krt, 0 for none

extern "C" void give_up(int) {
    if (watched != 0)
        kill(-watched, SIGKILL);
    _exit(static_cast<int>(Status::findings));
}

void set_timer(std::chrono::milliseconds time) {
    itimerval wanted{};
    wanted.it_value.tv_sec = time.count() / 1000;
    wanted.it_value.tv_usec = time.count() % 1000 * 1000;
    setitimer(ITIMER_REAL, &wanted, nullptr);
}

} // namespace

Deadline::Deadline(std::chrono::milliseconds time) {
    std::signal(SIGALRM, give_up);
    is_set = true;
    set_timer(time);
}

void Deadline::lift() {
    set_timer({});
    is_set = false;
    watched = 0;
}

pid_t Deadline::start_watched(posix_spawnattr_t& kind, std::function<pid_t()> const& start) {
    if (!is_set)
        return start();
    // The moment may not come between its start and the note of its number.
    sigset_t moment;
    sigset_t before;
    sigemptyset(&moment);
    sigaddset(&moment, SIGALRM);
    sigprocmask(SIG_BLOCK, &moment, &before);
    posix_spawnattr_setsigmask(&kind, &before);
    posix_spawnattr_setpgroup(&kind, 0);
    posix_spawnattr_setflags(&kind, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETPGROUP);
    auto const process = start();
    watched = process;
    sigprocmask(SIG_SETMASK, &before, nullptr);
    return process;
}

} // namespace krt
