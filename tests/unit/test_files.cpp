#include "platform/files.h"

#include "base/items.h"
#include "platform/base.h"
#include "tests/unit/fresh_session.h"

namespace kehystin {

using Files = FreshSession;

std::vector<std::string> items_of(std::string_view bytes) {
    base::Items items(bytes);
    std::vector<std::string> found;
    while (!items.at_end())
        found.emplace_back(items.next());
    return found;
}

int error_of(auto const& work) {
    try {
        work();
    } catch (RuntimeError const& error) {
        return error.number();
    }
    return 0;
}

TEST(Items, EndAtCommasAndLineEnds) {
    using Items = std::vector<std::string>;
    EXPECT_EQ(items_of("a,b\r\nc"), (Items{"a", "b", "c"}));
    EXPECT_EQ(items_of("  a b  ,\t c\n"), (Items{"a b  ", "c"}));
    EXPECT_EQ(items_of("a\rb\n\r\nc"), (Items{"a", "b", "", "c"}));
    EXPECT_EQ(items_of(std::string_view("\0a,\"x,y\"", 8)),
              (Items{std::string("\0a", 2), "\"x", "y\""}));
    EXPECT_TRUE(items_of("").empty());
}

TEST(Items, ReadingPastTheEndRaises) {
    base::Items items("a");
    items.next();
    EXPECT_EQ(error_of([&] { items.next(); }), 62);
}

TEST_F(Files, ErrorsHaveThePlatformsNumbers) {
    EXPECT_EQ(error_of([&] { InputFile file(folder / "none"); }), 53);
    EXPECT_EQ(error_of([&] { OutputFile file(folder / "none/x"); }), 76);
    EXPECT_EQ(error_of([&] { OutputFile file(folder / "windows"); }), 75);
#ifndef _WIN32 // which has no disk that is always full
    EXPECT_EQ(error_of([] { OutputFile("/dev/full").write("x"); }), 61);
#endif
    EXPECT_EQ(error_of([] { file_exists(std::string("a\0b", 3)); }), 52);
    put_bytes(folder / "plain", "");
    EXPECT_EQ(error_of([&] { file_exists(folder / "plain/x"); }), 76);
    EXPECT_FALSE(file_exists(folder / "none/x"));
    EXPECT_FALSE(file_exists(folder / "windows"));
    EXPECT_FALSE(names_a_file(std::string(5000, 'x')));
}

TEST_F(Files, AFileThatIsTooLargeIsRefused) {
#ifndef _WIN32 // which has no file without an end
    EXPECT_EQ(error_of([] { InputFile file("/dev/zero"); }), 7);
#endif
    put_bytes(folder / "suuri", "");
    std::filesystem::resize_file(disk::path_of(folder / "suuri"), largest_input + 1);
    EXPECT_EQ(error_of([&] { InputFile file(folder / "suuri"); }), 7);
}

TEST_F(Files, ARecordKeepsWhatStandsBehindIt) {
    put_bytes(folder / "record", "abcdef");
    write_record(folder / "record", {std::byte{'x'}, std::byte{'y'}});
    EXPECT_EQ(bytes_of(folder / "record"), "xycdef");
    std::vector<std::byte> record;
    read_record(folder / "record", 100, record);
    EXPECT_EQ(record.size(), 6U);
}

} // namespace kehystin
