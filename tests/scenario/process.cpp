#include "tests/scenario/process.h"

#include "tests/scenario/interpreter.h"

#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <new>
#include <sstream>
#include <sys/mman.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace scenario {

namespace {

/// A scenario that hangs is stopped after this time.
constexpr unsigned longest_run = 300; // seconds

/// An empty folder that goes with the object. Its path is short, for it takes room in the fixed
/// texts of the records.
class TemporaryFolder {
  public:
    TemporaryFolder() : path_((std::filesystem::temp_directory_path() / "kXXXXXX").string()) {
        if (!::mkdtemp(path_.data()))
            throw std::system_error(errno, std::generic_category(), path_);
        path_ = std::filesystem::canonical(path_).string();
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(TemporaryFolder const&) = delete;
    TemporaryFolder& operator=(TemporaryFolder const&) = delete;

    std::string const& path() const { return path_; }

  private:
    std::string path_;
};

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

/// All that happens in the scenario's own process.
void run_here(std::string const& file, std::string const& text, std::string const& folder,
              Progress& progress) {
    auto const beside = std::filesystem::absolute(file).parent_path().string();
    std::filesystem::current_path(folder);
    ::alarm(longest_run);
    World world(folder, beside);
    Interpreter(file, read_script(text), world, progress).run();
}

/// Why a process ended that gave no verdict of its own.
std::string cause_of_end(int status) {
    if (!WIFSIGNALED(status))
        return "the process ended with exit code " + std::to_string(WEXITSTATUS(status));
    int const signal = WTERMSIG(status);
    if (signal == SIGALRM)
        return "still running after " + std::to_string(longest_run) + " seconds";
    return "crashed with signal " + std::to_string(signal) + " (" + ::strsignal(signal) + ")";
}

} // namespace

bool run_in_process(std::string const& file) {
    std::ifstream input(file, std::ios::binary);
    std::ostringstream text;
    text << input.rdbuf(); // fails for an empty scenario, which is none the worse for it
    if (!input || std::filesystem::is_directory(file)) {
        std::cout << file << ":0: expected a scenario, found no file that can be read" << std::endl;
        return false;
    }
    TemporaryFolder const folder;
    SharedProgress const progress;
    // What waits in the buffers would be printed by both processes.
    std::cout.flush();
    std::cerr.flush();
    auto const child = ::fork();
    if (child < 0)
        throw std::system_error(errno, std::generic_category(), "fork");
    if (child == 0) {
        run_here(file, text.str(), folder.path(), *progress);
        std::cout.flush();
        std::exit(EXIT_SUCCESS);
    }
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    bool const clean_end = WIFEXITED(status) && WEXITSTATUS(status) == EXIT_SUCCESS;
    bool const passed = clean_end && progress->verdict == Verdict::passed;
    if (passed)
        std::cout << "ok " << file << std::endl;
    else if (progress->verdict != Verdict::failed)
        std::cout << file << ':' << progress->line << ": " << cause_of_end(status) << std::endl;
    return passed;
}

} // namespace scenario
