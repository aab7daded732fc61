// The tool as a program, run in a folder of its own.
#pragma once

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sys/wait.h>

namespace fs = std::filesystem;
using Json = nlohmann::json;

inline std::string bytes_of(fs::path const& file) {
    std::ifstream from(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(from), {}};
}

/// The beginning of a BMP of that size; there is no more of it.
inline std::string picture_header(int width, int height) {
    std::string bytes = "BM" + std::string(8, '\0') + std::string("\x36\0\0\0\x28\0\0\0", 8);
    for (int const number : {width, height, 1 + (24 << 16), 0, 0, 0, 0, 0, 0})
        for (int i = 0; i < 4; ++i)
            bytes += static_cast<char>(number >> (8 * i));
    return bytes;
}

class Krt : public testing::Test {
  protected:
    void SetUp() override {
        std::string pattern = fs::temp_directory_path() / "krt.XXXXXX";
        ASSERT_TRUE(mkdtemp(pattern.data()));
        folder = pattern;
    }
    void TearDown() override { fs::remove_all(folder); }

    /// Runs the tool in the test's folder, by a shell.
    int run(std::string const& arguments, std::string const& behind = "") {
        auto const command = "cd '" + folder.string() + "' && '" KRT_PROGRAM "' " + arguments +
                             " >out 2>err </dev/null" + behind;
        int const status = std::system(command.c_str());
        out = bytes_of(folder / "out");
        err = bytes_of(folder / "err");
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    std::string take(std::string const& example) {
        fs::copy_file(fs::path(KRT_EXAMPLES) / example, folder / example,
                      fs::copy_options::overwrite_existing);
        return example;
    }
    void write(std::string const& name, std::string_view bytes) const {
        std::ofstream(folder / name, std::ios::binary) << bytes;
    }
    /// An example with one text replaced by another.
    void write_changed(std::string const& name, std::string const& example, std::string const& from,
                       std::string const& to) {
        auto bytes = bytes_of(fs::path(KRT_EXAMPLES) / example);
        auto const at = bytes.find(from);
        ASSERT_NE(at, std::string::npos) << from;
        write(name, bytes.replace(at, from.size(), to));
    }

    fs::path folder;
    std::string out, err;
};
