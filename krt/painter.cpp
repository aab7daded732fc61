#include "krt/painter.h"

#include "card/format.h"
#include "card/writing.h"
#include "krt/deadline.h"
#include "krt/files.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
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

constexpr char const* name = "krt-draw"; // beside krt itself

/// Bytes of a drawing, which stands in memory until the old file can be replaced.
constexpr std::size_t largest_picture = 64U * 1024 * 1024;

/// The link by which krt may have been started is not where it lies.
std::optional<fs::path> find_program() {
    std::error_code ignored;
    auto const folder = fs::read_symlink("/proc/self/exe", ignored).parent_path();
    auto const place = folder / name;
    if (folder.empty() || !fs::is_regular_file(place, ignored) || access(place.c_str(), X_OK) != 0)
        return std::nullopt;
    return place;
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

/// The card as it is read again: a file of the editor's would end most texts at their first comma.
std::string guarded_bytes(kehystin::CardData& card) {
    using namespace kehystin;
    auto const guard = [](MemberRef const& member) {
        auto const* const text = std::get_if<FixedTextRef>(&member);
        if (!text)
            return;
        std::string bytes(text->bytes());
        std::replace(bytes.begin(), bytes.end(), ',', comma_stand_in);
        text->assign_bytes(bytes);
    };
    for (auto const& member : card_members())
        if (member.last == 0)
            guard(member.ref(card.card, 0));
    for (int i = 1; i <= card.card.fields; ++i)
        for (auto const& member : field_members())
            guard(member.ref(card.field(i)));
    return write_card(card);
}

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
    // Ignored, as the one who starts krt may have it, it would take the end of the process with it.
    std::signal(SIGCHLD, SIG_DFL);
    posix_spawnattr_t kind;
    posix_spawnattr_init(&kind);
    auto const process = Deadline::start_watched(kind, [&] {
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
std::optional<Status> end_of(pid_t process) {
    int status = 0;
    pid_t ended = 0;
    do
        ended = waitpid(process, &status, 0);
    while (ended < 0 && errno == EINTR);
    if (ended != process || !WIFEXITED(status) ||
        WEXITSTATUS(status) > static_cast<int>(Status::failed))
        return std::nullopt;
    return static_cast<Status>(WEXITSTATUS(status));
}

} // namespace

std::optional<Painted> paint(std::vector<std::string> const& words, kehystin::CardData card) {
    auto const program = find_program();
    if (!program) {
        complain(name, "piirtävää ohjelmaa ei ole asennettu krt:n viereen");
        return std::nullopt;
    }
    auto const in = file_of(guarded_bytes(card));
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
    auto const end = end_of(process);
    if (painted.bytes.size() > largest_picture) {
        complain(words.front(), "kuvasta tulee liian suuri, yli 64 Mt");
        return std::nullopt;
    }
    painted.status = end.value_or(Status::failed);
    if (!end || (painted.status != Status::failed && painted.bytes.empty())) {
        complain(name, "ei toimi");
        return std::nullopt;
    }
    if (painted.status == Status::failed)
        return std::nullopt;
    return painted;
}

} // namespace krt
