#include "krt/commands.h"
#include "krt/deadline.h"
#include "krt/programs.h"
#include "krt/streams.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <malloc.h>
#include <memory>
#include <spawn.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

namespace krt {

namespace fs = std::filesystem;

void begin_process() {
    // What a large file took goes back when it is done with. By itself the library keeps more from
    // file to file.
    mallopt(M_MMAP_THRESHOLD, 1024 * 1024);
}

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

/// Starts a process of that kind, which gives its number or 0. Under a deadline it is the head of a
/// group of its own, so that also what it starts itself ends with it.
pid_t start_watched(posix_spawnattr_t& kind, std::function<pid_t()> const& start) {
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

namespace {

struct Descriptor {
    int number = -1;

    explicit Descriptor(int opened) : number(opened) {}
    ~Descriptor() { close(); }
    Descriptor(Descriptor const&) = delete;
    Descriptor& operator=(Descriptor const&) = delete;
    void close() {
        if (number >= 0)
            ::close(number);
        number = -1;
    }
};

using TemporaryFile = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

/// A file and not a pipe: the program may end before it has read everything.
TemporaryFile file_of(std::string_view bytes) {
    TemporaryFile file(std::tmpfile(), std::fclose);
    bool const whole =
        file && std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size();
    if (!whole || std::fflush(file.get()) != 0 || std::fseek(file.get(), 0, SEEK_SET) != 0)
        file.reset();
    return file;
}

/// Up to the end or one byte beyond the limit.
std::string read_to_end(int descriptor, std::size_t most_bytes) {
    std::string bytes;
    std::array<char, 64 * 1024> piece;
    bytes.reserve(most_bytes + piece.size()); // grown, it would stand twice
    while (bytes.size() <= most_bytes) {
        auto const got = read(descriptor, piece.data(), piece.size());
        if (got > 0)
            bytes.append(piece.data(), static_cast<std::size_t>(got));
        else if (got == 0 || errno != EINTR)
            break;
    }
    return bytes;
}

/// The process, or 0.
pid_t start(std::string const& program, std::vector<std::string> const& words, int in, int out) {
    std::vector<char*> arguments{const_cast<char*>(program.c_str())};
    for (auto const& word : words)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t streams;
    posix_spawn_file_actions_init(&streams);
    posix_spawn_file_actions_adddup2(&streams, in, STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&streams, out, STDOUT_FILENO);
    // Ignored, as the one who starts krt may have it, it would take the end of the process with it.
    std::signal(SIGCHLD, SIG_DFL);
    posix_spawnattr_t kind;
    posix_spawnattr_init(&kind);
    auto const process = start_watched(kind, [&] {
        pid_t begun = 0;
        bool const started =
            posix_spawn(&begun, program.c_str(), &streams, &kind, arguments.data(), environ) == 0;
        return started ? begun : 0;
    });
    posix_spawnattr_destroy(&kind);
    posix_spawn_file_actions_destroy(&streams);
    return process;
}

/// Nothing where it did not end by itself.
std::optional<int> end_of(pid_t process) {
    int status = 0;
    pid_t ended = 0;
    do
        ended = waitpid(process, &status, 0);
    while (ended < 0 && errno == EINTR);
    if (ended != process || !WIFEXITED(status))
        return std::nullopt;
    return WEXITSTATUS(status);
}

} // namespace

/// The link by which krt may have been started is not where it lies.
std::optional<Program> find_painter() {
    std::error_code ignored;
    auto const folder = fs::read_symlink("/proc/self/exe", ignored).parent_path();
    auto const place = folder / "krt-draw";
    if (folder.empty() || !fs::is_regular_file(place, ignored) || access(place.c_str(), X_OK) != 0)
        return std::nullopt;
    return Program{place.string()};
}

std::optional<Ran> run(Program const& program, std::vector<std::string> const& words,
                       std::string_view input, std::size_t most_bytes) {
    auto const in = file_of(input);
    int ends[2];
    if (!in || pipe2(ends, O_CLOEXEC) != 0)
        return std::nullopt;
    Descriptor from(ends[0]);
    Descriptor to(ends[1]);
    auto all = program.words;
    all.insert(all.end(), words.begin(), words.end());
    auto const process = start(program.file, all, fileno(in.get()), to.number);
    if (process == 0)
        return std::nullopt;
    to.close();
    Ran ran{read_to_end(from.number, most_bytes)};
    from.close(); // a program that still writes ends
    ran.status = end_of(process);
    return ran;
}

} // namespace krt
