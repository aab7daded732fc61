// Numbers: reading, rounding, formatting, and 16-bit arithmetic that raises instead of wrapping.
#pragma once

#include "base/errors.h"

#include <compare>
#include <concepts>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

namespace kehystin::base {

/// The number that a text begins with, leading blanks skipped; 0 when it begins with none.
double Val(std::string_view text);

/// Rounded to a whole number, ties to the even neighbour.
double round_to_even(double value);

/// Rounds to a 32-bit whole number, ties to even; raises overflow when it does not fit.
std::int32_t to_long(double value);
/// Rounds to a 32-bit float; raises overflow when it is too large for one.
float to_single(double value);

/// Format(value, "0"): a whole number without grouping. A half is rounded away from zero, unlike
/// in conversions: that is how the platform's formatting does it.
std::string Format(double value);

/// A signed 16-bit number. Arithmetic between Integers and whole numbers gives an Integer and
/// raises overflow when the result does not fit; division and arithmetic with real numbers give a
/// double.
class Integer {
  public:
    constexpr Integer() = default;
    /// Raises overflow outside -32768 to 32767.
    template <std::integral Whole>
    constexpr Integer(Whole value) : value_(checked(static_cast<std::int64_t>(value))) {}
    /// Rounds with ties to even; raises overflow outside the range.
    explicit Integer(double value);

    constexpr operator int() const { return value_; }

    Integer& operator+=(Integer other) { return *this = *this + other; }
    Integer& operator-=(Integer other) { return *this = *this - other; }

    friend constexpr Integer operator+(Integer a, Integer b) { return a.wide() + b.wide(); }
    friend constexpr Integer operator-(Integer a, Integer b) { return a.wide() - b.wide(); }
    friend constexpr Integer operator*(Integer a, Integer b) { return a.wide() * b.wide(); }
    friend constexpr double operator/(Integer a, Integer b) {
        return double(a.value_) / double(b.value_);
    }
    friend constexpr Integer operator-(Integer a) { return -a.wide(); }

    template <std::integral Whole>
    friend constexpr Integer operator+(Integer a, Whole b) {
        return a + Integer(b);
    }
    template <std::integral Whole>
    friend constexpr Integer operator-(Integer a, Whole b) {
        return a - Integer(b);
    }
    template <std::integral Whole>
    friend constexpr Integer operator*(Integer a, Whole b) {
        return a * Integer(b);
    }
    template <std::integral Whole>
    friend constexpr double operator/(Integer a, Whole b) {
        return double(a.value_) / double(b);
    }
    template <std::integral Whole>
    friend constexpr Integer operator+(Whole a, Integer b) {
        return Integer(a) + b;
    }
    template <std::integral Whole>
    friend constexpr Integer operator-(Whole a, Integer b) {
        return Integer(a) - b;
    }
    template <std::floating_point Real>
    friend constexpr double operator+(Integer a, Real b) {
        return a.value_ + double(b);
    }
    template <std::floating_point Real>
    friend constexpr double operator-(Integer a, Real b) {
        return a.value_ - double(b);
    }
    template <std::floating_point Real>
    friend constexpr double operator*(Integer a, Real b) {
        return a.value_ * double(b);
    }
    template <std::floating_point Real>
    friend constexpr double operator/(Integer a, Real b) {
        return a.value_ / double(b);
    }

    friend constexpr bool operator==(Integer a, Integer b) { return a.value_ == b.value_; }
    friend constexpr std::strong_ordering operator<=>(Integer a, Integer b) {
        return a.value_ <=> b.value_;
    }
    template <std::integral Whole>
    friend constexpr bool operator==(Integer a, Whole b) {
        return a.wide() == static_cast<std::int64_t>(b);
    }
    template <std::integral Whole>
    friend constexpr std::strong_ordering operator<=>(Integer a, Whole b) {
        return a.wide() <=> static_cast<std::int64_t>(b);
    }

  private:
    constexpr std::int64_t wide() const { return value_; }

    static constexpr std::int16_t checked(std::int64_t value) {
        if (value < std::numeric_limits<std::int16_t>::min() ||
            value > std::numeric_limits<std::int16_t>::max())
            throw RuntimeError(ErrorNumber::overflow);
        return static_cast<std::int16_t>(value);
    }

    std::int16_t value_ = 0;
};

/// A flag kept in 16 bits: -1 true, 0 false. A number from a file may hold something else; it then
/// counts as true wherever it is asked as a flag.
class Flag {
  public:
    constexpr Flag() = default;
    constexpr Flag(bool on) : number_(on ? -1 : 0) {}
    explicit constexpr Flag(Integer raw) : number_(raw) {}

    constexpr explicit operator bool() const { return number_ != 0; }
    constexpr bool operator!() const { return number_ == 0; }
    constexpr Integer number() const { return number_; }
    friend constexpr bool operator==(Flag a, Flag b) { return a.number_ == b.number_; }

  private:
    Integer number_ = 0;
};

} // namespace kehystin::base
