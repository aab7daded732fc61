#include "platform/base.h"

#include <gtest/gtest.h>

using namespace platform;

TEST(Text, EveryByteSurvivesTheRoundTrip) {
    std::string all;
    for (int i = 0; i < 256; ++i)
        all += static_cast<char>(i);
    EXPECT_EQ(to_code_page(from_code_page(all)), all);
    EXPECT_EQ(from_code_page("\x80\xA4\xE4"), "€¤ä");
}

TEST(Text, ForeignAndBrokenCharactersBecomeQuestionMarks) {
    EXPECT_EQ(to_code_page("a日b"), "a?b");
    EXPECT_EQ(to_code_page("😀"), "?");
    EXPECT_EQ(to_code_page("\xFF\xC3"), "??");
    // A line break written longer than it is, half a pair, and beyond the last character.
    EXPECT_EQ(to_code_page("\xC0\x8A\xE0\x80\x8A\xF0\x80\x80\x8A"), "?????????");
    EXPECT_EQ(Len("\xED\xA0\x80\xF4\x90\x80\x80"), 7U);
}

TEST(Text, UpperCaseCoversTheCodePage) {
    EXPECT_EQ(UCase("åäöšžœÿ÷ß日"), "ÅÄÖŠŽŒŸ÷ß日");
}

TEST(Text, TrimTakesBlanksOnly) {
    EXPECT_EQ(Trim("  a b  "), "a b");
    EXPECT_EQ(Trim("\ta\r\n"), "\ta\r\n");
    EXPECT_EQ(Trim("   "), "");
}

TEST(Text, LengthsAreCharacters) {
    EXPECT_EQ(Len("äiti"), 4U);
    EXPECT_EQ(Left("äiti", 2), "äi");
}

TEST(Text, PathsTakeEitherSeparator) {
    EXPECT_EQ(file_part("C:\\kortit\\a.krt"), "a.krt");
    EXPECT_EQ(file_part("/kortit\\x/a.krt"), "a.krt");
    EXPECT_EQ(folder_part("/kortit/a.krt"), "/kortit/");
    EXPECT_EQ(folder_part("a.krt"), "");
#ifdef _WIN32
    EXPECT_EQ(folder_part("C:a.krt") + "|" + file_part("C:a.krt"), "C:|a.krt");
    EXPECT_EQ(with_separator("C:"), "C:");
#endif
    EXPECT_EQ(with_separator("C:\\win\\"), "C:\\win\\");
}

TEST(FixedText, CutsPadsAndStartsAsNuls) {
    FixedText<5> text;
    EXPECT_EQ(text.bytes(), std::string_view("\0\0\0\0\0", 5));
    EXPECT_FALSE(text.is_blank());
    text = "äö";
    EXPECT_EQ(text.str(), "äö   ");
    text = "abcdefg";
    EXPECT_EQ(text.str(), "abcde");
    text = "  x";
    EXPECT_EQ(text.trim(), "x");
    EXPECT_EQ(text.str(), "x    ");
}

TEST(Dates, ReadsThreeFormsAndNoOthers) {
    auto const day = to_date({2004, 5, 17});
    for (auto const* const text : {"17.5.2004", "17.05.2004", "2004-05-17", " 17.5.2004 "})
        EXPECT_EQ(read_date(text), day) << text;
    for (auto const* const text :
         {"", "17.5.", "30.2.2004", "17.13.2004", "17/5/2004", "1.1.20004", "17.5.2004x",
          "-1.5.2004", "17.5", "29.2.1900", "1.257.2003", "273.1.2003"})
        EXPECT_FALSE(read_date(text)) << text;
    EXPECT_EQ(to_date({1899, 12, 30}), 0);
    EXPECT_EQ(short_date(day), "17.5.2004");
}

TEST(Dates, TheTimeOfDayComesBackWhole) {
    auto const time = from_date(to_date({2004, 5, 17, 9, 30}));
    EXPECT_EQ(time.hour, 9);
    EXPECT_EQ(time.minute, 30);
}
