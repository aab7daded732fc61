#include "tests/scenario/process.h"

#include "disk/disk.h"
#include "tests/scenario/own_process.h"
#include "tests/temporary_folder.h"

#include <fstream>
#include <iostream>
#include <sstream>

namespace scenario {

std::optional<std::string> read_scenario(std::string const& file) {
    std::ifstream input(disk::path_of(file), std::ios::binary);
    std::ostringstream text;
    text << input.rdbuf(); // fails for an empty scenario, which is none the worse for it
    if (!input || disk::kind_of(file) == disk::Kind::folder)
        return std::nullopt;
    return std::move(text).str();
}

void run_here(std::string const& file, std::string const& text, std::string const& folder,
              Progress& progress) {
    auto const beside = disk::text_of(std::filesystem::absolute(disk::path_of(file)).parent_path());
    std::filesystem::current_path(disk::path_of(folder));
    World world(folder, beside);
    Interpreter(file, read_script(text), world, progress).run();
}

bool run_in_process(std::string const& file) {
    auto const text = read_scenario(file);
    if (!text) {
        std::cout << file << ":0: expected a scenario, found no file that can be read" << std::endl;
        return false;
    }
    // Its path is short, for it takes room in the fixed texts of the records.
    tests::TemporaryFolder const folder("k");
    auto const end = run_in_own_process(file, *text, folder.path());
    bool const passed = end.cause.empty() && end.verdict == Verdict::passed;
    if (passed)
        std::cout << "ok " << file << std::endl;
    else if (end.verdict != Verdict::failed)
        std::cout << file << ':' << end.line << ": "
                  << (end.cause.empty() ? "the process ended with exit code 0" : end.cause)
                  << std::endl;
    return passed;
}

} // namespace scenario
