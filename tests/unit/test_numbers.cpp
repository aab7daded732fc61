#include "platform/base.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace platform;

TEST(Numbers, ValReadsTheLeadingNumber) {
    EXPECT_EQ(Val("12abc"), 12);
    EXPECT_EQ(Val("  -3.5 kg"), -3.5);
    EXPECT_EQ(Val("1e3"), 1000);
    EXPECT_EQ(Val(".5"), 0.5);
    EXPECT_EQ(Val("+7"), 7);
    for (auto const* const text : {"", "abc", "-", "--1", "+-1", "inf", "nan", "e5", "0x10"})
        EXPECT_EQ(Val(text), 0) << text;
}

TEST(Numbers, ValOfHugeAndTinyNumbersStaysOrdered) {
    EXPECT_EQ(Val("1e999"), INFINITY);
    EXPECT_EQ(Val("-" + std::string(400, '9')), -INFINITY);
    EXPECT_EQ(Val("1e-999"), 0);
}

TEST(Numbers, RoundingTiesGoToTheEvenNeighbour) {
    EXPECT_EQ(round_to_even(0.5), 0);
    EXPECT_EQ(round_to_even(1.5), 2);
    EXPECT_EQ(round_to_even(-0.5), 0);
    EXPECT_EQ(round_to_even(-1.5), -2);
    EXPECT_EQ(round_to_even(44.5), 44);
    EXPECT_EQ(round_to_even(45.5), 46);
    EXPECT_EQ(Integer(2.5), 2);
}

TEST(Numbers, FormatIsPlain) {
    EXPECT_EQ(Format(1.5), "2");
    EXPECT_EQ(Format(-0.4), "0");
    EXPECT_EQ(Format(-2147483648.0), "-2147483648");
    EXPECT_EQ(Format(1e15), "1000000000000000");
}

TEST(Numbers, IntegersRaiseInsteadOfWrapping) {
    Integer const largest = 32767;
    Integer const smallest = -32768;
    EXPECT_THROW(largest + 1, RuntimeError);
    EXPECT_THROW(smallest - 1, RuntimeError);
    EXPECT_THROW(-smallest, RuntimeError);
    EXPECT_THROW(Integer(200) * 200, RuntimeError);
    EXPECT_THROW(Integer(32767.5), RuntimeError);
    EXPECT_THROW(Integer(NAN), RuntimeError);
    EXPECT_EQ(Integer(7) / 2, 3.5);
    EXPECT_EQ(largest + 0.5, 32767.5);
    try {
        Integer(40000);
        FAIL();
    } catch (RuntimeError const& error) {
        EXPECT_EQ(error.number(), 6);
        EXPECT_EQ(error.text(), "Ylivuoto");
    }
}
