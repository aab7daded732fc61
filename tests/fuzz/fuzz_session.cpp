// Any bytes as a user: a session on the scripted host, with what must always hold looked at after
// each step.
#include "app/program.h"
#include "tests/fuzz/session_checks.h"
#include "tests/fuzz/session_steps.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using namespace fuzz;

constexpr int most_steps = 400;
constexpr int steps_between_readings = 50;

long steps_run = 0;

/// The folder of the process, with the cards that each session begins with.
class Folder {
  public:
    Folder() {
        auto const* const memory = "/dev/shm";
        path_ = (fs::is_directory(memory) ? fs::path(memory) : fs::temp_directory_path()) /
                ("kehystin-fuzz-" + std::to_string(::getpid()));
    }
    ~Folder() {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
        std::fprintf(stderr, "steps of users: %ld\n", steps_run);
    }
    Folder(Folder const&) = delete;
    Folder& operator=(Folder const&) = delete;

    void make_anew() const {
        fs::remove_all(path_);
        fs::create_directories(path_ / "windows");
        fs::create_directories(path_ / "program");
        constexpr char const* seeds[] = {"kaksi.krt", "linkit.krt", "lajit.krt", "huonolinkki.krt"};
        char name = 'a';
        for (auto const* const seed : seeds)
            fs::copy_file(fs::path(KEHYSTIN_SCENARIOS "/files") / seed,
                          path_ / (std::string(1, name++) + ".krt"));
        std::ofstream(path_ / "kuva.bmp") << "no picture";
    }
    std::string path() const { return path_.string() + "/"; }

  private:
    fs::path path_;
};

/// A program that starts; one that ends at once starts again.
std::unique_ptr<kehystin::Program> started(SessionHost& host) {
    host.button_down = false;
    host.rescue_was_failed = false;
    host.memory_failed = false;
    host.fail_file_operation(0, 0);
    host.fail_rescue_operation(0, 0);
    host.hover(nullptr);
    auto program = std::make_unique<kehystin::Program>(host);
    program->Main();
    return program;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    static Folder const folder;
    folder.make_anew();
    Bytes bytes({data, size});
    SessionHost host(folder.path(), bytes);
    std::unique_ptr<kehystin::Program> program;
    SessionChecks checks(host);
    auto const start_anew = [&] {
        program.reset();
        checks.after_kill();
        program = started(host);
    };
    start_anew();
    for (int i = 1; i <= most_steps && !bytes.empty(); ++i) {
        ++steps_run;
        checks.before_step();
        try {
            auto const step = host.step();
            if (step == Step::killed) {
                start_anew();
                continue;
            }
            checks.after_step(step);
        } catch (platform::SessionEnd const&) {
            program.reset();
            program = started(host);
        }
        if (i % steps_between_readings == 0)
            checks.check_round_trip();
    }
    program.reset();
    return 0;
}
