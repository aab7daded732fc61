// Run-time errors of the platform: the numbers a command's failure box shows.
#pragma once

#include <new>
#include <stdexcept>
#include <string>

namespace kehystin::base {

enum class ErrorNumber : int {
    overflow = 6,
    out_of_memory = 7,
    subscript_out_of_range = 9,
    bad_file_name = 52,
    file_not_found = 53,
    file_already_open = 55,
    disk_io = 57,
    disk_full = 61,
    input_past_end = 62,
    path_file_access = 75,
    path_not_found = 76,
    invalid_property_value = 380,
    invalid_picture = 481,
    cancelled = 32755,
};

/// The platform's own text for an error number, in Finnish, without the number.
std::string error_text(ErrorNumber number);

/// A failure of one statement. A command catches it at its edge and shows its own box.
class RuntimeError : public std::runtime_error {
  public:
    explicit RuntimeError(ErrorNumber number);
    explicit RuntimeError(int number) : RuntimeError(static_cast<ErrorNumber>(number)) {}
    /// With a text that says more than the number's own.
    RuntimeError(ErrorNumber number, std::string const& text);

    int number() const { return static_cast<int>(number_); }
    bool is(ErrorNumber number) const { return number_ == number; }
    std::string text() const { return what(); }

  private:
    ErrorNumber number_;
};

/// Runs work, and raises out_of_memory where the memory ran out.
template <class Work>
auto with_memory_checked(Work const& work) {
    try {
        return work();
    } catch (std::bad_alloc const&) {
        throw RuntimeError(ErrorNumber::out_of_memory);
    }
}

} // namespace kehystin::base
