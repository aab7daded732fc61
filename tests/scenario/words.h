// Words: how a line of a scenario falls into words, and what a single word can stand for.
#pragma once

#include "platform/base.h"
#include "platform/property.h"

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace scenario {

/// A step that cannot be understood, cannot be done, or found something else than it expects.
class StepError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

struct Word {
    std::string text;
    bool quoted = false; ///< stood in quotes: a text, never a number, a name or a keyword
};

/// Splits at blanks. Quotes keep blanks together; inside them \" \\ \n and \0 stand for a quote, a
/// backslash, a line break and a NUL, and any other backslash for itself.
std::vector<Word> split_words(std::string_view line);

/// The whole text as a number; nothing when it is none.
std::optional<double> read_number(std::string_view text);
/// rgb(192,192,192) as the number of that colour.
std::optional<double> read_colour(std::string_view text);

/// What stands behind the step's own word, taken from the left.
class Arguments {
  public:
    explicit Arguments(std::vector<Word> words) : words_(std::move(words)) {}

    bool empty() const { return place_ == words_.size(); }
    /// The next word; `what` says what is missing without one.
    Word const& take(std::string_view what);
    /// Takes the next word only if it is this keyword.
    bool take_keyword(std::string_view keyword);
    /// A whole number within the bounds.
    int take_whole(std::string_view what, int lowest, int highest);
    /// Raises StepError when words are left over.
    void finish() const;

  private:
    std::vector<Word> words_;
    std::size_t place_ = 0;
};

/// A value as a scenario writes it: yes and no, a plain number, or the text with \n for its line
/// breaks.
std::string text_of(platform::Value const& value);
/// A value for a message: texts in quotes, with \0 for NULs.
std::string shown(platform::Value const& value);

/// The program's line breaks, carriage return and line feed, as \n.
std::string with_plain_breaks(std::string_view text);
/// The reverse, for texts that go to the program.
std::string with_program_breaks(std::string_view text);

} // namespace scenario
