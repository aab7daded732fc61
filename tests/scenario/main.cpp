#include "disk/disk.h"
#include "tests/scenario/process.h"

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <iostream>

int main(int count, char** arguments) {
    auto const files = disk::words_of(count, arguments);
    if (files.empty()) {
        std::cerr << "kehystin_scenario FILE...\n";
        return EXIT_FAILURE;
    }
    try {
        if (scenario::is_own_process(files))
            return EXIT_SUCCESS;
        auto const passed = std::count_if(files.begin(), files.end(), scenario::run_in_process);
        auto const failed = std::ssize(files) - passed;
        std::cout << passed << " passed, " << failed << " failed" << std::endl;
        return failed == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
    } catch (std::exception const& error) {
        std::cerr << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
