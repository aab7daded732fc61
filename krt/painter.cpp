#include "krt/painter.h"

#include "krt/files.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace krt {

namespace {

namespace fs = std::filesystem;

constexpr char const* name = "krt-draw";

/// Bytes of a drawing, which stands in memory until the old file can be replaced.
constexpr std::size_t largest_picture = 64U * 1024 * 1024;

/// Beside krt itself, or where programs are installed that only programs start.
std::optional<fs::path> find_program() {
    std::error_code ignored;
    auto const folder = fs::read_symlink("/proc/self/exe", ignored).parent_path();
    for (auto const& place : {folder / name, folder / "../libexec/kehystin" / name})
        if (!folder.empty() && fs::is_regular_file(place, ignored) &&
            access(place.c_str(), X_OK) == 0)
            return place;
    return std::nullopt;
}

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
std::string read_to_end(int descriptor) {
    std::string bytes;
    std::array<char, 64 * 1024> piece;
    bytes.reserve(largest_picture + piece.size()); // grown, it would stand twice
    while (bytes.size() <= largest_picture) {
        auto const got = read(descriptor, piece.data(), piece.size());
        if (got > 0)
            bytes.append(piece.data(), static_cast<std::size_t>(got));
        else if (got == 0 || errno != EINTR)
            break;
    }
    return bytes;
}

/// The process, or 0.
pid_t start(fs::path const& program, std::vector<std::string> const& words, int in, int out) {
    std::vector<char*> arguments{const_cast<char*>(name)};
    for (auto const& word : words)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t streams;
    posix_spawn_file_actions_init(&streams);
    posix_spawn_file_actions_adddup2(&streams, in, STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&streams, out, STDOUT_FILENO);
    pid_t process = 0;
    bool const started =
        posix_spawn(&process, program.c_str(), &streams, nullptr, arguments.data(), environ) == 0;
    posix_spawn_file_actions_destroy(&streams);
    return started ? process : 0;
}

Status end_of(pid_t process) {
    int status = 0;
    while (waitpid(process, &status, 0) < 0 && errno == EINTR)
        ;
    bool const ended = WIFEXITED(status) && WEXITSTATUS(status) <= static_cast<int>(Status::failed);
    if (!ended)
        complain(name, "ei toimi");
    return ended ? static_cast<Status>(WEXITSTATUS(status)) : Status::failed;
}

} // namespace

std::optional<Painted> paint(std::vector<std::string> const& words, std::string_view card) {
    auto const program = find_program();
    if (!program) {
        complain(name, "piirtävää ohjelmaa ei ole asennettu krt:n viereen");
        return std::nullopt;
    }
    auto const in = file_of(card);
    int ends[2];
    if (!in || pipe2(ends, O_CLOEXEC) != 0) {
        complain(name, "ei voi käynnistää");
        return std::nullopt;
    }
    Descriptor from(ends[0]);
    Descriptor to(ends[1]);
    auto const process = start(*program, words, fileno(in.get()), to.number);
    if (process == 0) {
        complain(name, "ei voi käynnistää");
        return std::nullopt;
    }
    to.close();
    Painted painted;
    painted.bytes = read_to_end(from.number);
    from.close(); // a program that still writes ends
    if (painted.bytes.size() > largest_picture) {
        int ignored = 0;
        while (waitpid(process, &ignored, 0) < 0 && errno == EINTR)
            ;
        complain(words.front(), "kuvasta tulee liian suuri, yli 64 Mt");
        return std::nullopt;
    }
    painted.status = end_of(process);
    if (painted.status == Status::failed)
        return std::nullopt;
    return painted;
}

} // namespace krt
