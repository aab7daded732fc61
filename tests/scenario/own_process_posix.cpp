#include "tests/scenario/own_process.h"
#include "tests/scenario/process.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <new>
#include <sys/mman.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace scenario {

namespace {

/// Memory that stays common to a process and the ones that it forks.
class SharedProgress {
  public:
    SharedProgress()
        : place_(::mmap(nullptr, sizeof(Progress), PROT_READ | PROT_WRITE,
                        MAP_SHARED | MAP_ANONYMOUS, -1, 0)) {
        if (place_ == MAP_FAILED)
            throw std::system_error(errno, std::generic_category(), "mmap");
        progress_ = new (place_) Progress;
    }
    ~SharedProgress() { ::munmap(place_, sizeof(Progress)); }
    SharedProgress(SharedProgress const&) = delete;
    SharedProgress& operator=(SharedProgress const&) = delete;

    Progress& operator*() const { return *progress_; }
    Progress* operator->() const { return progress_; }

  private:
    void* place_;
    Progress* progress_ = nullptr;
};

/// Why a process ended; empty where it ended well.
std::string cause_of_end(int status) {
    if (WIFEXITED(status) && WEXITSTATUS(status) == EXIT_SUCCESS)
        return {};
    if (!WIFSIGNALED(status))
        return "the process ended with exit code " + std::to_string(WEXITSTATUS(status));
    int const signal = WTERMSIG(status);
    if (signal == SIGALRM)
        return "still running after " + std::to_string(longest_run) + " seconds";
    return "crashed with signal " + std::to_string(signal) + " (" + ::strsignal(signal) + ")";
}

} // namespace

EndOfProcess run_in_own_process(std::string const& file, std::string const& text,
                                std::string const& folder) {
    SharedProgress const progress;
    // What waits in the buffers would be printed by both processes.
    std::cout.flush();
    std::cerr.flush();
    auto const child = ::fork();
    if (child < 0)
        throw std::system_error(errno, std::generic_category(), "fork");
    if (child == 0) {
        ::alarm(longest_run);
        run_here(file, text, folder, *progress);
        std::cout.flush();
        std::exit(EXIT_SUCCESS);
    }
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return {cause_of_end(status), progress->verdict, progress->line};
}

bool is_own_process(std::vector<std::string> const&) {
    return false; // the same program goes on in it
}

} // namespace scenario
