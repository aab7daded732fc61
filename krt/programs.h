// Starting another program, and waiting for it.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace krt {

/// A program that lies beside this one, and the words that go before all others.
struct Program {
    std::string file;
    std::vector<std::string> words = {};
};

/// The program that paints; nothing where there is none.
std::optional<Program> find_painter();

/// What a program wrote.
struct Ran {
    std::string bytes;
    std::optional<int> status = {}; ///< nothing where it did not end by itself
};

/// Runs it with these bytes on its standard input and this process's standard error. It ends with
/// this process's Deadline, and when it writes more than so many bytes: there is one more then.
/// Nothing where it cannot be started.
std::optional<Ran> run(Program const& program, std::vector<std::string> const& words,
                       std::string_view input, std::size_t most_bytes);

} // namespace krt
