#include "tests/scenario/process.h"

#include <cstdlib>
#include <exception>
#include <iostream>

int main(int count, char** arguments) {
    if (count < 2) {
        std::cerr << "kehystin_scenario FILE...\n";
        return EXIT_FAILURE;
    }
    try {
        int passed = 0;
        for (int i = 1; i < count; ++i)
            passed += scenario::run_in_process(arguments[i]) ? 1 : 0;
        int const failed = count - 1 - passed;
        std::cout << passed << " passed, " << failed << " failed" << std::endl;
        return failed == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
    } catch (std::exception const& error) {
        std::cerr << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
