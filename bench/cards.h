// Cards that benchmarks read.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>

namespace bench_cards {

inline std::string const large_card = KEHYSTIN_SOURCES "/examples/kolmesataa.krt"; ///< 300 fields

inline std::string bytes_of(std::string const& path) {
    std::ifstream from(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(from), {}};
}

inline void put_bytes(std::string const& path, std::string const& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

/// The large card without the keys that came with later versions.
inline std::string old_bytes() {
    std::istringstream from(bytes_of(large_card));
    std::string old;
    for (std::string line; std::getline(from, line);) {
        bool dropped = false;
        for (auto const* const key : {").align=", ").scaling=", ").border=", ").linkitys="})
            dropped = dropped || line.find(key) != std::string::npos;
        if (!dropped)
            old += line + '\n';
    }
    return old;
}

/// The large card with its first `count` fields.
inline std::string with_fields(int count) {
    auto bytes = bytes_of(large_card);
    std::string const key = "card.fields=300";
    return bytes.replace(bytes.find(key), key.size(), "card.fields=" + std::to_string(count))
        .substr(0, bytes.find("field(" + std::to_string(count + 1) + ").style"));
}

/// A folder for what a benchmark writes.
inline std::string folder() {
    auto const path = std::filesystem::temp_directory_path() / "kehystin-bench/";
    std::filesystem::create_directories(path);
    std::filesystem::remove_all(path / "state"); // what a session before has kept
    return path.string();
}

} // namespace bench_cards
