// A hostile file takes no more memory than the tool may have.
#include "tests/krt/tool.h"

#ifndef __SANITIZE_ADDRESS__ // which takes several times as much for itself

#include <sys/resource.h>

namespace {

constexpr std::size_t mebibyte = 1024UL * 1024;

/// MiB of the largest process so far that the test has started.
double most_memory() {
    rusage used{};
    getrusage(RUSAGE_CHILDREN, &used);
    return static_cast<double>(used.ru_maxrss) / 1024;
}

/// Each text is too long, each key stands where it is looked for last, and one stands again until
/// the file has its size.
void write_hostile(fs::path const& file, std::size_t size) {
    std::ofstream to(file, std::ios::binary);
    to << "Norvak Cardfile\r\ncard.fields=300,card.width=900,card.height=900\r\n";
    std::string const text(4096, '\x80'); // three bytes each in memory
    for (int i = 300; i > 0; --i)
        for (auto const* const name : {"caption", "group", "list", "value"})
            to << "field(" << i << ")." << name << '=' << text << "\r\n";
    for (auto at = static_cast<std::size_t>(to.tellp()); at + 8 <= size; at += 8)
        to << "card.ID,";
}

} // namespace

TEST_F(Krt, WhatIsFoundInAFileTakesLittleMemory) {
    write_hostile(folder / "a.krt", 5 * mebibyte);
    for (auto const* const words :
         {"check a.krt", "check --json a.krt", "json a.krt", "links a.krt", "repair a.krt",
          "form a.krt", "diff a.krt a.krt"}) {
        EXPECT_EQ(run(words), 1) << err.substr(0, 200);
        EXPECT_LT(most_memory(), 25) << words; // the largest file needs 64 more, and an index
    }
}

TEST_F(Krt, TheLargestFilesTakeNoMoreMemoryThanThereMayBe) {
    write_hostile(folder / "a.krt", 64 * mebibyte);
    EXPECT_EQ(run("links a.krt a.krt"), 1);
    EXPECT_LT(most_memory(), 90);
}

#endif
